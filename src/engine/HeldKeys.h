// The output's keys and buttons that are down. Each is counted: the first press presses it, and the last
// release releases it.
#pragma once

#include <array>
#include <cstdint>

#include <linux/input-event-codes.h>

#include "engine/FrameWriter.h"

namespace quorvi::engine {

class HeldKeys {
  public:
    explicit HeldKeys(FrameWriter& writer) : m_writer(writer) {}

    // Ignores a code that neither device offers, and a release without a press.
    void press(std::uint16_t code);
    void release(std::uint16_t code);

    void releaseAll();
    [[nodiscard]] bool areAny() const { return m_down > 0; }

  private:
    FrameWriter& m_writer;
    std::array<std::uint16_t, KEY_CNT> m_counts{};
    int m_down = 0; ///< codes whose count is not 0
};

} // namespace quorvi::engine
