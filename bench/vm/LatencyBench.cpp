// The time of a report from the mouse to the desktop through a program between them, the processor time, and
// the lost reports. Programs are measured in turn, round for round, in the machine that this runs in.
//   quorvi-bench-latency ROUNDS SECONDS RATE,RATE... NAME=DEVICE=COMMAND...
// DEVICE is the name of the virtual pointer that the command makes, which may be the mouse's own; NODE in the
// command is the mouse's. Each program has to have the mouse for itself before it is measured, and runs at
// the priority of the service's unit. Output: for each program and rate, tab-separated, medians over the
// rounds: name, rate, p50 and p99 in µs, processor time in per cent; then of all rounds the reports that were
// lost, those of them that the program never read, those that the desktop's queue had no room for, and the
// reports that were sent. What a program of several processes has read is not known.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>

#include "support/ChildProcess.h"
#include "support/WaitUntil.h"
#include "vm/support/FakeMouse.h"

namespace quorvi::bench {
namespace {

using test::ChildProcess;
using test::FakeMouse;
using Nanoseconds = std::int64_t;

/// Reports are numbered from 1, since 0 would be no event, to this and from 1 again.
constexpr int kNumbers = 4095;

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

/// In reports.
struct Counts {
    long lost = 0;
    long lostBefore = 0; ///< the program never read them
    long lostAfter = 0;  ///< the desktop's queue had no room for them
    long sent = 0;
};

struct Figures {
    double p50 = 0;
    double p99 = 0;
    double cpu = 0;
    Counts reports;
};

/// The process, what it has started, and so on.
std::vector<pid_t> family(pid_t process) {
    std::vector<pid_t> all{process};
    std::error_code gone;
    for (const auto& task :
        std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task", gone)) {
        std::ifstream children(task.path() / "children");
        for (pid_t child = 0; children >> child;)
            std::ranges::copy(family(child), std::back_inserter(all));
    }
    return all;
}

/// Processor time of all threads of the process and of what it has started, from the scheduler.
Nanoseconds processorTime(pid_t process) {
    Nanoseconds sum = 0;
    for (const auto member : family(process)) {
        std::error_code gone;
        for (const auto& task :
            std::filesystem::directory_iterator("/proc/" + std::to_string(member) + "/task", gone)) {
            Nanoseconds time = 0;
            std::ifstream(task.path() / "schedstat") >> time;
            sum += time;
        }
    }
    return sum;
}

/// How many events of input devices the process has read so far, if that is all that it reads.
long eventsRead(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/io");
    std::string name;
    long bytes = 0;
    file >> name >> bytes; // "rchar:"
    return bytes / static_cast<long>(sizeof(input_event));
}

/// The node of that name which is not the mouse's own.
std::string nodeNamed(const std::string& device, const std::string& mouse) {
    for (int number = 0; number < 64; ++number) {
        std::string name;
        std::ifstream file("/sys/class/input/event" + std::to_string(number) + "/device/name");
        if (auto node = "/dev/input/event" + std::to_string(number);
            node != mouse && std::getline(file, name) && name == device)
            return node;
    }
    return {};
}

bool isTaken(const std::string& mouse) {
    const inputd::Descriptor fd(open(mouse.c_str(), O_RDONLY | O_CLOEXEC));
    return fd && ioctl(fd.get(), EVIOCGRAB, 1) < 0;
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
    /// Reports for which the queue of this reader had no room.
    long dropped = 0;

  private:
    void run() {
        prctl(PR_SET_TIMERSLACK, 1);
        fcntl(m_fd.get(), F_SETFL, O_NONBLOCK);
        std::array<input_event, 64> events;
        while (m_fd && !m_ends) {
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
        if (event.type == EV_SYN && event.code == SYN_DROPPED)
            m_isBehind = true;
        if (event.type != EV_REL || event.code != REL_X)
            return;
        if (std::exchange(m_isBehind, false))
            dropped += (event.value - m_last - 1 + kNumbers) % kNumbers;
        m_last = event.value;
        counts += 1;
        delays.push_back(time - m_sent[static_cast<std::size_t>(event.value) % m_sent.size()]);
    }

    inputd::Descriptor m_fd;
    std::vector<std::atomic<Nanoseconds>>& m_sent;
    std::atomic<bool> m_ends = false;
    bool m_isBehind = false;
    int m_last = 0;
    std::thread m_thread;
};

Figures measure(FakeMouse& mouse, const std::string& node, pid_t process, int rate, int seconds) {
    std::vector<std::atomic<Nanoseconds>> sent(kNumbers + 1);
    Arrivals arrivals(node, sent);
    const long total = static_cast<long>(rate) * seconds;
    const auto period = 1'000'000'000LL / rate;
    const auto processorBefore = processorTime(process);
    const auto readBefore = eventsRead(process);
    const auto begin = now();
    auto due = begin;
    for (long i = 0; i < total; ++i) {
        due += period;
        const timespec until{
            static_cast<time_t>(due / 1'000'000'000), static_cast<long>(due % 1'000'000'000)};
        clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
        // A mouse that was kept waiting sends its next report a period later, and not all at once.
        due = std::max<Nanoseconds>(due, now() - period);
        const auto number = static_cast<int>(i % kNumbers) + 1;
        sent[static_cast<std::size_t>(number)] = now();
        mouse.send({{FakeMouse::Part{EV_REL, REL_X, number}, FakeMouse::Part{EV_REL, REL_Y, 1}}});
    }
    const auto passed = now() - begin;
    const auto processor = processorTime(process) - processorBefore;
    const auto end = now() + 2'000'000'000LL;
    while (arrivals.counts < total && now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    constexpr long eventsOfReport = 3;
    Counts reports{total - arrivals.counts, 0, arrivals.dropped, total};
    if (family(process).size() == 1)
        reports.lostBefore = std::max(0L, total - (eventsRead(process) - readBefore) / eventsOfReport);
    auto& delays = arrivals.delays;
    if (delays.empty())
        return {0, 0, 0, reports};
    std::ranges::sort(delays);
    return {static_cast<double>(delays[delays.size() / 2]) / 1000,
        static_cast<double>(delays[delays.size() * 99 / 100]) / 1000,
        100.0 * static_cast<double>(processor) / static_cast<double>(passed), reports};
}

Program parse(const std::string& text) {
    const auto first = text.find('=');
    const auto second = text.find('=', first + 1);
    return {text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1)};
}

std::vector<int> parseRates(const std::string& text) {
    std::vector<int> rates;
    std::istringstream parts(text);
    for (std::string part; std::getline(parts, part, ',');)
        rates.push_back(std::max(std::atoi(part.c_str()), 1));
    return rates;
}

std::string withNode(std::string command, const std::string& node) {
    for (auto at = command.find("NODE"); at != std::string::npos; at = command.find("NODE"))
        command.replace(at, 4, node);
    return command;
}

/// Waits until the program has the mouse for itself and what that does comes from the program's device.
/// Gives its node, none when that does not happen.
std::string passingNode(const Program& program, FakeMouse& mouse) {
    std::string node;
    const auto find = [&] { return !(node = nodeNamed(program.device, mouse.node())).empty(); };
    if (!test::waitUntil(find))
        return {};
    test::settleUdev();
    std::vector<std::atomic<Nanoseconds>> sent(kNumbers + 1);
    Arrivals arrivals(node, sent);
    const auto passes = [&] {
        mouse.move(1, 1);
        return arrivals.counts > 0 && isTaken(mouse.node());
    };
    return test::waitUntil(passes) ? node : std::string();
}

/// As the service's unit has it. At that of the mouse and the desktop of this machine, a program waits for
/// their turn of several milliseconds, and the kernel does not keep 8,000 reports a second for so long.
constexpr int kPriority = -10;

/// Gives it to all threads of the program that have not given themselves a higher one.
void raisePriority(pid_t process) {
    for (const auto member : family(process)) {
        std::error_code error;
        const auto tasks = std::filesystem::path("/proc") / std::to_string(member) / "task";
        for (const auto& task : std::filesystem::directory_iterator(tasks, error)) {
            const auto thread = static_cast<id_t>(std::stoi(task.path().filename()));
            if (getpriority(PRIO_PROCESS, thread) > kPriority)
                setpriority(PRIO_PROCESS, thread, kPriority);
        }
    }
}

/// A round of the program, at all rates. False when it does not come up.
bool run(const Program& program, int seconds, const std::vector<int>& rates,
    std::map<int, std::vector<Figures>>& rounds) {
    FakeMouse mouse;
    ChildProcess child({"/bin/sh", "-c", "exec " + withNode(program.command, mouse.node())});
    const auto node = passingNode(program, mouse);
    if (!node.empty()) {
        raisePriority(child.pid());
        std::this_thread::sleep_for(std::chrono::milliseconds(200)); // what was moved is behind us
        for (const int rate : rates)
            rounds[rate].push_back(measure(mouse, node, child.pid(), rate, seconds));
    }
    // What it has started goes with it.
    for (const auto member : family(child.pid()))
        kill(member, SIGKILL);
    if (node.empty())
        std::fprintf(
            stderr, "%s does not pass the mouse on: %s\n", program.name.c_str(), child.readError().c_str());
    return !node.empty();
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
    if (argc < 5) {
        std::fputs(
            "usage: quorvi-bench-latency ROUNDS SECONDS RATE,RATE... NAME=DEVICE=COMMAND...\n", stderr);
        return 2;
    }
    std::vector<Program> programs;
    const auto rates = parseRates(argv[3]);
    for (int i = 4; i < argc; ++i)
        programs.push_back(parse(argv[i]));
    std::map<std::string, std::map<int, std::vector<Figures>>> figures;
    for (int round = 0; round < std::atoi(argv[1]); ++round) {
        for (const auto& program : programs)
            if (!run(program, std::atoi(argv[2]), rates, figures[program.name]))
                return 1;
        std::ranges::reverse(programs);
    }
    for (const auto& [name, byRate] : figures)
        for (const auto& [rate, rounds] : byRate) {
            Counts all;
            for (const auto& each : rounds) {
                all.lost += each.reports.lost;
                all.lostBefore += each.reports.lostBefore;
                all.lostAfter += each.reports.lostAfter;
                all.sent += each.reports.sent;
            }
            std::printf("%s\t%d\t%.0f\t%.0f\t%.2f\t%ld\t%ld\t%ld\t%ld\n", name.c_str(), rate,
                median(rounds, &Figures::p50), median(rounds, &Figures::p99), median(rounds, &Figures::cpu),
                all.lost, all.lostBefore, all.lostAfter, all.sent);
        }
    return 0;
}
