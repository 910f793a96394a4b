#include "base/Leftovers.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/AtomicFile.h"
#include "base/TemporaryName.h"

namespace quorvi {

namespace {

constexpr std::time_t kLongestSave = 24 * 60 * 60; // seconds

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

bool isRunning(pid_t process) {
    return ::kill(process, 0) == 0 || errno != ESRCH;
}

/// Whether no process will finish the open file.
bool isAbandoned(int file, pid_t maker) {
    struct stat status = {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_nlink != 1 ||
        status.st_uid != ::geteuid())
        return false;
    if (isRunning(maker) && std::time(nullptr) - status.st_mtime < kLongestSave)
        return false;
    return ::flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void removeIfAbandoned(int folder, const char* name, pid_t maker, FileCalls& calls) {
    // Non-blocking: it may be a FIFO with such a name.
    const int file = ::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0)
        return;
    if (isAbandoned(file, maker))
        calls.unlinkat(folder, name);
    ::close(file);
}

} // namespace

void removeLeftovers(const std::filesystem::path& file, FileCalls& calls) {
    const auto target = followLinks(file);
    if (!target || target->empty())
        return;
    const auto path = target->has_parent_path() ? target->parent_path() : ".";
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(path.c_str()));
    if (!folder)
        return;
    while (const dirent* entry = ::readdir(folder.get())) {
        if (const auto maker = makerOfTemporaryName(static_cast<const char*>(entry->d_name)))
            removeIfAbandoned(::dirfd(folder.get()), static_cast<const char*>(entry->d_name), *maker, calls);
    }
}

} // namespace quorvi
