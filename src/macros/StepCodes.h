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

/// Whether the code is a mouse button's.
[[nodiscard]] constexpr bool isButton(std::uint32_t code) {
    return code >= buttonsUp && code <= button5Down;
}

} // namespace quorvi::stepcodes

namespace quorvi {

/// The code of the release for a press, and of the press for a release (for buttons, of the left one). If
/// isDown is given, it receives whether the code is a press. A code that recordings do not write counts as a
/// press whose partner is the release of a key (0).
std::uint32_t matchingCommand(std::uint32_t code, bool* isDown);

/// The code that a table's mouse event is recorded as. The type is one that a table reports to its delegate
/// (1 to 4, 25 and 26). If the type does not name the button, the number does: 2 middle, 3 back, 4 forward.
/// std::nullopt for an event that is not recorded.
[[nodiscard]] std::optional<std::uint32_t> commandOfMouseEvent(std::int32_t type, std::int32_t buttonNumber);

} // namespace quorvi
