#include "loginitems/Files.h"

#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

namespace quorvi {

namespace fs = std::filesystem;

Status statusOfErrno(int error) {
    switch (error) {
    case 0:
        return noErr;
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
        return fnfErr;
    case EACCES:
    case EPERM:
    case EROFS:
        return permErr;
    case ENOSPC:
    case EDQUOT:
        return dskFulErr;
    case ENAMETOOLONG:
        return bdNamErr;
    default:
        return ioErr;
    }
}

Status ensureFile(const std::string& path, FileCalls& calls) {
    struct stat found = {};
    if (::stat(path.c_str(), &found) == 0)
        return noErr;
    if (errno != ENOENT)
        return fnfErr;
    const int file = calls.openat(AT_FDCWD, path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return statusOfErrno(errno);
    return calls.close(file) == 0 ? noErr : statusOfErrno(errno);
}

Status makeFolder(const std::string& path) {
    if (::mkdir(path.c_str(), S_IRWXU) == 0)
        return noErr;
    std::error_code error;
    if (errno == EEXIST && fs::is_directory(path, error))
        return noErr;
    const std::string parent = fs::path(path).parent_path();
    if (errno != ENOENT || parent.empty() || parent == path)
        return statusOfErrno(errno);
    if (const Status status = makeFolder(parent); status != noErr)
        return status;
    return ::mkdir(path.c_str(), S_IRWXU) == 0 ? noErr : statusOfErrno(errno);
}

Status removeFile(const std::string& path, FileCalls& calls) {
    return calls.unlinkat(AT_FDCWD, path.c_str()) == 0 ? noErr : statusOfErrno(errno);
}

} // namespace quorvi
