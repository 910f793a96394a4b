// The kernel's figures for a running process.
#pragma once

#include <chrono>
#include <cstdint>

#include <sys/types.h>

namespace quorvi::bench {

/// Waits until the process is nearly idle.
void waitUntilIdle(pid_t process);

/// The activity of a process's threads since their start.
struct Activity {
    std::uint64_t runs = 0;        ///< times that one was put on a processor
    std::uint64_t nanoseconds = 0; ///< on a processor
};
[[nodiscard]] Activity activityOf(pid_t process);

/// The activity of its threads in the span, without threads that end in it.
[[nodiscard]] Activity activityWithin(pid_t process, std::chrono::seconds span);

/// The process's proportional share of memory, in MiB; 0 if it is gone.
[[nodiscard]] double proportionalMemory(pid_t process);

} // namespace quorvi::bench
