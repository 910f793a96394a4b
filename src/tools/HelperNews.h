// What the helper is told of settings that were changed without the panel.
#pragma once

#include <filesystem>

#include "plist/Value.h"

namespace quorvi::tools {

/// Whether it is the settings file of the user who runs this, also by another name, through a link for
/// instance.
[[nodiscard]] bool isFileOfThisUser(const std::filesystem::path& file);

/// The tree was written to the file. When that is the file of the user who runs this, the helper is told as
/// the panel would tell it, so that the mouse gets the settings; nothing is said when no helper runs.
/// Waits two seconds at most, for a bus that does not answer.
void tellHelperOfSave(const plist::Dictionary& tree, const std::filesystem::path& file);

} // namespace quorvi::tools
