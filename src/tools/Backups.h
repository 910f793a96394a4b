// Backups of the settings, for the verbs that take them from files and from the history.
#pragma once

#include <filesystem>

#include "history/Backup.h"
#include "tools/Outcome.h"

namespace quorvi::tools {

/// Brings the settings file to the backup, having kept a dated copy of what was there, and tells the helper.
/// What was left out goes to standard error, as of that file. A file that is not there is made.
[[nodiscard]] Outcome restoreBackup(
    const std::filesystem::path& settings, const Backup& backup, const std::filesystem::path& source);

/// Adds the backup's profile with its macros to the settings file, prints the name that it got, and tells the
/// helper.
[[nodiscard]] Outcome importBackup(
    const std::filesystem::path& settings, const Backup& backup, const std::filesystem::path& source);

/// Writes the backup into the file.
[[nodiscard]] Outcome writeBackupTo(const Backup& backup, const std::filesystem::path& file);

} // namespace quorvi::tools
