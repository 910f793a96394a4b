// What the dead keys of the X keyboard extension type: their accents alone, and the accented letters.
#pragma once

#include <cstdint>
#include <optional>

namespace quorvi {

/// Whether the keysym is one of the dead keys (dead_grave to dead_longsolidusoverlay).
[[nodiscard]] bool isDeadKey(std::uint32_t keysym);

/// The accent by itself, '^' for dead_circumflex; nothing when it has no character of its own.
[[nodiscard]] std::optional<char16_t> spacingAccent(std::uint32_t deadKeysym);

/// What a dead key and the character typed after it make: an accented letter of Latin-1 (and capital y with
/// diaeresis), or the accent by itself before a space or the same accent. Nothing when they make no single
/// character.
[[nodiscard]] std::optional<char16_t> composeAccent(std::uint32_t deadKeysym, char16_t base);

} // namespace quorvi
