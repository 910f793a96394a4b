// Temporary files that a process left behind when it was killed while replacing a file.
#pragma once

#include <filesystem>

#include "base/FileCalls.h"

namespace quorvi {

/// Removes the temporary files of replacements that were never finished from the file's folder (its target's,
/// for a symbolic link). A temporary file is removed if it is a regular file owned by the current user, with
/// no other hard link, its maker is gone or it is a day old, and nobody holds its lock. Writers lock their
/// file until they end, which also protects makers in other containers, whose process numbers mean nothing
/// here. Symbolic links are not followed and other names are not touched. A day, because process numbers are
/// reused, and no save takes that long.
void removeLeftovers(const std::filesystem::path& file, FileCalls& calls = systemFileCalls());

} // namespace quorvi
