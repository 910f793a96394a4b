#include "bench/ProcessFigures.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <thread>

namespace quorvi::bench {

namespace {

std::ifstream procFile(pid_t process, const char* name) {
    return std::ifstream("/proc/" + std::to_string(process) + "/" + name);
}

/// By the numbers of the threads that run now.
std::map<std::string, Activity> activityOfThreads(pid_t process) {
    std::map<std::string, Activity> threads;
    for (const auto& thread :
        std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        std::uint64_t waiting = 0;
        Activity& activity = threads[thread.path().filename()];
        std::ifstream(thread.path() / "schedstat") >> activity.nanoseconds >> waiting >> activity.runs;
    }
    return threads;
}

} // namespace

Activity activityOf(pid_t process) {
    Activity all;
    for (const auto& [thread, activity] : activityOfThreads(process)) {
        all.runs += activity.runs;
        all.nanoseconds += activity.nanoseconds;
    }
    return all;
}

Activity activityWithin(pid_t process, std::chrono::seconds span) {
    auto before = activityOfThreads(process);
    std::this_thread::sleep_for(span);
    Activity within;
    for (const auto& [thread, activity] : activityOfThreads(process)) {
        within.runs += activity.runs - before[thread].runs;
        within.nanoseconds += activity.nanoseconds - before[thread].nanoseconds;
    }
    return within;
}

void waitUntilIdle(pid_t process) {
    // A blinking cursor or a timer is less than this; reading a file or building a view is more.
    constexpr std::uint64_t idleNanoseconds = 1'000'000;
    constexpr int idleTimes = 3; // a process that waits for an answer looks idle for a moment
    for (int times = 0; times < idleTimes;) {
        const auto before = activityOf(process).nanoseconds;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        times = activityOf(process).nanoseconds - before < idleNanoseconds ? times + 1 : 0;
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
