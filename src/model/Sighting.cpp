#include "model/Sighting.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

#include "base/TemporaryFile.h"
#include "plist/Limits.h"

namespace quorvi {

namespace {

class OpenFile {
  public:
    // Non-blocking: opening a FIFO waits for a writer.
    OpenFile(int folder, const std::string& name)
        : m_file(uninterrupted([&] {
              return ::openat(
                  folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
          })) {}
    ~OpenFile() {
        if (m_file >= 0)
            ::close(m_file);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    [[nodiscard]] bool status(struct stat& result) const { return ::fstat(m_file, &result) == 0; }
    [[nodiscard]] ssize_t read(void* bytes, std::size_t count) const {
        return uninterrupted([&] { return ::read(m_file, bytes, count); });
    }

  private:
    int m_file;
};

/// 0, or the error for a file that is not regular.
int errorOf(const struct stat& status) {
    if (S_ISREG(status.st_mode))
        return 0;
    return S_ISDIR(status.st_mode) ? EISDIR : ENXIO;
}

/// Returns false if it cannot be read to its end.
bool readWhole(const OpenFile& file, plist::Data& bytes, std::size_t size) {
    bytes.resize(size);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = file.read(bytes.data() + done, size - done);
        if (count < 0)
            return false;
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return true;
}

bool isSameTime(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

/// Nothing is known of its bytes but how many there are, and when they were written.
bool isSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
           isSameTime(a.st_mtim, b.st_mtim);
}

} // namespace

Sighting Sighting::of(int folder, const std::string& name) {
    Sighting sighting;
    const OpenFile file(folder, name);
    const int openError = errno;
    if (file.isOpen() ? !file.status(sighting.status)
                      : ::fstatat(folder, name.c_str(), &sighting.status, AT_SYMLINK_NOFOLLOW) != 0) {
        sighting.error = errno == ENOENT ? 0 : errno;
        return sighting;
    }
    sighting.error = errorOf(sighting.status);
    if (sighting.error != 0)
        return sighting;
    if (!file.isOpen() && (openError == ENOENT || openError == EMFILE || openError == ENFILE)) {
        sighting.error = openError == ENOENT ? 0 : openError; // removed and recreated: the next look decides
        return sighting;
    }
    const auto size = static_cast<std::uint64_t>(sighting.status.st_size);
    const bool read =
        file.isOpen() && size <= plist::kMaxBytes && readWhole(file, sighting.found.bytes, size);
    sighting.found.kind = read ? Found::Kind::readable : Found::Kind::unreadable;
    return sighting;
}

bool Sighting::isProbablyAt(int folder, const std::string& name) const {
    struct stat now {};
    const bool isUntouched = found.kind == Found::Kind::readable &&
                             ::fstatat(folder, name.c_str(), &now, AT_SYMLINK_NOFOLLOW) == 0 &&
                             isSameFile(now, status) && isSameTime(now.st_ctim, status.st_ctim);
    return isUntouched || isAt(folder, name);
}

bool Sighting::isAt(int folder, const std::string& name) const {
    struct stat now {};
    if (found.kind != Found::Kind::readable) {
        const bool exists = ::fstatat(folder, name.c_str(), &now, AT_SYMLINK_NOFOLLOW) == 0;
        if (found.kind == Found::Kind::nothing)
            return !exists && errno == ENOENT;
        return exists && isSameFile(now, status);
    }
    const OpenFile file(folder, name);
    if (!file.isOpen() || !file.status(now) || !S_ISREG(now.st_mode) ||
        static_cast<std::size_t>(now.st_size) != found.bytes.size())
        return false;
    constexpr std::size_t piece = 16384;
    std::array<char, piece> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read()
    for (std::size_t done = 0; done < found.bytes.size();) {
        const ssize_t count = file.read(buffer.data(), std::min(piece, found.bytes.size() - done));
        if (count <= 0 ||
            std::memcmp(buffer.data(), found.bytes.data() + done, static_cast<std::size_t>(count)) != 0)
            return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

} // namespace quorvi
