#include "bench/ProcessFigures.h"

#include <chrono>
#include <cstdint>
#include <fstream>
#include <string>
#include <thread>

namespace quorvi::bench {

namespace {

std::ifstream procFile(pid_t process, const char* name) {
    return std::ifstream("/proc/" + std::to_string(process) + "/" + name);
}

/// Nanoseconds on a processor so far, of its first thread.
std::uint64_t processorTime(pid_t process) {
    std::uint64_t nanoseconds = 0;
    procFile(process, "schedstat") >> nanoseconds;
    return nanoseconds;
}

} // namespace

void waitUntilIdle(pid_t process) {
    // A blinking cursor or a timer is less than this; reading a file or building a view is more.
    constexpr std::uint64_t idleNanoseconds = 1'000'000;
    constexpr int idleTimes = 3; // a process that waits for an answer looks idle for a moment
    for (int times = 0; times < idleTimes;) {
        const auto before = processorTime(process);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        times = processorTime(process) - before < idleNanoseconds ? times + 1 : 0;
    }
}

double proportionalMemory(pid_t process) {
    auto file = procFile(process, "smaps_rollup");
    for (std::string word; file >> word;) {
        double kibibytes = 0;
        if (word == "Pss:" && file >> kibibytes)
            return kibibytes / 1024;
    }
    return 0;
}

} // namespace quorvi::bench
