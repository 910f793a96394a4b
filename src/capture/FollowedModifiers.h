// Tracks the held modifiers from successive key events.
#pragma once

#include <cstdint>

namespace quorvi {

enum class ModifierChange : std::uint8_t {
    none,
    pressed,
    other, ///< one was released, or fewer are held than before
};

struct FollowedModifiers {
    std::uint16_t word = 0;    ///< the modifier word of the last event
    std::int32_t mostHeld = 0; ///< the largest number held together since all were last released

    /// Applies the modifier word of an event and returns the change. A change counts as a press only if it
    /// reaches the largest number held together since all were released, so that releasing one of several
    /// does not.
    ModifierChange follow(std::uint16_t modifiers);
    /// Applies modifiers that changed while no events were followed.
    void catchUp(std::uint16_t modifiers);
};

} // namespace quorvi
