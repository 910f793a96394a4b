// Start and memory of the settings application with the panel, compared with a program with one empty window,
// and with --peers its start compared with other installed settings programs for mice.

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>

#include "bench/FirstWindow.h"
#include "bench/ProcessFigures.h"
#include "bench/Programs.h"
#include "support/ChildProcess.h"
#include "support/PrivateBus.h"
#include "support/TemporaryFolder.h"

namespace quorvi::bench {
namespace {

struct NoWindow : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One start of a program, from the fork to its first drawn window.
class Start {
  public:
    Start(FirstWindow& watcher, const std::string& program) : m_begin(Clock::now()), m_process({program}) {
        const auto shown = watcher.waitFor(m_process.pid(), test::kPatience);
        if (!shown)
            throw NoWindow(program + " shows no window");
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

/// Programs of Debian that set up mice and open a window by themselves.
constexpr const char* kPeers[] = {"lxinput", "xfce4-mouse-settings", "piper"};

using Time = std::function<double(const std::string& program)>;

void comparePeer(const std::string& peer, int pairs, const Time& time) {
    if (!std::filesystem::exists("/usr/bin/" + peer))
        throw NoWindow(peer + " is not installed");
    const auto ratios = runPairs(
        pairs, [&] { return time(kPanel); },
        [&] {
            return time(peer);
        }).ratios();
    printRow("  … / of " + peer, figureOf(ratios), "x", 1.0);
}

/// Some of them may not run on this machine; the others are still compared.
void comparePeers(int pairs, const Time& time) {
    for (const char* peer : kPeers) {
        try {
            comparePeer(peer, pairs, time);
        } catch (const NoWindow& error) {
            std::fprintf(stderr, "quorvi-bench-start: %s\n", error.what());
        }
    }
}

void run(bool quick, bool peers) {
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
    if (peers)
        comparePeers(quick ? 1 : 15, time);
    const auto memory = [&](const std::string& program) { return Start(watcher, program).memory(); };
    printRow(
        "memory (PSS) of the open panel / of an empty Qt window", ratio(quick ? 1 : 5, memory), "x", 1.7);

    waitUntilIdle(helper.pid());
    printRow("memory (PSS) of the helper", figureOf({proportionalMemory(helper.pid())}), "MiB", 8.0);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    const bool peers = std::any_of(
        argv + 1, argv + argc, [](const char* argument) { return !std::strcmp(argument, "--peers"); });
    return quorvi::bench::exitCodeOf(
        "quorvi-bench-start", [&] { quorvi::bench::run(quorvi::bench::isQuick(argc, argv), peers); });
}
