// What the open panel and the helper do while the user does nothing: how often each is woken, and what it
// computes.

#include <cstdio>
#include <stdexcept>
#include <thread>

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

    const Activity panelBefore = activityOf(panel.pid());
    const Activity helperBefore = activityOf(helper.pid());
    // The span is what is measured; nothing is waited for.
    const int seconds = quick ? 2 : 30;
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    const Activity panelAfter = activityOf(panel.pid());
    const Activity helperAfter = activityOf(helper.pid());

    const auto print = [&](const std::string& who, const Activity& before, const Activity& after) {
        printRow("wake-ups of " + who + " in " + std::to_string(seconds) + " s",
            figureOf({double(after.runs - before.runs)}), "", 0.0);
        printRow(
            "  processor time", figureOf({double(after.nanoseconds - before.nanoseconds) / 1e6}), "ms", 0.0);
    };
    print("the idle panel", panelBefore, panelAfter);
    print("the idle helper", helperBefore, helperAfter);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    try {
        quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorvi-bench-idle: %s\n", error.what());
        return 1;
    }
}
