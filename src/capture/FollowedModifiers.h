// The modifiers that are held, as one key event after the other tells of them.
#pragma once

#include <cstdint>

namespace quorvi {

enum class ModifierChange : std::uint8_t {
    none,
    pressed,
    other, ///< one was let go, or is fewer than were held
};

struct FollowedModifiers {
    std::uint16_t word = 0;    ///< the modifier word of the last event
    std::int32_t mostHeld = 0; ///< the largest number held together since all were last released

    /// Takes over the modifier word of an event, and says what it changes. A press is a change that makes as
    /// many as were ever held together since all were released, so that letting go of one of several is none.
    ModifierChange follow(std::uint16_t modifiers);
    /// Takes over the modifiers as they have become while no event was followed.
    void catchUp(std::uint16_t modifiers);
};

} // namespace quorvi
