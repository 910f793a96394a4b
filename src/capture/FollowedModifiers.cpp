#include "capture/FollowedModifiers.h"

#include <bit>

namespace quorvi {

namespace {

/// The modifiers that count as held together: Command to Control.
constexpr std::uint16_t kCountedModifiers = 0x1F00;

std::int32_t modifierCount(std::uint16_t modifiers) {
    return std::popcount(static_cast<std::uint16_t>(modifiers & kCountedModifiers));
}

} // namespace

ModifierChange FollowedModifiers::follow(std::uint16_t modifiers) {
    if (modifiers == word)
        return ModifierChange::none;
    word = modifiers;
    const std::int32_t count = modifierCount(modifiers);
    const bool pressed = modifiers != 0 && count >= mostHeld;
    if (pressed || modifiers == 0)
        mostHeld = count;
    return pressed ? ModifierChange::pressed : ModifierChange::other;
}

void FollowedModifiers::catchUp(std::uint16_t modifiers) {
    if (modifiers == word)
        return;
    word = modifiers;
    mostHeld = modifierCount(modifiers);
}

} // namespace quorvi
