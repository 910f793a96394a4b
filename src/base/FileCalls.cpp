#include "base/FileCalls.h"

#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvi {

int FileCalls::openat(int folder, const char* name, int flags, mode_t mode) {
    return ::openat(folder, name, flags, mode);
}

ssize_t FileCalls::write(int file, const void* bytes, std::size_t count) {
    return ::write(file, bytes, count);
}

int FileCalls::fchown(int file, uid_t owner, gid_t group) {
    return ::fchown(file, owner, group);
}

int FileCalls::fchmod(int file, mode_t mode) {
    return ::fchmod(file, mode);
}

int FileCalls::fsync(int file) {
    return ::fsync(file);
}

int FileCalls::close(int file) {
    return ::close(file);
}

int FileCalls::renameat(int folder, const char* from, const char* to) {
    return ::renameat(folder, from, folder, to);
}

int FileCalls::renameat2(int folder, const char* from, const char* to, unsigned flags) {
    return ::renameat2(folder, from, folder, to, flags);
}

int FileCalls::unlinkat(int folder, const char* name) {
    return ::unlinkat(folder, name, 0);
}

int FileCalls::flock(int file, int operation) {
    return ::flock(file, operation);
}

FileCalls& systemFileCalls() {
    static FileCalls calls;
    return calls;
}

} // namespace quorvi
