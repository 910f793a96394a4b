// The functions of inputs and their effects: one row for each. Their codes, titles and groups are in
// model/Commands.h.
#pragma once

#include <cstdint>
#include <span>

#include "model/ConfigRecord.h"

namespace quorvi::engine {

enum class Act : std::uint8_t {
    Nothing,
    Keys,            ///< the key with its modifiers, held as long as the input
    Letter,          ///< the key that types the letter, with its modifiers
    SingleKey,       ///< the key and the modifiers of the assignment's parameters
    DoubleClick,     ///< two clicks of the key
    Scroll,          ///< a notch, and more as long as the input is down
    StageUp,         ///< the next stage of the list; the last stays
    StageDown,       ///< the stage before; the first stays
    NextStage,       ///< the next stage of the list; the first after the last
    LowestStage,     ///< the stage with the lowest sensitivity, as long as the input is down
    RunMacro,        ///< the macro in the first parameter
    SwitchToProfile, ///< the profile in the first parameter, by its number
    NextProfile,     ///< the next one in use; the first after the last
    PreviousProfile, ///< the previous one in use; the last before the first
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

/// The function of the assignment. A function without effect for an empty assignment, a code that is not in
/// the table, and a function that this input cannot have.
[[nodiscard]] const Function& functionOf(const ButtonAssignment& assignment, std::uint8_t input);

} // namespace quorvi::engine
