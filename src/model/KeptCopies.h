// Copies of a settings file that somebody else has changed, made before it is replaced.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

#include "model/FileCalls.h"

namespace quorvi {

/// So many copies are kept of one file; a further one takes the place of the oldest.
inline constexpr std::size_t kMaxKeptCopies = 10;

/// Writes the bytes into a new file beside the file, for its owner alone, and brings it to the disk. It is
/// named for the file, with the number after the highest so far: "settings.plist" is kept as
/// "settings.kept-1.plist". Its path; nothing when it cannot be written.
[[nodiscard]] std::optional<std::filesystem::path> keepCopy(
    const std::filesystem::path& file, std::string_view bytes, FileCalls& calls = systemFileCalls());

/// The same for a file that cannot be read: it gets the copy's name as a second one, so that it outlives its
/// replacement. Nothing when that cannot be done, as for a link to another disk.
[[nodiscard]] std::optional<std::filesystem::path> keepUnread(
    const std::filesystem::path& file, FileCalls& calls = systemFileCalls());

} // namespace quorvi
