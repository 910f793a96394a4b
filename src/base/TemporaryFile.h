// A file being written, which replaces another one when it is complete.
#pragma once

#include <cerrno>
#include <filesystem>
#include <string>
#include <string_view>

#include <sys/stat.h>

#include "base/FileCalls.h"

namespace quorvi {

/// Retries the call while a signal interrupts it, and returns its result.
template <typename Call>
auto uninterrupted(Call&& call) {
    while (true) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

/// Syncs a file, or the names in a folder. Counts as done on file systems that cannot sync a folder.
[[nodiscard]] bool syncToDisk(FileCalls& calls, int file);

/// A folder held open, so that its files are found even if its path changes.
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

/// A new file in the folder, removed again unless it has replaced another one. Failing functions set errno.
class TemporaryFile {
  public:
    /// The folder and the calls must outlive it.
    TemporaryFile(FileCalls& calls, const Folder& folder, mode_t mode);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    [[nodiscard]] const std::string& name() const { return m_name; }

    [[nodiscard]] bool write(std::string_view bytes);
    /// Takes the owner too if the system permits; otherwise the file still belongs to the current user.
    [[nodiscard]] bool takeOwnerAndMode(const struct stat& old);
    [[nodiscard]] bool takeMode(mode_t mode);
    [[nodiscard]] bool sync();
    /// Starts writing the file's data to the disk without waiting.
    void beginSync() const;
    /// Some file systems report a failed write only here.
    [[nodiscard]] bool close();

    [[nodiscard]] bool takePlaceOf(const std::string& name);
    /// Takes the name if it is free; the temporary file is then removed under that name.
    [[nodiscard]] bool takeFreeName(const std::string& name);
    /// The same for file systems that cannot check whether the name is free.
    [[nodiscard]] bool takeName(const std::string& name);
    /// The two exchange names, so the other file is the one that is removed.
    [[nodiscard]] bool exchangeWith(const std::string& name);
    /// The file is no longer removed.
    void letGo() { m_exists = false; }

  private:
    FileCalls& m_calls;
    int m_folder;
    std::string m_name;
    int m_file = -1;
    bool m_exists = false;
};

} // namespace quorvi
