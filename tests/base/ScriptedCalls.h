// File-system calls that fail on request, to simulate full and broken disks.
#pragma once

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include <sys/stat.h>

#include "base/FileCalls.h"

namespace quorvi::test {

struct FileError {
    const char* name;
    int number;
};

inline std::ostream& operator<<(std::ostream& stream, const FileError& error) {
    return stream << error.name;
}

/// The errors of calls that change files, in addition to interruption.
inline constexpr std::array kFileErrors{FileError{"ENOSPC", ENOSPC}, FileError{"EDQUOT", EDQUOT},
    FileError{"EIO", EIO}, FileError{"EACCES", EACCES}, FileError{"EPERM", EPERM}, FileError{"EROFS", EROFS}};

/// Records the calls and passes them to the system, unless one must fail.
class ScriptedCalls : public FileCalls {
  public:
    using Log = std::vector<std::string>;

    Log log;
    /// Fails the call of this name, every time or (with failures above 0) that many times.
    std::string failing;
    int failures = -1;
    int error = EIO;
    std::size_t longestWrite = std::numeric_limits<std::size_t>::max();

    int openat(int folder, const char* name, int flags, mode_t mode) override {
        return fails("open") ? -1 : FileCalls::openat(folder, name, flags, mode);
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return fails("write") ? -1 : FileCalls::write(file, bytes, std::min(count, longestWrite));
    }
    int fchown(int file, uid_t owner, gid_t group) override {
        return fails("chown") ? -1 : FileCalls::fchown(file, owner, group);
    }
    int fchmod(int file, mode_t mode) override { return fails("chmod") ? -1 : FileCalls::fchmod(file, mode); }
    int fsync(int file) override {
        return fails(isFolder(file) ? "sync folder" : "sync file") ? -1 : FileCalls::fsync(file);
    }
    int close(int file) override {
        const int result = FileCalls::close(file);
        return fails("close") ? -1 : result;
    }
    int renameat(int folder, const char* from, const char* to) override {
        return fails("rename") ? -1 : FileCalls::renameat(folder, from, to);
    }
    /// A change of names like any other.
    int renameat2(int folder, const char* from, const char* to, unsigned flags) override {
        return fails("rename") ? -1 : FileCalls::renameat2(folder, from, to, flags);
    }
    int unlinkat(int folder, const char* name) override {
        return fails("unlink") ? -1 : FileCalls::unlinkat(folder, name);
    }

  private:
    static bool isFolder(int file) {
        struct stat status = {};
        return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
    }
    bool fails(const std::string& call) {
        log.push_back(call);
        if (call != failing || failures == 0)
            return false;
        --failures;
        errno = error;
        return true;
    }
};

} // namespace quorvi::test
