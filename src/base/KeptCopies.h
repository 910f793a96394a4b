// Copies of a settings file that nobody may lose: what others have set, and what could not be read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "base/FileCalls.h"

namespace quorvi {

/// So many copies are kept of one file; a further one takes the place of the oldest.
inline constexpr std::size_t kMaxKeptCopies = 10;

/// The name of the file's next copy: the number after the highest so far, "settings.kept-1.plist" for the
/// first one of "settings.plist". Where the highest number there is is taken, the one below. Nothing when the
/// folder cannot be read, with errno set.
[[nodiscard]] std::optional<std::string> nameOfNextCopy(const std::filesystem::path& file);

/// Removes the oldest copies of the file beyond kMaxKeptCopies, never the one of that name.
void removeOldestCopies(
    const std::filesystem::path& file, const std::string& newest, FileCalls& calls = systemFileCalls());

} // namespace quorvi
