// The keys of a backup besides the tree, and reading one without following links. Private to this library.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "history/Backup.h"
#include "plist/RegularFile.h"

namespace quorvi {

namespace backup_keys {

inline constexpr std::string_view format = "format";
inline constexpr std::int32_t writtenFormat = 1;
inline constexpr std::string_view contents = "contents";
inline constexpr const char16_t* everything = u"everything";
inline constexpr const char16_t* oneProfile = u"profile";

} // namespace backup_keys

/// Like readBackup of Backup.h.
[[nodiscard]] ReadBackup readBackup(const std::filesystem::path& path, plist::Links links);

} // namespace quorvi
