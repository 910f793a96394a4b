// Replacing a file as a whole: after a crash or a power failure there is the old content or the new one.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "base/FileCalls.h"

namespace quorvi {

/// When a replaced file is brought to the disk. A file that is only renamed survives the death of the process
/// that wrote it, but perhaps not a power failure.
enum class Durability {
    now,   ///< before the replacement returns
    later, ///< with syncFile(), which whoever asks for this has to call
};

/// The mode of a file that was not there before.
struct ModeOfNew {
    mode_t mode = 0666;
    bool whateverTheMask = false; ///< else the process's mask takes bits away
};

/// Writes the bytes into a temporary file beside the target, brings them to the disk, and lets the temporary
/// take the target's place. True when all of that succeeded; the old file is untouched by every failure
/// before the last step, which brings the folder to the disk, and no temporary file stays behind.
///
/// Symbolic links are followed (see followLinks), so that a settings file kept elsewhere stays there; a
/// dangling link creates its target. An old file's mode is kept, and its owner where the system permits. The
/// folder must exist. Only a regular file is replaced: a folder,
/// a device or a FIFO at the path fails at once. Calls that a signal interrupts are made again.
///
/// A process that is killed on the way leaves its temporary file; see removeLeftovers.
[[nodiscard]] bool replaceFileAtomically(const std::filesystem::path& path, std::string_view bytes,
    FileCalls& calls = systemFileCalls(), Durability durability = Durability::now, ModeOfNew modeOfNew = {});

/// Brings what was replaced with Durability::later to the disk: the file's data, and its name in the folder.
/// Symbolic links are followed. False when there is no regular file at the path, or it cannot be synced.
[[nodiscard]] bool syncFile(const std::filesystem::path& path, FileCalls& calls = systemFileCalls());

/// Brings the names in the folder to the disk. False when it cannot be opened or synced.
[[nodiscard]] bool syncFolder(const std::filesystem::path& path, FileCalls& calls = systemFileCalls());

/// The path without symbolic links in its last component, so the file that a replacement would replace.
/// Nothing, with errno set, for a loop (ELOOP), and for a link that another user has put into a folder where
/// everybody may put files (EACCES).
[[nodiscard]] std::optional<std::filesystem::path> followLinks(std::filesystem::path path);

} // namespace quorvi
