// This computer's desktop entries, for recognising applications.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace quorvi::front {

struct DesktopEntry {
    std::string id;          ///< desktop-file id, without ".desktop"
    std::string name;        ///< not translated
    std::string shownName;   ///< in the user's language
    std::string windowClass; ///< StartupWMClass
    std::string executable;  ///< the program that Exec starts, from execProgramName()
    std::string steamGame;   ///< the Steam game that it starts, if any
};

/// The folders of entries, highest priority first: XDG_DATA_HOME, XDG_DATA_DIRS, and those of flatpak and
/// snap, which a service's environment may lack.
[[nodiscard]] std::vector<std::filesystem::path> desktopEntryFolders();

/// Caches the entries. Added, removed and replaced entries are detected by their folder's time; entries
/// overwritten in place are not.
class DesktopEntries {
  public:
    explicit DesktopEntries(std::vector<std::filesystem::path> folders) : m_folders(std::move(folders)) {}

    /// Re-reads the entries if a folder has changed. About 20 ms for a thousand.
    void refresh();

    // These return null if there is none. Pointers are valid until the next refresh().

    /// With or without ".desktop". Case is ignored if there is no exact match.
    [[nodiscard]] const DesktopEntry* withId(std::string_view id) const;
    /// By StartupWMClass, else by an id that is the class, else by one that ends in "." and the class.
    [[nodiscard]] const DesktopEntry* withWindowClass(std::string_view windowClass) const;
    /// The entry that starts a program of this file name, if there is only one.
    [[nodiscard]] const DesktopEntry* withExecutable(std::string_view executable) const;
    [[nodiscard]] const DesktopEntry* withSteamGame(std::string_view number) const;

  private:
    struct Folder {
        std::filesystem::path path;
        std::filesystem::file_time_type changed;
        bool operator==(const Folder&) const = default;
    };

    void read();
    void readFolder(const std::filesystem::path& top, std::unordered_set<std::string>& ids,
        const std::vector<std::string>& locales);

    std::vector<std::filesystem::path> m_folders;
    std::vector<Folder> m_read; ///< with subfolders, as last read
    std::vector<DesktopEntry> m_entries;
};

} // namespace quorvi::front
