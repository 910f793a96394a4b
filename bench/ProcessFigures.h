// What the kernel says of a running process.
#pragma once

#include <sys/types.h>

namespace quorvi::bench {

/// Waits until the process has next to nothing to do any more.
void waitUntilIdle(pid_t process);

/// The process's proportional share of memory, in MiB; 0 when it is gone.
[[nodiscard]] double proportionalMemory(pid_t process);

} // namespace quorvi::bench
