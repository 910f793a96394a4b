#include "tools/DifferenceLines.h"

#include <algorithm>

#include "base/Unicode.h"
#include "keyboard/KeyNames.h"
#include "layouts/LiveKeyboardLayout.h"
#include "tools/Input.h"

namespace quorvi::tools {

void nameKeysOfEnvironment() {
    SetCurrentKeyboardLayout(keyboardLayoutOfEnvironment()->layout());
    // Without a layout, keys with fixed names still have them.
    GetKeyboardInformation(nullptr);
}

std::vector<std::string> linesOf(const std::vector<Phrase>& differences) {
    std::vector<std::string> lines;
    std::transform(differences.begin(), differences.end(), std::back_inserter(lines),
        [](const Phrase& difference) { return oneLine(toUtf8(inWords(difference, englishWording()))); });
    return lines;
}

} // namespace quorvi::tools
