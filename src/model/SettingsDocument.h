// The panel's settings: where they are kept, and how they are loaded, repaired and saved.
#pragma once

#include <filesystem>

#include "base/AtomicFile.h"
#include "model/ConfigFile.h"
#include "plist/Value.h"

namespace quorvi {

/// The user's home folder: $HOME, else the password database's; empty if neither names one.
[[nodiscard]] std::filesystem::path homeFolder();

/// The user's settings file below the home folder; empty when the home folder is.
[[nodiscard]] std::filesystem::path userSettingsPath(const std::filesystem::path& home);

/// The tree of the defaults file, not validated, a fresh copy with every call; nil when there is none.
[[nodiscard]] plist::Dictionary getDefaultSettings(const std::filesystem::path& defaults);

/// The user's tree when it is valid, else the defaults; nil when neither is.
[[nodiscard]] plist::Dictionary loadSettings(
    const std::filesystem::path& userSettings, const std::filesystem::path& defaults);

/// Replaces button assignments to a missing macro, or to a number without a profile, with command 0 alone.
/// Profiles have no identifiers and assignments are not renumbered when profiles move; only numbers beyond
/// the count are cleared. Does nothing if the tree is nil; does not save.
void cleanUpSettings(const plist::Dictionary& tree);

/// The user's settings file for repeated loading and saving; the calls must outlive it.
[[nodiscard]] ConfigFile userSettingsFile(
    const std::filesystem::path& home, FileCalls& calls = systemFileCalls());
[[nodiscard]] plist::Dictionary loadSettings(ConfigFile& userSettings, const std::filesystem::path& defaults);
/// Whether another program has written other valid settings; see ConfigFile::holdsAnotherTree.
[[nodiscard]] bool othersChangedSettings(ConfigFile& userSettings);
/// Like saveSettings below; ConfigFile::save describes the rest.
[[nodiscard]] bool saveSettings(
    const plist::Dictionary& tree, ConfigFile& userSettings, Durability durability = Durability::now);

/// Stores the tree in the user's settings file; see KyvarSaveConfigToFile for the result. The two folders
/// above the file ("Library/Preferences") are created if missing, closed to other users, because no other
/// program creates them here, and synced.
[[nodiscard]] bool saveSettings(const plist::Dictionary& tree, const std::filesystem::path& userSettings,
    FileCalls& calls = systemFileCalls(), Durability durability = Durability::now);

} // namespace quorvi
