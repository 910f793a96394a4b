// How long a report of the mouse takes to its desktop through a program between them, what processor time
// that takes, and what gets lost. Programs are measured in turn, round for round, in the machine that this
// runs in.
//   quorvi-bench-latency ROUNDS SECONDS NAME=DEVICE=COMMAND...
// DEVICE is the name of the virtual pointer that the command makes; NODE in the command is the mouse's.
// Output: for each program and rate, tab-separated, medians over the rounds: name, rate, p50 and p99 in µs,
// processor time in per cent, lost counts, sent counts.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>

#include "support/WaitUntil.h"
#include "vm/support/Desk.h"
#include "vm/support/FakeMouse.h"

namespace quorvi::bench {
namespace {

using test::ChildProcess;
using test::FakeMouse;
using Nanoseconds = std::int64_t;

constexpr std::array rates{125, 1000, 8000};

Nanoseconds now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

struct Program {
    std::string name;
    std::string device;
    std::string command;
};

struct Figures {
    double p50 = 0;
    double p99 = 0;
    double cpu = 0;
    long lost = 0;
    long sent = 0;
};

/// Processor time of all threads of the process and of its children, from the scheduler, in nanoseconds.
Nanoseconds processorTime(pid_t process) {
    Nanoseconds time = 0;
    const auto task = "/proc/" + std::to_string(process) + "/task/" + std::to_string(process);
    std::ifstream("/proc/" + std::to_string(process) + "/schedstat") >> time;
    std::ifstream children(task + "/children");
    for (pid_t child = 0; children >> child;)
        time += processorTime(child);
    return time;
}

std::string nodeNamed(const std::string& device) {
    for (int number = 0; number < 64; ++number) {
        std::string name;
        std::ifstream file("/sys/class/input/event" + std::to_string(number) + "/device/name");
        if (std::getline(file, name) && name == device)
            return "/dev/input/event" + std::to_string(number);
    }
    return {};
}

/// Reads what arrives, on a thread of its own. Counts carry the number of their report.
class Arrivals {
  public:
    Arrivals(const std::string& node, std::vector<std::atomic<Nanoseconds>>& sent)
        : m_fd(open(node.c_str(), O_RDONLY | O_CLOEXEC)), m_sent(sent), m_thread([this] { run(); }) {}
    ~Arrivals() {
        m_ends = true;
        m_thread.join();
    }
    std::vector<Nanoseconds> delays;
    std::atomic<long> counts = 0;

