// The wake-ups and processor time of the open panel and the helper while the user is idle.

#include <stdexcept>

#include "bench/Figures.h"
#include "bench/FirstWindow.h"
#include "bench/ProcessFigures.h"
#include "bench/Programs.h"
#include "support/ChildProcess.h"
#include "support/PrivateBus.h"
#include "support/TemporaryFolder.h"

namespace quorvi::bench {
namespace {

void run(bool quick) {
    const test::TemporaryFolder home;
    becomeNewUser(home.path());
    const test::PrivateBus bus;
    const test::ChildProcess helper({kHelper});
    waitForHelper();
    FirstWindow watcher;
    const test::ChildProcess panel({kPanel});
    if (!watcher.waitFor(panel.pid(), test::kPatience))
        throw std::runtime_error("the panel shows no window");
    waitForProcess("KyvarQuorviPane");
    waitUntilIdle(panel.pid());
    waitUntilIdle(helper.pid());

    const std::chrono::seconds span(quick ? 2 : 15);
    const auto print = [&](const std::string& who, pid_t process) {
        const Activity activity = activityWithin(process, span);
        printRow("wake-ups of " + who + " in " + std::to_string(span.count()) + " s",
            figureOf({double(activity.runs)}), "", 0.0);
        printRow("  processor time", figureOf({double(activity.nanoseconds) / 1e6}), "ms", 0.0);
    };
    print("the idle panel", panel.pid());
    print("the idle helper", helper.pid());
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    return quorvi::bench::exitCodeOf(
        "quorvi-bench-idle", [&] { quorvi::bench::run(quorvi::bench::isQuick(argc, argv)); });
}
