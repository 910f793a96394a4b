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

/// Made once and kept: a new keyboard resets what users of X11 have set for theirs.
class SharedKeyboard {
  public:
    /// False when it cannot be made, with the reason in a few words. Does nothing when it is there.
    [[nodiscard]] bool make(std::string& reason);

    /// One frame of one mouse, its SYN_REPORT at the end, at most 64 events. What of it passes is KeyHolders'
    /// to say.
    void write(std::span<const input_event> frame);

  private:
    std::unique_ptr<OutputDevice> m_device;
    KeyHolders m_holders;
};

/// The events of a frame that pass, as a frame, put into `out`; its size, 0 when none but SYN_REPORT does.
template <typename Passes>
std::size_t filteredFrame(std::span<const input_event> frame, std::span<input_event> out, Passes passes) {
    std::size_t size = 0;
    for (const auto& event : frame)
        if (size < out.size() && (event.type == EV_SYN ? size > 0 : passes(event)))
            out[size++] = event;
    return size;
}

} // namespace quorvi::inputd
