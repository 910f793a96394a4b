// The desktop entries of this computer, to know applications by.
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
    std::string name;        ///< without regard to the user's language
    std::string shownName;   ///< in the user's language
    std::string windowClass; ///< StartupWMClass
    std::string executable;  ///< the program that its Exec starts, as execProgramName() says
    std::string steamGame;   ///< the game's number when it starts one of Steam's
};

/// The folders that entries are in, those that count more first: XDG_DATA_HOME, XDG_DATA_DIRS, and those of
/// flatpak and snap, which a service's environment may not name.
[[nodiscard]] std::vector<std::filesystem::path> desktopEntryFolders();

/// What is read is kept. An entry that is added, taken away or replaced is seen by its folder's time; one
/// that is written over in its place is not.
class DesktopEntries {
  public:
    explicit DesktopEntries(std::vector<std::filesystem::path> folders) : m_folders(std::move(folders)) {}

    /// Reads the entries, unless no folder has changed since. About 20 ms for a thousand.
    void refresh();

    // Null when there is none. Pointers are good until the next refresh().

    /// With or without ".desktop", and in any case of its letters when there is none with these.
    [[nodiscard]] const DesktopEntry* withId(std::string_view id) const;
    /// By StartupWMClass, else by an id that is the class, else by one that ends in "." and the class.
    [[nodiscard]] const DesktopEntry* withWindowClass(std::string_view windowClass) const;
    /// The only one that starts a program of this file name.
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
    std::vector<Folder> m_read; ///< with their subfolders, as they were when they were read
    std::vector<DesktopEntry> m_entries;
};

} // namespace quorvi::front
