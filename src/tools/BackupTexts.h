// Backups in words.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "history/Backup.h"
#include "history/History.h"

namespace quorvi::tools {

/// Why a backup cannot be read; empty for no fault.
[[nodiscard]] std::string text(BackupFault fault);

/// Describes the left-out item and the reason.
[[nodiscard]] std::string text(const LeftOut& leftOut);

/// Describes the occasion of the copy.
[[nodiscard]] std::string text(CopyReason reason);

/// Prints the left-out items on standard error, one a line.
void tellLeftOut(const std::filesystem::path& file, const std::vector<LeftOut>& leftOut);

} // namespace quorvi::tools
