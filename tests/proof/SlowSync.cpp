// Loaded into a program before its own libraries (LD_PRELOAD), makes its disk slow: each sync takes
// QUORVI_SYNC_MS milliseconds longer.

#include <chrono>
#include <cstdlib>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

extern "C" int fsync(int file) {
    if (const char* milliseconds = std::getenv("QUORVI_SYNC_MS"))
        std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(milliseconds)));
    return static_cast<int>(::syscall(SYS_fsync, file));
}
