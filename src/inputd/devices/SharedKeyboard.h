// The one virtual keyboard, on which several mice may type.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include <linux/input.h>

#include "inputd/devices/KeyHolders.h"
#include "inputd/devices/OutputDevice.h"

namespace quorvi::inputd {

/// Created once and kept: a new keyboard resets the keyboard settings of X11 users.
class SharedKeyboard {
  public:
    /// Creates the device. Returns false with a short reason on failure. Does nothing if it exists.
    [[nodiscard]] bool make(std::string& reason);

    /// One frame of one mouse, its SYN_REPORT at the end, at most 64 events. KeyHolders decides which events
    /// pass.
    void write(std::span<const input_event> frame);

  private:
    std::unique_ptr<OutputDevice> m_device;
    KeyHolders m_holders;
};

/// Writes the events of a frame that pass into `out` and returns their number; 0 if only SYN_REPORT passes.
template <typename Passes>
std::size_t filteredFrame(std::span<const input_event> frame, std::span<input_event> out, Passes passes) {
    std::size_t size = 0;
    for (const auto& event : frame)
        if (size < out.size() && (event.type == EV_SYN ? size > 0 : passes(event)))
            out[size++] = event;
    return size;
}

} // namespace quorvi::inputd
