// The keys that type no text, and their characters, which are the same in every layout.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "keyboard/VirtualKeys.h"

namespace quorvi {

struct SpecialKey {
    std::uint8_t virtualKey;
    char16_t character;
};

inline constexpr char16_t functionKeyCharacter = 0x10;

inline constexpr std::array<SpecialKey, 21> specialKeys{{
    {0x7B, 0x1C}, // left
    {0x7C, 0x1D}, // right
    {0x7E, 0x1E}, // up
    {0x7D, 0x1F}, // down
    {0x73, 0x01}, // home
    {0x4C, 0x03}, // enter
    {0x77, 0x04}, // end
    {0x72, 0x05}, // help
    {0x33, 0x08}, // delete
    {0x30, 0x09}, // tab
    {0x74, 0x0B}, // page up
    {0x79, 0x0C}, // page down
    {0x24, 0x0D}, // return
    {escapeKey, 0x1B},
    {keypadClearKey, 0x1B},
    {0x75, 0x7F},                 // forward delete
    {0x6A, functionKeyCharacter}, // F16 to F20, which have no number in their names
    {0x40, functionKeyCharacter},
    {0x4F, functionKeyCharacter},
    {0x50, functionKeyCharacter},
    {0x5A, functionKeyCharacter},
}};

/// The character of a special key; std::nullopt for a key that depends on the layout.
[[nodiscard]] constexpr std::optional<char16_t> specialKeyCharacter(std::uint8_t virtualKey) {
    for (const std::uint8_t functionKey : functionKeys)
        if (functionKey == virtualKey)
            return functionKeyCharacter;
    for (const SpecialKey& key : specialKeys)
        if (key.virtualKey == virtualKey)
            return key.character;
    return std::nullopt;
}

} // namespace quorvi
