// Tracks which mouse holds which key of the shared virtual keyboard.
#pragma once

#include <array>
#include <cstdint>

#include <linux/input.h>

namespace quorvi::inputd {

class KeyHolders {
  public:
    /// Handles an event of one mouse and returns whether to pass it to the keyboard: a key goes down with the
    /// first mouse that holds it, and up with the last. While Alt and SysRq (Print) are down, no other key
    /// passes: these are kernel commands, which can kill programs or stop the computer, and a mouse must not
    /// send them.
    [[nodiscard]] bool passes(const input_event& event);

  private:
    [[nodiscard]] bool isHeld(std::uint16_t code) const { return m_holders[code] > 0; }

    std::array<std::uint8_t, KEY_CNT> m_holders{};
};

} // namespace quorvi::inputd
