// Differences of settings on the command line.
#pragma once

#include <string>
#include <vector>

#include "history/Phrase.h"

namespace quorvi::tools {

/// Has differencesBetween() (history/Differences.h) name keys by the keyboard layout in use: of the display
/// server, else as this machine is configured.
void nameKeysOfEnvironment();

/// Each difference in English, on one line.
[[nodiscard]] std::vector<std::string> linesOf(const std::vector<Phrase>& differences);

} // namespace quorvi::tools
