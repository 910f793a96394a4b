// The characters of the X keyboard extension's dead keys: their accents alone, and accented letters.
#pragma once

#include <cstdint>
#include <optional>

namespace quorvi {

/// Whether the keysym is one of the dead keys (dead_grave to dead_longsolidusoverlay).
[[nodiscard]] bool isDeadKey(std::uint32_t keysym);

/// The accent by itself, '^' for dead_circumflex; std::nullopt if it has no character.
[[nodiscard]] std::optional<char16_t> spacingAccent(std::uint32_t deadKeysym);

/// Combines a dead key and the next character: an accented letter of Latin-1 (and capital y with diaeresis),
/// or the accent by itself before a space or the same accent. Returns std::nullopt if they do not make a
/// single character.
[[nodiscard]] std::optional<char16_t> composeAccent(std::uint32_t deadKeysym, char16_t base);

} // namespace quorvi
