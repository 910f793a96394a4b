// Copies of a settings file that must not be lost: other programs' settings, and unreadable files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "base/FileCalls.h"

namespace quorvi {

/// The number of copies kept of one file; a further one replaces the oldest.
inline constexpr std::size_t kMaxKeptCopies = 10;

/// The name of the file's next copy: the number after the highest so far, "settings.kept-1.plist" for the
/// first one of "settings.plist". If the highest possible number is taken, the next lower free one. Returns
/// std::nullopt and sets errno if the folder cannot be read.
[[nodiscard]] std::optional<std::string> nameOfNextCopy(const std::filesystem::path& file);

/// Removes the oldest copies of the file beyond kMaxKeptCopies, but never `newest`.
void removeOldestCopies(
    const std::filesystem::path& file, const std::string& newest, FileCalls& calls = systemFileCalls());

} // namespace quorvi
