// Replacing a file as a whole: after a crash or a power failure the file has either the old content or the
// new one.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "base/FileCalls.h"

namespace quorvi {

/// When a replaced file is synced. A renamed but unsynced file survives the death of the process that wrote
/// it, but perhaps not a power failure.
enum class Durability {
    now,   ///< before the replacement returns
    later, ///< with syncFile(), which the caller must call
};

/// The mode of a newly created file.
struct ModeOfNew {
    mode_t mode = 0666;
    bool whateverTheMask = false; ///< true: the process's umask is not applied
};

/// Writes the bytes into a temporary file next to the target, syncs it and renames it over the target.
/// Returns true if all of that succeeded. A failure before the last step, which syncs the folder, leaves the
/// old file untouched; no temporary file stays behind.
///
/// Symbolic links are followed (see followLinks), so that a settings file kept elsewhere stays there; a
/// dangling link creates its target. The old file's mode is kept, and its owner if the system permits. The
/// folder must exist. Only a regular file is replaced: a folder, a device or a FIFO at the path fails at
/// once. Interrupted system calls are retried.
///
/// A process that is killed halfway leaves its temporary file; see removeLeftovers.
[[nodiscard]] bool replaceFileAtomically(const std::filesystem::path& path, std::string_view bytes,
    FileCalls& calls = systemFileCalls(), Durability durability = Durability::now, ModeOfNew modeOfNew = {});

/// Syncs a file that was replaced with Durability::later: its data, and its name in the folder. Symbolic
/// links are followed. Returns false if the path is not a regular file or cannot be synced.
[[nodiscard]] bool syncFile(const std::filesystem::path& path, FileCalls& calls = systemFileCalls());

/// Syncs the names in the folder. Returns false if it cannot be opened or synced.
[[nodiscard]] bool syncFolder(const std::filesystem::path& path, FileCalls& calls = systemFileCalls());

/// Resolves symbolic links in the path's last component: the result is the file that a replacement would
/// replace. Returns std::nullopt and sets errno for a loop (ELOOP), and for another user's link in a folder
/// that everybody may write to (EACCES).
[[nodiscard]] std::optional<std::filesystem::path> followLinks(std::filesystem::path path);

} // namespace quorvi
