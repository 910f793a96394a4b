#include "base/AtomicFile.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/TemporaryFile.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;

/// The kernel's own limit.
constexpr int kLongestLinkChain = 40;
/// In a sticky folder that everybody may write to, another user's link may lead anywhere. The kernel does not
/// follow such links either, if so configured.
bool isTrap(const fs::path& link) {
    struct stat own = {};
    struct stat folder = {};
    const fs::path parent = link.has_parent_path() ? link.parent_path() : ".";
    if (::lstat(link.c_str(), &own) != 0 || ::stat(parent.c_str(), &folder) != 0)
        return false;
    constexpr mode_t everybodysFolder = S_ISVTX | S_IWOTH;
    return (folder.st_mode & everybodysFolder) == everybodysFolder && own.st_uid != ::geteuid() &&
           own.st_uid != folder.st_uid;
}

bool replaceInFolder(FileCalls& calls, const Folder& folder, const std::string& name, std::string_view bytes,
    Durability durability, ModeOfNew modeOfNew) {
    const bool now = durability == Durability::now;
    struct stat old = {};
    const bool isNew = ::fstatat(folder.file(), name.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0;
    if (isNew ? errno != ENOENT : !S_ISREG(old.st_mode))
        return false;
    // Closed to others until it has the old file's mode, which may be just as closed.
    TemporaryFile temporary(calls, folder, isNew ? modeOfNew.mode : 0600);
    const auto takeMode = [&] {
        return isNew ? !modeOfNew.whateverTheMask || temporary.takeMode(modeOfNew.mode)
                     : temporary.takeOwnerAndMode(old);
    };
    return temporary.isOpen() && temporary.write(bytes) && takeMode() && (!now || temporary.sync()) &&
           temporary.close() && temporary.takePlaceOf(name) && (!now || syncToDisk(calls, folder.file()));
}

} // namespace

std::optional<fs::path> followLinks(fs::path path) {
    for (int links = 0; links <= kLongestLinkChain; ++links) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        const bool trap = isTrap(path);
        const auto target = fs::read_symlink(path, error);
        if (trap || error) {
            errno = trap ? EACCES : error.value();
            return std::nullopt;
        }
        path = path.parent_path() / target; // an absolute target replaces the folder
    }
    errno = ELOOP;
    return std::nullopt;
}

bool replaceFileAtomically(const fs::path& path, std::string_view bytes, FileCalls& calls,
    Durability durability, ModeOfNew modeOfNew) {
    const auto target = followLinks(path);
    if (!target || !target->has_filename())
        return false;
    const Folder folder(target->parent_path());
    return folder.isOpen() &&
           replaceInFolder(calls, folder, target->filename().string(), bytes, durability, modeOfNew);
}

bool syncFolder(const fs::path& path, FileCalls& calls) {
    const Folder folder(path);
    return folder.isOpen() && syncToDisk(calls, folder.file());
}

bool syncFile(const fs::path& path, FileCalls& calls) {
    const auto target = followLinks(path);
    if (!target || !target->has_filename())
        return false;
    const Folder folder(target->parent_path());
    if (!folder.isOpen())
        return false;
    // Non-blocking: the file may have been replaced by a FIFO.
    const int file = uninterrupted([&] {
        return calls.openat(
            folder.file(), target->filename().c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC, 0);
    });
    struct stat status = {};
    const bool synced = file >= 0 && ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) &&
                        syncToDisk(calls, file) && syncToDisk(calls, folder.file());
    if (file >= 0)
        calls.close(file);
    return synced;
}

} // namespace quorvi
