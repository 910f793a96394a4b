#include "plist/RegularFile.h"

#include <cerrno>
#include <optional>
#include <span>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvi::plist {

namespace {

class File {
  public:
    // Without O_NONBLOCK, opening a FIFO waits for a writer.
    File(const char* path, Links links)
        : m_descriptor(open(path,
              O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY | (links == Links::followed ? 0 : O_NOFOLLOW))) {}
    ~File() {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    /// The size; std::nullopt if the file is not a regular one.
    std::optional<std::uint64_t> size() const {
        struct stat status {};
        if (m_descriptor < 0 || fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode))
            return std::nullopt;
        return static_cast<std::uint64_t>(status.st_size);
    }

    /// Fills the bytes from the current position and returns how many there were; std::nullopt if reading
    /// fails.
    std::optional<std::size_t> read(std::span<std::uint8_t> bytes) const {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t count = ::read(m_descriptor, bytes.data() + done, bytes.size() - done);
            if (count < 0 && errno == EINTR)
                continue;
            if (count < 0)
                return std::nullopt;
            if (count == 0)
                break;
            done += static_cast<std::size_t>(count);
        }
        return done;
    }

  private:
    int m_descriptor;
};

} // namespace

FileStatus readRegularFile(const std::filesystem::path& path, std::uint64_t limit, Data& bytes, Links links) {
    const File file(path.c_str(), links);
    const auto size = file.size();
    if (!size)
        return FileStatus::NotReadable;
    if (*size > limit)
        return FileStatus::TooLarge;
    Data content(*size);
    const auto count = file.read(content);
    if (!count)
        return FileStatus::NotReadable;
    content.resize(*count);
    bytes = std::move(content);
    return FileStatus::Ok;
}

} // namespace quorvi::plist
