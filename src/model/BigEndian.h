// Integers of the record: most significant byte first, byte by byte.
#pragma once

#include <cstdint>
#include <span>

namespace quorvi {

/// Stores the low bytes of the value, as many as the buffer has.
constexpr void storeBigEndian(std::span<std::uint8_t> bytes, std::uint32_t value) {
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, value >>= 8)
        *byte = static_cast<std::uint8_t>(value);
}

/// Takes up to four bytes; 0 for none.
[[nodiscard]] constexpr std::uint32_t loadBigEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t value = 0;
    for (const auto byte : bytes)
        value = value << 8 | byte;
    return value;
}

} // namespace quorvi
