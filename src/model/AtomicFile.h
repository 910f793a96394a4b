// Replacing a file as a whole: after a crash or a power failure there is the old content or the new one.
#pragma once

#include <filesystem>
#include <string_view>

#include "model/FileCalls.h"

namespace quorvi {

/// When a replaced file is brought to the disk. A file that is only renamed survives the death of the process
/// that wrote it, but perhaps not a power failure.
enum class Durability {
    now,   ///< before the replacement returns
    later, ///< with syncFile(), which whoever asks for this has to call
};

/// Writes the bytes into a temporary file beside the target, brings them to the disk, and lets the temporary
/// take the target's place. True when all of that succeeded; the old file is untouched by every failure
/// before the last step, which brings the folder to the disk, and no temporary file stays behind.
///
/// Symbolic links are followed, so that a settings file kept elsewhere stays there; a dangling link creates
/// its target. An old file's mode is kept, and its owner where the system permits; a new one has the mode
/// that the process's mask leaves of 0666. The folder must exist. Only a regular file is replaced: a folder,
/// a device or a FIFO at the path fails at once.
[[nodiscard]] bool replaceFileAtomically(const std::filesystem::path& path, std::string_view bytes,
    FileCalls& calls = systemFileCalls(), Durability durability = Durability::now);

/// Brings what was replaced with Durability::later to the disk: the file's data, and its name in the folder.
/// Symbolic links are followed. False when there is no regular file at the path, or it cannot be synced.
[[nodiscard]] bool syncFile(const std::filesystem::path& path, FileCalls& calls = systemFileCalls());

} // namespace quorvi
