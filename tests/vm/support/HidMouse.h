// A mouse as many gaming mice are: one HID device, two nodes, of which the second is a keyboard to the
// kernel.
#pragma once

#include <cstdint>
#include <span>

#include "inputd/loop/Descriptor.h"

namespace quorvi::test {

class HidMouse {
  public:
    /// Plugs it in by /dev/uhid, and waits until udev is done with it.
    HidMouse();

    /// Counts, and whether the left button is down.
    void report(bool left, std::int8_t x, std::int8_t y);
    /// The key of that USB usage is down on the second node; 0 for none.
    void type(std::uint8_t usage);

  private:
    void send(std::span<const std::uint8_t> report);
    inputd::Descriptor m_fd;
};

} // namespace quorvi::test
