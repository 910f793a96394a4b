// The system calls that change files, as one object that tests replace to simulate full disks, interrupted
// writes and failing devices.
#pragma once

#include <cstddef>

#include <sys/types.h>

namespace quorvi {

/// Each call takes and returns what the system's call of that name does: -1 on failure, with errno set.
class FileCalls {
  public:
    virtual ~FileCalls() = default;

    virtual int openat(int folder, const char* name, int flags, mode_t mode);
    virtual ssize_t write(int file, const void* bytes, std::size_t count);
    virtual int fchown(int file, uid_t owner, gid_t group);
    virtual int fchmod(int file, mode_t mode);
    virtual int fsync(int file);
    virtual int close(int file);
    /// Within one folder.
    virtual int renameat(int folder, const char* from, const char* to);
    /// Within one folder. EINVAL on a file system that does not support the flags.
    virtual int renameat2(int folder, const char* from, const char* to, unsigned flags);
    virtual int unlinkat(int folder, const char* name);
    virtual int flock(int file, int operation);
};

/// The real system calls.
[[nodiscard]] FileCalls& systemFileCalls();

} // namespace quorvi
