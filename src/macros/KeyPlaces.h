// English names of keys by their places on the keyboard of the United States, for texts that are the same in
// every language and under every layout.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

/// The name of the key with the USB usage: "A", "Right Shift", "Num 5"; "key 133" for a key without a name.
/// Names are unique and contain no comma.
[[nodiscard]] std::string nameOfKeyPlace(std::uint8_t usage);

/// The usage of the key with the name, or with another usual name ("control", "pgup", "-"), in lower case and
/// without blanks; std::nullopt for any other text.
[[nodiscard]] std::optional<std::uint8_t> keyPlaceWithName(std::string_view name);

} // namespace quorvi
