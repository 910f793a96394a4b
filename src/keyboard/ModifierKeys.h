// The key for each bit of the modifier word.
#pragma once

#include <array>
#include <cstdint>

namespace quorvi {

struct ModifierKey {
    std::uint16_t bit;
    std::uint8_t virtualKey;
};

/// In bit order, which is also the order for several changes at once. The last three are the right-hand keys:
/// events never distinguish them, stored words may.
inline constexpr std::array<ModifierKey, 8> modifierKeys{{
    {0x0100, 0x37}, // Command
    {0x0200, 0x38}, // Shift
    {0x0400, 0x39}, // Caps Lock
    {0x0800, 0x3A}, // Option
    {0x1000, 0x3B}, // Control
    {0x2000, 0x38}, // right Shift
    {0x4000, 0x3A}, // right Option
    {0x8000, 0x3B}, // right Control
}};

} // namespace quorvi
