// The kernel's figures for a running process.
#pragma once

#include <chrono>
#include <cstdint>

#include <sys/types.h>

namespace quorvi::test {

/// Memory in KiB, of /proc/PID/smaps_rollup; 0 if the process is gone.
struct MemoryFigures {
    std::int64_t resident = 0;  ///< Rss: everything that is in memory, shared or not
    std::int64_t anonymous = 0; ///< heap and stacks, which leaks increase
};
[[nodiscard]] MemoryFigures memoryOf(pid_t process);

/// How often the threads of the process have gone to sleep since they were started.
[[nodiscard]] std::int64_t sleepsOf(pid_t process);

/// How long the thread has been ready to run while others had the processors, since it was started; 0 if it
/// is gone or the kernel does not count it. A process's number stands for its main thread.
[[nodiscard]] std::chrono::nanoseconds processorWaitOf(pid_t thread);

/// Waits until all threads of the process sleep for half a second. Returns false if that takes longer than
/// the test's patience.
[[nodiscard]] bool comesToRest(pid_t process);

} // namespace quorvi::test
