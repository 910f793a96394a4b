// Backups in words.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "history/Backup.h"
#include "history/History.h"

namespace quorvi::tools {

/// Why a file gives no backup; empty for none.
[[nodiscard]] std::string text(BackupFault fault);

/// What is not in the settings, and why.
[[nodiscard]] std::string text(const LeftOut& leftOut);

/// What the copy was made before.
[[nodiscard]] std::string text(CopyReason reason);

/// Says on standard error what of the file was left out, one thing a line.
void tellLeftOut(const std::filesystem::path& file, const std::vector<LeftOut>& leftOut);

} // namespace quorvi::tools
