// Property-list files that hold a configuration tree under one top-level key. Nothing here shows or logs
// anything.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "base/AtomicFile.h"
#include "plist/Value.h"

namespace quorvi {

/// The tree under the key of the first file that holds a valid one (see KyvarValidateConfig), freshly read;
/// nil when neither does, or the key is empty. A file that does not exist, cannot be read, does not parse or
/// lacks the key is passed over, and so is an empty path.
[[nodiscard]] plist::Dictionary KyvarLoadConfigFromFile(std::string_view key, std::int32_t minimumVersion,
    const std::filesystem::path& first, const std::filesystem::path& second);

/// Stores the tree under the key and keeps the file's other keys, which belong to others. A file that cannot
/// be read as a property list with a dictionary at its top is replaced by one that holds the key alone.
///
/// False when the key, the tree or the path is missing (empty, nil), when the tree holds what a property list
/// cannot, and when the file cannot be replaced (see replaceFileAtomically); the old file is then as it was.
[[nodiscard]] bool KyvarSaveConfigToFile(std::string_view key, const plist::Dictionary& tree,
    const std::filesystem::path& path, FileCalls& calls = systemFileCalls(),
    Durability durability = Durability::now);

/// Whether "version" is at least the minimum and "settings", "profiles" and "macros" are present, whatever
/// their types. A missing version counts as 0; a missing (nil) tree is not valid.
[[nodiscard]] bool KyvarValidateConfig(const plist::Dictionary& tree, std::int32_t minimumVersion);

/// Whether "ledstate", "defaultstage", "stages" and "buttons" are present, whatever their types. For profiles
/// that come from elsewhere; a name and a driver dictionary are not required of them.
[[nodiscard]] bool KyvarValidateProfile(const plist::Dictionary& profile);

/// The dictionary under the key of the file, not validated; nil when there is none.
[[nodiscard]] plist::Dictionary storedTree(std::string_view key, const std::filesystem::path& path);

} // namespace quorvi
