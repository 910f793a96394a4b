// Restores backups, for the verbs that read them from files and from the history.
#pragma once

#include <filesystem>

#include "history/Backup.h"
#include "tools/Outcome.h"

namespace quorvi::tools {

/// Keeps a dated copy, restores the backup into the settings file, and notifies the helper. Prints left-out
/// items of `source` on standard error. Creates a missing file.
[[nodiscard]] Outcome restoreBackup(
    const std::filesystem::path& settings, const Backup& backup, const std::filesystem::path& source);

/// Adds the backup's profile with its macros to the settings file, prints its new name, and notifies the
/// helper.
[[nodiscard]] Outcome importBackup(
    const std::filesystem::path& settings, const Backup& backup, const std::filesystem::path& source);

/// Writes the backup into the file.
[[nodiscard]] Outcome writeBackupTo(const Backup& backup, const std::filesystem::path& file);

} // namespace quorvi::tools
