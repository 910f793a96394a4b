// Notifies the helper of settings changed without the panel.
#pragma once

#include <filesystem>

#include "plist/Value.h"

namespace quorvi::tools {

/// Whether it is the current user's settings file, also under another name, such as a link.
[[nodiscard]] bool isFileOfThisUser(const std::filesystem::path& file);

/// Call this after writing the tree to the file. If it is the current user's file, notifies the helper like
/// the panel, so that the mouse gets the settings; does nothing if no helper is running. Waits at most two
/// seconds for a bus that does not answer.
void tellHelperOfSave(const plist::Dictionary& tree, const std::filesystem::path& file);

} // namespace quorvi::tools
