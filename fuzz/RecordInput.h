// A record out of a target's input, without its unused slots, because 13232 bytes of which most mean nothing
// would take most of the time: the 7 bytes in front of the slots, and then slots, each behind a byte that
// says which. What is missing is zero, and so is every other macro; every other profile is marked as empty.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "model/ConfigRecord.h"

namespace quorvi::fuzz {

class Input {
  public:
    explicit Input(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool atEnd() const { return m_bytes.empty(); }
    [[nodiscard]] std::span<const std::uint8_t> rest() const { return m_bytes; }

    /// As many bytes as there are; the others of the target stay.
    void take(void* target, std::size_t size);

    /// A number in the host's order; what is missing of it is zero.
    template <typename Number>
    [[nodiscard]] Number number() {
        Number value{};
        take(&value, sizeof value);
        return value;
    }

  private:
    std::span<const std::uint8_t> m_bytes;
};

/// The bytes in front of the slots. On the heap and of the exact size, so that the sanitizer sees any access
/// beyond it.
[[nodiscard]] std::unique_ptr<ConfigRecord> takeHead(Input& input);

/// The byte that says which slot, and the slot.
void takeSlot(Input& input, ConfigRecord& record);

} // namespace quorvi::fuzz
