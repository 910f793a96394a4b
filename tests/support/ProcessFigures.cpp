#include "support/ProcessFigures.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "support/ChildProcess.h"

namespace quorvi::test {

namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;

/// Where the kernel keeps what it knows of the process.
fs::path folderOf(pid_t process) {
    return fs::path("/proc") / std::to_string(process);
}

/// The number behind the name in a file of "Name: number" lines; 0 when there is none.
std::int64_t numberIn(const fs::path& file, const std::string& name) {
    std::ifstream stream(file);
    std::int64_t number = 0;
    for (std::string word; stream >> word;)
        if (word == name + ":" && stream >> number)
            return number;
    return 0;
}

} // namespace

MemoryFigures memoryOf(pid_t process) {
    const fs::path file = folderOf(process) / "smaps_rollup";
    return {numberIn(file, "Rss"), numberIn(file, "Anonymous")};
}

std::int64_t sleepsOf(pid_t process) {
    std::int64_t sleeps = 0;
    std::error_code error;
    for (const auto& thread : fs::directory_iterator(folderOf(process) / "task", error))
        sleeps += numberIn(thread.path() / "status", "voluntary_ctxt_switches");
    return sleeps;
}

std::chrono::nanoseconds processorWaitOf(pid_t thread) {
    std::ifstream stream(folderOf(thread) / "task" / std::to_string(thread) / "schedstat");
    std::int64_t running = 0;
    std::int64_t waiting = 0; // the second number of the line
    return std::chrono::nanoseconds(stream >> running >> waiting ? waiting : 0);
}

bool comesToRest(pid_t process) {
    constexpr auto stretch = std::chrono::milliseconds(500);
    const auto end = steady_clock::now() + kPatience;
    auto since = steady_clock::now();
    for (std::int64_t before = sleepsOf(process); steady_clock::now() < end;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        const std::int64_t now = sleepsOf(process);
        if (now != before)
            since = steady_clock::now();
        else if (steady_clock::now() - since >= stretch)
            return true;
        before = now;
    }
    return false;
}

} // namespace quorvi::test
