// Who holds which key of the one keyboard that several mice type on.
#pragma once

#include <array>
#include <cstdint>

#include <linux/input.h>

namespace quorvi::inputd {

class KeyHolders {
  public:
    /// Takes an event of one mouse. Whether it is one for the keyboard: a key goes down with the first mouse
    /// that holds it, and up with the last. With Alt and SysRq (Print) down no other key does: such are
    /// commands to the kernel, which end programs or the computer, and no business of a mouse.
    [[nodiscard]] bool passes(const input_event& event);

  private:
    [[nodiscard]] bool isHeld(std::uint16_t code) const { return m_holders[code] > 0; }

    std::array<std::uint8_t, KEY_CNT> m_holders{};
};

} // namespace quorvi::inputd
