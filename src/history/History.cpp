#include "history/History.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

#include "base/AtomicFile.h"
#include "base/Leftovers.h"
#include "base/TemporaryFile.h"
#include "history/BackupKeys.h"
#include "history/CopyName.h"
#include "history/Retention.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kOwnersFolder = 0700;
constexpr mode_t kOwnersFile = 0600;
/// Another program may have taken each name that is tried.
constexpr int kNameAttempts = 100;

/// Creates and syncs the folder and missing ones above it. Returns 0 or an errno.
int makeFolder(const fs::path& folder, FileCalls& calls) {
    struct stat status {};
    if (folder.empty() || ::stat(folder.c_str(), &status) == 0)
        return 0;
    if (const int error = makeFolder(folder.parent_path(), calls))
        return error;
    const bool made = ::mkdir(folder.c_str(), kOwnersFolder) == 0;
    return (made ? syncFolder(folder.parent_path(), calls) : errno == EEXIST) ? 0 : errno;
}

/// The copies, newest first, with their sizes. Skips files that cannot be inspected.
std::vector<SizedCopy> copiesIn(const fs::path& folder) {
    std::vector<SizedCopy> copies;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        auto copy = copyOfName(entry->path().filename().string());
        struct stat status {};
        if (copy && ::lstat(entry->path().c_str(), &status) == 0 && S_ISREG(status.st_mode))
            copies.push_back({*std::move(copy), static_cast<std::uint64_t>(status.st_size)});
    }
    std::sort(copies.begin(), copies.end(),
        [](const SizedCopy& a, const SizedCopy& b) { return a.copy.name > b.copy.name; });
    return copies;
}

/// Gives the file the name unless it is taken.
bool takeName(TemporaryFile& file, const Folder& folder, const std::string& name) {
    if (file.takeFreeName(name))
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // For file systems that cannot check whether a name is free.
    struct stat status {};
    if (::fstatat(folder.file(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return false;
    }
    return errno == ENOENT && file.takeName(name);
}

/// The copy for that time, moved after those of the same second, so that names sort in order of creation.
DatedCopy behindOthers(DatedCopy copy, const std::vector<SizedCopy>& newestFirst) {
    const auto other = std::find_if(newestFirst.begin(), newestFirst.end(),
        [&](const SizedCopy& sized) { return sized.copy.time < copy.time + std::chrono::seconds(1); });
    if (other == newestFirst.end() || other->copy.time < copy.time)
        return copy;
    return datedCopy(other->copy.time + std::chrono::milliseconds(1), copy.reason);
}

/// Writes and syncs the bytes under the copy's name, or a later free one. Returns std::nullopt and sets errno
/// on failure.
std::optional<DatedCopy> write(
    DatedCopy copy, std::string_view bytes, const Folder& folder, FileCalls& calls) {
    TemporaryFile file(calls, folder, kOwnersFile);
    if (!file.isOpen() || !file.write(bytes) || !file.takeMode(kOwnersFile) || !file.sync() || !file.close())
        return std::nullopt;
    bool named = takeName(file, folder, copy.name);
    for (int attempt = 1; !named && errno == EEXIST && attempt < kNameAttempts; ++attempt) {
        copy = datedCopy(copy.time + std::chrono::milliseconds(1), copy.reason);
        named = takeName(file, folder, copy.name);
    }
    if (!named)
        return std::nullopt;
    file.letGo();
    return syncToDisk(calls, folder.file()) ? std::optional(copy) : std::nullopt;
}

} // namespace

fs::path historyFolder(const fs::path& home) {
    constexpr auto ownFolder = "kyvar-quorvi/history";
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state && *state == '/')
        return fs::path(state) / ownFolder;
    return home.empty() ? fs::path() : home / ".local/state" / ownFolder;
}

bool History::isDue(SystemTime now) {
    // Days begin with a minute, in every time zone.
    const auto minute = std::chrono::floor<std::chrono::minutes>(now);
    if (m_folder.empty() || m_minuteWithCopy == minute)
        return false;
    const auto today = localDay(now);
    if (m_dayWithCopy == today) {
        m_minuteWithCopy = minute;
        return false;
    }
    const auto copies = list();
    const bool hasOne = std::any_of(
        copies.begin(), copies.end(), [&](const DatedCopy& copy) { return localDay(copy.time) == today; });
    if (hasOne)
        m_dayWithCopy = today;
    return !hasOne;
}

int History::keep(const plist::Dictionary& tree, CopyReason reason, SystemTime now) {
    if (m_folder.empty())
        return ENOENT;
    const Backup backup = backupOf(tree);
    if (!backup)
        return EINVAL;
    const auto bytes = backupBytes(backup);
    if (!bytes)
        return EFBIG;
    if (const int error = makeFolder(m_folder, m_calls))
        return error;
    removeLeftovers(m_folder / "any", m_calls);
    const Folder folder(m_folder);
    if (!folder.isOpen())
        return errno;
    const auto copy =
        write(behindOthers(datedCopy(now, reason), copiesIn(m_folder)), *bytes, folder, m_calls);
    if (!copy)
        return errno;
    m_dayWithCopy = localDay(now);
    for (const std::string& name : copiesToRemove(copiesIn(m_folder), copy->name, now))
        m_calls.unlinkat(folder.file(), name.c_str());
    return 0;
}

std::vector<DatedCopy> History::list() const {
    std::vector<DatedCopy> result;
    if (m_folder.empty())
        return result;
    for (SizedCopy& sized : copiesIn(m_folder))
        result.push_back(std::move(sized.copy));
    return result;
}

ReadBackup History::read(const DatedCopy& copy) const {
    if (m_folder.empty() || !copyOfName(copy.name))
        return {{}, BackupFault::noSuchFile};
    return readBackup(m_folder / copy.name, plist::Links::notReadable);
}

} // namespace quorvi
