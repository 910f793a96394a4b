// The codes of macro steps: what a key or a mouse button does in one step.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace quorvi::stepcodes {

inline constexpr std::uint32_t keyUp = 0;         ///< argument: USB usage of the key
inline constexpr std::uint32_t keyDown = 1;       ///< argument: USB usage of the key
inline constexpr std::uint32_t buttonsUp = 0x80;  ///< whichever mouse button it is
inline constexpr std::uint32_t button1Down = 129; ///< buttonsUp and one bit of the button: left
inline constexpr std::uint32_t button2Down = 130; ///< right
inline constexpr std::uint32_t button3Down = 132; ///< middle
inline constexpr std::uint32_t button4Down = 136; ///< back
inline constexpr std::uint32_t button5Down = 144; ///< forward

/// The codes of button presses, in the order of the buttons, which count from 1.
inline constexpr std::array buttonsDown{button1Down, button2Down, button3Down, button4Down, button5Down};

/// A code is a mouse button's.
[[nodiscard]] constexpr bool isButton(std::uint32_t code) {
    return code >= buttonsUp && code <= button5Down;
}

} // namespace quorvi::stepcodes

namespace quorvi {

/// What ends the movement that a step begins, or began the one that it ends: the code of the release for a
/// press, and of the press for a release, which for buttons is the left one's. isDown, when given, becomes
/// whether the code is a press. Any code that recordings do not write counts as a press, with the release of
/// a key (0) as its partner.
std::uint32_t matchingCommand(std::uint32_t code, bool* isDown);

/// The step that a mouse event of a table is recorded as. The type is one of those that a table tells its
/// delegate of (1 to 4, 25 and 26); the number is the button's where the type does not say which it is: 2
/// middle, 3 back, 4 forward. Nothing for an event that is not recorded.
[[nodiscard]] std::optional<std::uint32_t> commandOfMouseEvent(std::int32_t type, std::int32_t buttonNumber);

} // namespace quorvi