  private:
    void run() {
        prctl(PR_SET_TIMERSLACK, 1);
        fcntl(m_fd.get(), F_SETFL, O_NONBLOCK);
        std::array<input_event, 64> events;
        while (!m_ends) {
            fd_set set;
            FD_ZERO(&set);
            FD_SET(m_fd.get(), &set);
            timeval patience{0, 100'000};
            if (select(m_fd.get() + 1, &set, nullptr, nullptr, &patience) <= 0)
                continue;
            const auto size = read(m_fd.get(), events.data(), sizeof events);
            const auto time = now();
            for (ssize_t i = 0; i < size / static_cast<ssize_t>(sizeof(input_event)); ++i)
                take(events[static_cast<std::size_t>(i)], time);
        }
    }
    void take(const input_event& event, Nanoseconds time) {
        if (event.type != EV_REL || event.code != REL_X)
            return;
        counts += 1;
        delays.push_back(time - m_sent[static_cast<std::size_t>(event.value) % m_sent.size()]);
    }

    inputd::Descriptor m_fd;
    std::vector<std::atomic<Nanoseconds>>& m_sent;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

Figures measure(FakeMouse& mouse, const std::string& node, pid_t process, int rate, int seconds) {
    std::vector<std::atomic<Nanoseconds>> sent(4096);
    Arrivals arrivals(node, sent);
    const long total = static_cast<long>(rate) * seconds;
    const auto period = 1'000'000'000LL / rate;
    const auto processorBefore = processorTime(process);
    const auto begin = now();
    auto due = begin;
    for (long i = 0; i < total; ++i) {
        due += period;
        const timespec until{
            static_cast<time_t>(due / 1'000'000'000), static_cast<long>(due % 1'000'000'000)};
        clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
        // A mouse that was kept waiting sends its next report a period later, and not all at once.
        due = std::max<Nanoseconds>(due, now() - period);
        const auto number = static_cast<int>(i % 4095) + 1; // 0 would be no event
        sent[static_cast<std::size_t>(number)] = now();
        mouse.send({{FakeMouse::Part{EV_REL, REL_X, number}, FakeMouse::Part{EV_REL, REL_Y, 1}}});
    }
    const auto passed = now() - begin;
    const auto processor = processorTime(process) - processorBefore;
    const auto end = now() + 2'000'000'000LL;
    while (arrivals.counts < total && now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    auto& delays = arrivals.delays;
    if (delays.empty())
        return {0, 0, 0, total, total};
    std::ranges::sort(delays);
    return {static_cast<double>(delays[delays.size() / 2]) / 1000,
        static_cast<double>(delays[delays.size() * 99 / 100]) / 1000,
        100.0 * static_cast<double>(processor) / static_cast<double>(passed), total - arrivals.counts, total};
}

Program parse(const std::string& text) {
    const auto first = text.find('=');
    const auto second = text.find('=', first + 1);
    return {text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1)};
}

std::string withNode(std::string command, const std::string& node) {
    for (auto at = command.find("NODE"); at != std::string::npos; at = command.find("NODE"))
        command.replace(at, 4, node);
    return command;
}

/// A round of the program, at all rates. False when it does not come up.
bool run(const Program& program, int seconds, std::map<int, std::vector<Figures>>& rounds) {
    FakeMouse mouse;
    ChildProcess child({"/bin/sh", "-c", "exec " + withNode(program.command, mouse.node())});
    if (!test::waitUntil([&] { return !nodeNamed(program.device).empty(); })) {
        std::fprintf(stderr, "%s: %s\n", program.name.c_str(), child.readError().c_str());
        return false;
    }
    test::settleUdev();
    test::Desk desk;
    // It has taken the mouse when what that does comes from its own device.
    if (!desk.waitUntil([&] {
            mouse.move(1, 1);
            for (const auto& event : desk.events())
                if (event.device == program.device)
                    return true;
            return false;
        }))
        return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(200)); // what was moved is behind us
    for (const int rate : rates)
        rounds[rate].push_back(measure(mouse, nodeNamed(program.device), child.pid(), rate, seconds));
    return true;
}

template <typename Field>
auto median(std::vector<Figures> rounds, Field field) {
    std::ranges::sort(rounds, {}, field);
    return rounds[rounds.size() / 2].*field;
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    using namespace quorvi::bench;
    if (argc < 4) {
        std::fputs("usage: quorvi-bench-latency ROUNDS SECONDS NAME=DEVICE=COMMAND...\n", stderr);
        return 2;
    }
    std::vector<Program> programs;
    for (int i = 3; i < argc; ++i)
        programs.push_back(parse(argv[i]));
    std::map<std::string, std::map<int, std::vector<Figures>>> figures;
    for (int round = 0; round < std::atoi(argv[1]); ++round) {
        for (const auto& program : programs)
            if (!run(program, std::atoi(argv[2]), figures[program.name]))
                return 1;
        std::ranges::reverse(programs);
    }
    for (const auto& [name, byRate] : figures)
        for (const auto& [rate, rounds] : byRate) {
            long lost = 0;
            long sent = 0;
            for (const auto& each : rounds) {
                lost += each.lost;
                sent += each.sent;
            }
            std::printf("%s\t%d\t%.0f\t%.0f\t%.2f\t%ld\t%ld\n", name.c_str(), rate,
                median(rounds, &Figures::p50), median(rounds, &Figures::p99), median(rounds, &Figures::cpu),
                lost, sent);
        }
    return 0;
}
