// Start and memory of the settings application with the panel, against a program with one empty window.

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <thread>

#include "bench/FirstWindow.h"
#include "bench/FullConfiguration.h"
#include "bench/ProcessFigures.h"
#include "model/SettingsDocument.h"
#include "platform/events/EventBus.h"
#include "support/ChildProcess.h"
#include "support/PrivateBus.h"
#include "support/TemporaryFolder.h"

namespace quorvi::bench {
namespace {

const std::string kPanel = QUORVI_PROGRAMS "/quorvi-settings";
const std::string kEmptyWindow = QUORVI_PROGRAMS "/quorvi-bench-empty-window";
const std::string kHelper =
    QUORVI_BUNDLE "/Contents/Resources/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper";

/// A new user, with a full configuration of an earlier session. Nothing of the real one's reaches the
/// programs.
void becomeNewUser(const std::string& home) {
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "QT_QPA_PLATFORM",
             "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "XDG_CURRENT_DESKTOP", "WAYLAND_DISPLAY"})
        unsetenv(variable);
    setenv("HOME", home.c_str(), 1);
    if (!saveSettings(fullConfiguration(), userSettingsPath(home)))
        throw std::runtime_error("the settings cannot be written");
}

void waitForHelper() {
    const auto bus = EventBus::connect();
    const auto deadline = Clock::now() + test::kPatience;
    while (!bus || bus->findProcessByName("KyvarQuorviHelper", nullptr) != noErr) {
        if (!bus || Clock::now() > deadline)
            throw std::runtime_error("the helper does not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

/// One start of a program, from the fork to its first drawn window.
class Start {
  public:
    Start(FirstWindow& watcher, const std::string& program) : m_begin(Clock::now()), m_process({program}) {
        const auto shown = watcher.waitFor(m_process.pid(), test::kPatience);
        if (!shown)
            throw std::runtime_error(program + " shows no window");
        m_time = Microseconds(*shown - m_begin).count();
    }
    ~Start() {
        m_process.signal(SIGTERM);
        (void)m_process.wait();
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    [[nodiscard]] double microseconds() const { return m_time; }
    [[nodiscard]] double memory() const {
        waitUntilIdle(m_process.pid());
        return proportionalMemory(m_process.pid());
    }

  private:
    Clock::time_point m_begin;
    test::ChildProcess m_process;
    double m_time = 0;
};

void run(bool quick) {
    const test::TemporaryFolder home;
    becomeNewUser(home.path());
    const test::PrivateBus bus;
    const test::ChildProcess helper({kHelper});
    waitForHelper();
    FirstWindow watcher;

    const auto ratio = [](int pairs, const auto& figure) {
        return figureOf(runPairs(
            pairs, [&] { return figure(kPanel); },
            [&] {
                return figure(kEmptyWindow);
            }).ratios());
    };
    const auto time = [&](const std::string& program) { return Start(watcher, program).microseconds(); };
    printRow("from start to first window / an empty Qt window", ratio(quick ? 3 : 61, time), "x", 2.0);
    const auto memory = [&](const std::string& program) { return Start(watcher, program).memory(); };
    printRow(
        "memory (PSS) of the open panel / of an empty Qt window", ratio(quick ? 1 : 5, memory), "x", 2.0);

    waitUntilIdle(helper.pid());
    printRow("memory (PSS) of the helper", figureOf({proportionalMemory(helper.pid())}), "MiB", 8.0);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    try {
        quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorvi-bench-start: %s\n", error.what());
        return 1;
    }
}
