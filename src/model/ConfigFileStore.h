// Property-list files that hold a configuration tree under one top-level key. Functions here neither show nor
// log anything.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "base/AtomicFile.h"
#include "plist/Value.h"

namespace quorvi {

/// The tree under the key of the first file that holds a valid one (see KyvarValidateConfig), freshly read;
/// nil if neither does, or the key is empty. Skips an empty path and a file that does not exist, cannot be
/// read, does not parse or lacks the key.
[[nodiscard]] plist::Dictionary KyvarLoadConfigFromFile(std::string_view key, std::int32_t minimumVersion,
    const std::filesystem::path& first, const std::filesystem::path& second);

/// Stores the tree under the key and keeps the file's other keys, which belong to other programs. A file that
/// is not a readable property list with a dictionary at its top is replaced by one that holds only the key.
///
/// Returns false, and leaves the old file unchanged, if the key, the tree or the path is missing (empty,
/// nil), if a property list cannot hold the tree, or if the file cannot be replaced (see
/// replaceFileAtomically).
[[nodiscard]] bool KyvarSaveConfigToFile(std::string_view key, const plist::Dictionary& tree,
    const std::filesystem::path& path, FileCalls& calls = systemFileCalls(),
    Durability durability = Durability::now);

/// Whether "version" is at least the minimum and "settings", "profiles" and "macros" are present, whatever
/// their types. A missing version counts as 0; a missing (nil) tree is not valid.
[[nodiscard]] bool KyvarValidateConfig(const plist::Dictionary& tree, std::int32_t minimumVersion);

/// Whether "ledstate", "defaultstage", "stages" and "buttons" are present, whatever their types. For imported
/// profiles; they need neither a name nor a driver dictionary.
[[nodiscard]] bool KyvarValidateProfile(const plist::Dictionary& profile);

/// The dictionary under the key of the file, not validated; nil if missing.
[[nodiscard]] plist::Dictionary storedTree(std::string_view key, const std::filesystem::path& path);

} // namespace quorvi
