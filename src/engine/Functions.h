// The functions that an input can have, and what each does: one row a function. Their codes, titles and
// groups are in model/Commands.h.
#pragma once

#include <cstdint>
#include <span>

#include "model/ConfigRecord.h"

namespace quorvi::engine {

enum class Act : std::uint8_t {
    Nothing,
    Keys,            ///< the key with its modifiers, down as long as the input is
    Letter,          ///< the key that types the letter, with its modifiers
    SingleKey,       ///< the key and the modifiers of the assignment's parameters
    DoubleClick,     ///< two clicks of the key
    Scroll,          ///< a notch, and more as long as the input is down
    StageUp,         ///< the next stage of the list; the last stays
    StageDown,       ///< the stage before; the first stays
    NextStage,       ///< the next stage of the list, behind the last the first
    LowestStage,     ///< the stage with the lowest sensitivity, as long as the input is down
    RunMacro,        ///< the macro in the first parameter
    SwitchToProfile, ///< the profile in the first parameter, by its number
    NextProfile,     ///< the next one in use, behind the last the first
    PreviousProfile, ///< the one in use before, in front of the first the last
};

/// A direction of a wheel: the code of its axis (REL_WHEEL, REL_HWHEEL) and the sign of a notch.
struct ScrollDirection {
    std::uint16_t axis = 0;
    std::int8_t sign = 0;
};

struct Function {
    std::uint8_t code = 0;
    Act act = Act::Nothing;
    std::uint16_t key = 0;      ///< EV_KEY code of Keys and DoubleClick
    char letter = 0;            ///< a to z, of Letter
    std::uint8_t modifiers = 0; ///< bits of UsbKeys.h, of Keys and Letter
    ScrollDirection scroll{};
};

/// In the order of commandTable().
[[nodiscard]] std::span<const Function> functionTable();

/// What the assignment makes the input do. Nothing (a function that does nothing) for an empty assignment, a
/// code that is not in the table, and a function that the input is not offered.
[[nodiscard]] const Function& functionOf(const ButtonAssignment& assignment, std::uint8_t input);

} // namespace quorvi::engine
