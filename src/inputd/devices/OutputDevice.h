// A device that this process makes by uinput. It lasts as long as the object, or the process: when that ends,
// however it does, the kernel releases what is down and takes the device away.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include <linux/input.h>

#include "inputd/loop/Descriptor.h"

namespace quorvi::inputd {

class OutputDevice {
  public:
    /// "Quorvi virtual pointer": motion, wheels in both resolutions, the buttons of a mouse. Nothing when it
    /// cannot be made, with the reason in a few words.
    [[nodiscard]] static std::unique_ptr<OutputDevice> makePointer(std::string& reason);
    /// "Quorvi virtual keyboard": the keys that a record can type, and no other.
    [[nodiscard]] static std::unique_ptr<OutputDevice> makeKeyboard(std::string& reason);
    ~OutputDevice();
    OutputDevice(const OutputDevice&) = delete;
    OutputDevice& operator=(const OutputDevice&) = delete;

    /// One frame, its SYN_REPORT at the end, in one call: a frame in several loses counts at 8,000 a second.
    void write(std::span<const input_event> frame) const;

  private:
    explicit OutputDevice(Descriptor fd) : m_fd(std::move(fd)) {}
    static std::unique_ptr<OutputDevice> make(const char* name, std::span<const std::uint16_t> keys,
        std::span<const std::uint16_t> axes, std::string& reason);

    Descriptor m_fd;
};

/// A device of this service's, by its name: it is never taken for a mouse, this process's or another one's.
[[nodiscard]] bool isOwnDevice(const std::string& name);

} // namespace quorvi::inputd
