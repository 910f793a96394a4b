// A virtual device created with uinput. It lasts as long as the object or the process: when the process ends,
// in any way, the kernel releases its keys and removes it.
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
    /// "Quorvi virtual pointer": motion, wheels in both resolutions, the buttons of a mouse. On failure
    /// returns null with a short reason.
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

/// Whether the name is that of a device made by this service, in this process or another: such a device never
/// counts as a mouse.
[[nodiscard]] bool isOwnDevice(const std::string& name);

} // namespace quorvi::inputd
