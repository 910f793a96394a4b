// Requirements for every settings file.
#pragma once

#include "plist/Value.h"

namespace quorvi::fuzz {

/// Loads the file whose bytes hold the modest dictionary, repairs its tree (or a small one, when it has none
/// that is valid) and saves it over the file: what was saved must load, and the file's other keys must still
/// be there.
void requireSettingsFile(const std::string& path, const plist::Dictionary& top);

} // namespace quorvi::fuzz
