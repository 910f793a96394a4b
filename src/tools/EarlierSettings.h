// What is kept of the user's settings before a verb changes them.
#pragma once

#include <filesystem>

#include "history/History.h"

namespace quorvi::tools {

/// The copies of the user who runs this.
[[nodiscard]] History userHistory();

/// Keeps what the file holds as a dated copy, when it is the settings file of the user who runs this: by the
/// reason firstChangeOfDay only when the day has no copy yet. What keeps it from that goes to standard error
/// and is in nobody's way.
void keepCopyBefore(const std::filesystem::path& settings, CopyReason reason);

} // namespace quorvi::tools
