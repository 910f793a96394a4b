// A file in the making, which takes another one's place when it is whole.
#pragma once

#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>

#include <sys/stat.h>

#include "base/FileCalls.h"

namespace quorvi {

/// The result of the call, which is made again for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call&& call) {
    while (true) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

/// Brings a file, or the names in a folder, to the disk. Some file systems cannot sync a folder and say so;
/// there is nothing more to be done on them.
[[nodiscard]] bool syncToDisk(FileCalls& calls, int file);

/// A folder that is held open, so that its files are found in it whatever becomes of its path.
class Folder {
  public:
    /// The working folder for an empty path.
    explicit Folder(const std::filesystem::path& path);
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    [[nodiscard]] int file() const { return m_file; }

  private:
    int m_file;
};

/// A new file in the folder that goes away unless it took another one's place. What fails sets errno.
class TemporaryFile {
  public:
    /// The folder and the calls have to outlive it.
    TemporaryFile(FileCalls& calls, const Folder& folder, mode_t mode);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    [[nodiscard]] const std::string& name() const { return m_name; }

    [[nodiscard]] bool write(std::string_view bytes);
    /// The owner as well where the system permits; the file stays the own user's where not.
    [[nodiscard]] bool takeOwnerAndMode(const struct stat& old);
    [[nodiscard]] bool takeMode(mode_t mode);
    [[nodiscard]] bool sync();
    /// Lets the disk begin with the file's data, without waiting for it.
    void beginSync() const;
    /// Some file systems report a failed write only here.
    [[nodiscard]] bool close();

    [[nodiscard]] bool takePlaceOf(const std::string& name);
    /// Takes the name if nobody has it, and goes away under it.
    [[nodiscard]] bool takeFreeName(const std::string& name);
    /// The same where the file system cannot say whether somebody has it.
    [[nodiscard]] bool takeName(const std::string& name);
    /// Each takes the other's name: it is the other one that goes away.
    [[nodiscard]] bool exchangeWith(const std::string& name);
    /// What is under its name stays.
    void letGo() { m_exists = false; }

  private:
    FileCalls& m_calls;
    int m_folder;
    std::string m_name;
    int m_file = -1;
    bool m_exists = false;
};

} // namespace quorvi
