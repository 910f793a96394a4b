#include "macros/StepText.h"

#include <algorithm>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "macros/StepCodes.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

std::u16string keyName(const plist::Dictionary& step) {
    const auto usage = static_cast<std::uint8_t>(step.integer(keys::argument));
    return shownKeyCombination(UsbToAdbKeycode(usage), 0);
}

} // namespace

std::u16string stepText(const plist::Dictionary& step, const TextLookup& lookup) {
    if (!step)
        return {};
    const auto code = static_cast<std::uint32_t>(step.integer(keys::command));
    if (code == stepcodes::keyUp)
        return lookup(u"Release") + u' ' + keyName(step);
    if (code == stepcodes::keyDown)
        return lookup(u"Press") + u' ' + keyName(step);
    if (code == stepcodes::buttonsUp)
        return lookup(u"Release button");
    const auto* button = std::ranges::find(stepcodes::buttonsDown, code);
    if (button == stepcodes::buttonsDown.end())
        return {};
    const auto number = static_cast<char16_t>(u'1' + (button - stepcodes::buttonsDown.begin()));
    return lookup(u"Press button") + u' ' + number;
}

} // namespace quorvi
