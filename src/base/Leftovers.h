// What a process that was killed while it replaced a file has left beside it.
#pragma once

#include <filesystem>

#include "base/FileCalls.h"

namespace quorvi {

/// Removes the temporary files of replacements that were never finished from the folder in which the file is
/// (that of its target, when it is a symbolic link). One is removed when it is a regular file of the own user
/// under no second name, its maker is gone or it is a day old, and nobody holds it open for writing: whoever
/// writes one holds a lock on it that ends with the process, which also protects makers in other containers,
/// whose numbers mean nothing here. Symbolic links are not followed and other names are not touched. A day,
/// because numbers of processes are given out again, and no save takes that long.
void removeLeftovers(const std::filesystem::path& file, FileCalls& calls = systemFileCalls());

} // namespace quorvi
