// Differences of settings on the command line.
#pragma once

#include <string>
#include <vector>

#include "history/Phrase.h"

namespace quorvi::tools {

/// Makes differencesBetween() (history/Differences.h) name keys in the present keyboard layout: the display
/// server's, else the machine's configured one.
void nameKeysOfEnvironment();

/// Each difference in English, on one line.
[[nodiscard]] std::vector<std::string> linesOf(const std::vector<Phrase>& differences);

} // namespace quorvi::tools
