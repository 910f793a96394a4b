#include "model/AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "model/TemporaryName.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;

/// As many links as the kernel itself follows.
constexpr int longestLinkChain = 40;
constexpr int nameAttempts = 100;

/// The result of the call, which is made again for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call&& call) {
    while (true) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

/// Some file systems cannot sync a folder and say so; there is nothing more to be done on them.
bool syncToDisk(FileCalls& calls, int file) {
    return uninterrupted([&] { return calls.fsync(file); }) == 0 || errno == EINVAL;
}

class Folder {
  public:
    explicit Folder(const fs::path& path)
        : m_file(uninterrupted([&] {
              return ::open(path.empty() ? "." : path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
          })) {}
    ~Folder() {
        if (m_file >= 0)
            ::close(m_file);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    [[nodiscard]] int file() const { return m_file; }

  private:
    int m_file;
};

/// A new file in the folder that goes away unless it took another one's place.
class TemporaryFile {
  public:
    TemporaryFile(FileCalls& calls, const Folder& folder, mode_t mode)
        : m_calls(calls), m_folder(folder.file()) {
        static std::atomic<unsigned> counter = 0;
        for (int attempt = 0; attempt < nameAttempts; ++attempt) {
            m_name = temporaryName(::getpid(), counter++);
            m_file = uninterrupted([&] {
                return m_calls.openat(
                    m_folder, m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            });
            if (m_file >= 0 || errno != EEXIST)
                break;
        }
        m_exists = m_file >= 0;
        if (m_exists)
            ::flock(m_file, LOCK_EX | LOCK_NB); // says that it is in use (removeLeftovers); a death frees it
    }
    ~TemporaryFile() {
        if (m_file >= 0)
            m_calls.close(m_file);
        if (m_exists)
            uninterrupted([&] { return m_calls.unlinkat(m_folder, m_name.c_str()); });
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }

    [[nodiscard]] bool write(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto written =
                uninterrupted([&] { return m_calls.write(m_file, bytes.data(), bytes.size()); });
            if (written <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

    /// The owner first, because changing it may clear bits of the mode. Another owner is not always
    /// permitted; the save goes on under the own one.
    [[nodiscard]] bool takeOwnerAndMode(const struct stat& old) {
        struct stat own = {};
        if (::fstat(m_file, &own) != 0)
            return false;
        if (own.st_uid != old.st_uid || own.st_gid != old.st_gid)
            uninterrupted([&] { return m_calls.fchown(m_file, old.st_uid, old.st_gid); });
        return own.st_mode == old.st_mode ||
               uninterrupted([&] { return m_calls.fchmod(m_file, old.st_mode & 07777); }) == 0;
    }

    [[nodiscard]] bool sync() { return syncToDisk(m_calls, m_file); }

    /// Some file systems report a failed write only here. An interrupted close has closed the file: a second
    /// one could hit a file that another thread has opened since.
    [[nodiscard]] bool close() {
        const int file = m_file;
        m_file = -1;
        return m_calls.close(file) == 0 || errno == EINTR;
    }

    [[nodiscard]] bool takePlaceOf(const std::string& name) {
        if (uninterrupted([&] { return m_calls.renameat(m_folder, m_name.c_str(), name.c_str()); }) != 0)
            return false;
        m_exists = false;
        return true;
    }

  private:
    FileCalls& m_calls;
    int m_folder;
    std::string m_name;
    int m_file = -1;
    bool m_exists = false;
};

bool replaceInFolder(FileCalls& calls, const Folder& folder, const std::string& name, std::string_view bytes,
    Durability durability, mode_t modeOfNew) {
    const bool now = durability == Durability::now;
    struct stat old = {};
    const bool isNew = ::fstatat(folder.file(), name.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0;
    if (isNew ? errno != ENOENT : !S_ISREG(old.st_mode))
        return false;
    // Closed to others until it has the old file's mode, which may be just as closed.
    TemporaryFile temporary(calls, folder, isNew ? modeOfNew : 0600);
    return temporary.isOpen() && temporary.write(bytes) && (isNew || temporary.takeOwnerAndMode(old)) &&
           (!now || temporary.sync()) && temporary.close() && temporary.takePlaceOf(name) &&
           (!now || syncToDisk(calls, folder.file()));
}

} // namespace

std::optional<fs::path> followLinks(fs::path path) {
    for (int links = 0; links <= longestLinkChain; ++links) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        const auto target = fs::read_symlink(path, error);
        if (error)
            return std::nullopt;
        path = path.parent_path() / target; // an absolute target replaces the folder
    }
    return std::nullopt;
}

bool replaceFileAtomically(
    const fs::path& path, std::string_view bytes, FileCalls& calls, Durability durability, mode_t modeOfNew) {
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
    // Not blocking: somebody may have put a FIFO there meanwhile.
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
