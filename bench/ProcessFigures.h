// What the kernel says of a running process.
#pragma once

#include <chrono>
#include <cstdint>

#include <sys/types.h>

namespace quorvi::bench {

/// Waits until the process has next to nothing to do any more.
void waitUntilIdle(pid_t process);

/// What the threads of a process have done since they started.
struct Activity {
    std::uint64_t runs = 0;        ///< times that one was put on a processor
    std::uint64_t nanoseconds = 0; ///< on a processor
};
[[nodiscard]] Activity activityOf(pid_t process);

/// What its threads do in the span. One that ends in it is left out.
[[nodiscard]] Activity activityWithin(pid_t process, std::chrono::seconds span);

/// The process's proportional share of memory, in MiB; 0 when it is gone.
[[nodiscard]] double proportionalMemory(pid_t process);

} // namespace quorvi::bench
