#include "macros/StepText.h"

#include <algorithm>

#include "base/Pattern.h"
#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "macros/StepCodes.h"
#include "model/Keys.h"

namespace quorvi {

std::u16string keyNameOfStep(const plist::Dictionary& step) {
    const auto usage = static_cast<std::uint8_t>(step.integer(keys::argument));
    return shownKeyCombination(UsbToAdbKeycode(usage), 0);
}

int buttonOfStep(const plist::Dictionary& step) {
    const auto code = static_cast<std::uint32_t>(step.integer(keys::command));
    const auto* button = std::ranges::find(stepcodes::buttonsDown, code);
    return button == stepcodes::buttonsDown.end()
               ? 0
               : static_cast<int>(button - stepcodes::buttonsDown.begin()) + 1;
}

std::u16string stepText(const plist::Dictionary& step, const TextLookup& lookup) {
    if (!step)
        return {};
    const auto code = static_cast<std::uint32_t>(step.integer(keys::command));
    if (code == stepcodes::keyUp)
        return filledPattern(lookup(u"Release ^1"), {keyNameOfStep(step)});
    if (code == stepcodes::keyDown)
        return filledPattern(lookup(u"Press ^1"), {keyNameOfStep(step)});
    if (code == stepcodes::buttonsUp)
        return lookup(u"Release button");
    const int button = buttonOfStep(step);
    if (button == 0)
        return {};
    return filledPattern(
        lookup(u"Press button ^1"), {std::u16string(1, static_cast<char16_t>(u'0' + button))});
}

} // namespace quorvi
