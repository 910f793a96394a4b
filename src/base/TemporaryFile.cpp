#include "base/TemporaryFile.h"

#include <atomic>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "base/TemporaryName.h"

namespace quorvi {

namespace {

constexpr int kNameAttempts = 100;

} // namespace

bool syncToDisk(FileCalls& calls, int file) {
    return uninterrupted([&] { return calls.fsync(file); }) == 0 || errno == EINVAL;
}

Folder::Folder(const std::filesystem::path& path)
    : m_file(uninterrupted(
          [&] { return ::open(path.empty() ? "." : path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); })) {}

Folder::~Folder() {
    if (m_file >= 0)
        ::close(m_file);
}

TemporaryFile::TemporaryFile(FileCalls& calls, const Folder& folder, mode_t mode)
    : m_calls(calls), m_folder(folder.file()) {
    static std::atomic<unsigned> counter = 0;
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        m_name = temporaryName(::getpid(), counter++);
        m_file = uninterrupted([&] {
            return m_calls.openat(m_folder, m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        });
        if (m_file >= 0 || errno != EEXIST)
            break;
    }
    m_exists = m_file >= 0;
    if (m_exists)
        ::flock(m_file, LOCK_EX | LOCK_NB); // marks it as in use (removeLeftovers); released when the process
                                            // dies
}

TemporaryFile::~TemporaryFile() {
    const int error = errno;
    if (m_file >= 0)
        m_calls.close(m_file);
    if (m_exists)
        uninterrupted([&] { return m_calls.unlinkat(m_folder, m_name.c_str()); });
    errno = error;
}

bool TemporaryFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        errno = ENOSPC; // the disk wrote no bytes and reported no error
        const auto written = uninterrupted([&] { return m_calls.write(m_file, bytes.data(), bytes.size()); });
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// The owner first, because changing it may clear bits of the mode. Another owner is not always permitted; the
// save then goes on under the current user.
bool TemporaryFile::takeOwnerAndMode(const struct stat& old) {
    struct stat own = {};
    if (::fstat(m_file, &own) != 0)
        return false;
    if (own.st_uid != old.st_uid || own.st_gid != old.st_gid)
        uninterrupted([&] { return m_calls.fchown(m_file, old.st_uid, old.st_gid); });
    return own.st_mode == old.st_mode ||
           uninterrupted([&] { return m_calls.fchmod(m_file, old.st_mode & 07777); }) == 0;
}

bool TemporaryFile::takeMode(mode_t mode) {
    struct stat own = {};
    return ::fstat(m_file, &own) == 0 && ((own.st_mode & 07777) == mode || uninterrupted([&] {
        return m_calls.fchmod(m_file, mode);
    }) == 0);
}

bool TemporaryFile::sync() {
    return syncToDisk(m_calls, m_file);
}

void TemporaryFile::beginSync() const {
    ::sync_file_range(m_file, 0, 0, SYNC_FILE_RANGE_WRITE);
}

// An interrupted close has closed the file: a second one could hit a file that another thread has opened
// since.
bool TemporaryFile::close() {
    const int file = m_file;
    m_file = -1;
    return m_calls.close(file) == 0 || errno == EINTR;
}

bool TemporaryFile::takePlaceOf(const std::string& name) {
    if (uninterrupted([&] { return m_calls.renameat(m_folder, m_name.c_str(), name.c_str()); }) != 0)
        return false;
    m_exists = false;
    return true;
}

bool TemporaryFile::takeFreeName(const std::string& name) {
    if (uninterrupted(
            [&] { return m_calls.renameat2(m_folder, m_name.c_str(), name.c_str(), RENAME_NOREPLACE); }) != 0)
        return false;
    m_name = name;
    return true;
}

bool TemporaryFile::takeName(const std::string& name) {
    if (uninterrupted([&] { return m_calls.renameat(m_folder, m_name.c_str(), name.c_str()); }) != 0)
        return false;
    m_name = name;
    return true;
}

bool TemporaryFile::exchangeWith(const std::string& name) {
    return uninterrupted([&] {
        return m_calls.renameat2(m_folder, m_name.c_str(), name.c_str(), RENAME_EXCHANGE);
    }) == 0;
}

} // namespace quorvi
