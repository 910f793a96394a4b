// Keeps the user's settings before a verb changes them.
#pragma once

#include <filesystem>

#include "history/History.h"

namespace quorvi::tools {

/// The current user's copies.
[[nodiscard]] History userHistory();

/// Keeps the file's content as a dated copy if it is the current user's settings file; for firstChangeOfDay
/// only if the day has no copy yet. Prints an error on standard error, without failing.
void keepCopyBefore(const std::filesystem::path& settings, CopyReason reason);

} // namespace quorvi::tools
