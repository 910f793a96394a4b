#include "macros/StepCodes.h"

#include <algorithm>

namespace quorvi {

namespace {

// The types of mouse events, as tables number them.
constexpr std::int32_t kLeftDown = 1;
constexpr std::int32_t kLeftUp = 2;
constexpr std::int32_t kRightDown = 3;
constexpr std::int32_t kRightUp = 4;
constexpr std::int32_t kOtherDown = 25;
constexpr std::int32_t kOtherUp = 26;

std::optional<std::uint32_t> commandOfOtherButton(std::int32_t number) {
    constexpr std::int32_t kMiddle = 2;
    constexpr std::int32_t kBack = 3;
    constexpr std::int32_t kForward = 4;
    switch (number) {
    case kMiddle:
        return stepcodes::button3Down;
    case kBack:
        return stepcodes::button4Down;
    case kForward:
        return stepcodes::button5Down;
    default:
        return std::nullopt;
    }
}

} // namespace

std::uint32_t matchingCommand(std::uint32_t code, bool* isDown) {
    const bool released = code == stepcodes::keyUp || code == stepcodes::buttonsUp;
    if (isDown)
        *isDown = !released;
    if (code == stepcodes::keyUp)
        return stepcodes::keyDown;
    if (code == stepcodes::buttonsUp)
        return stepcodes::button1Down;
    const bool isButtonPress =
        std::ranges::find(stepcodes::buttonsDown, code) != stepcodes::buttonsDown.end();
    return isButtonPress ? stepcodes::buttonsUp : stepcodes::keyUp;
}

std::optional<std::uint32_t> commandOfMouseEvent(std::int32_t type, std::int32_t buttonNumber) {
    switch (type) {
    case kLeftDown:
        return stepcodes::button1Down;
    case kRightDown:
        return stepcodes::button2Down;
    case kOtherDown:
        return commandOfOtherButton(buttonNumber);
    case kLeftUp:
    case kRightUp:
    case kOtherUp:
        return stepcodes::buttonsUp;
    default:
        return std::nullopt;
    }
}

} // namespace quorvi
