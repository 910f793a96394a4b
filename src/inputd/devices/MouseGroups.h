// Which nodes are one mouse. Some mice have their extra buttons on a second node, which looks like a
// keyboard.
#pragma once

#include <bitset>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <linux/input.h>

#include "engine/Options.h"

namespace quorvi::inputd {

using KeyBits = std::bitset<KEY_CNT>;

/// The kernel's "capabilities/key": words in hexadecimal, the highest first, each of as many bits as a long
/// has. What is no such text has no keys.
[[nodiscard]] KeyBits parseKeyBits(std::string_view text);

/// One of the devices above a node in the kernel's tree.
struct Ancestor {
    std::string path;      ///< below /sys
    std::string subsystem; ///< "input", "hid", "usb" and so on
    std::string type;      ///< "usb_device" and so on; empty for most
};

/// The path of what a node's mouse is, from the nearest ancestor on up. A device on its own plug is its USB
/// device, with all its interfaces. One that is paired with a receiver has a HID device of its own below the
/// receiver's, so that a keyboard on the same receiver is not part of the mouse. What has neither is the HID
/// device, or the input device itself. Empty when there is no ancestor.
[[nodiscard]] std::string groupOf(std::span<const Ancestor> nearestFirst);

/// What is known of one node, /dev/input/eventN.
struct NodeFacts {
    std::string node;
    std::string name; ///< as the device says; any bytes
    std::string group;
    std::string seat = "seat0";
    std::string unique; ///< serial number or radio address; empty when it has none
    std::string place;  ///< where it is plugged in, the same after plugging it in again
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t dpi = 0; ///< of the sensor, as the hardware database says; 0 when it does not
    bool isMouse = false;
    KeyBits keys;
};

struct Mouse {
    /// The same after it was plugged in again at the same place, or anywhere when it has a serial number.
    /// Printable ASCII.
    std::string id;
    std::string name; ///< UTF-8
    std::string seat;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t dpi = 0;
    std::vector<NodeFacts> nodes; ///< mice first
};

/// The mice among the nodes, in the order of their ids, which differ. Nodes without a mouse in their group,
/// and the devices that this service makes, are left out.
[[nodiscard]] std::vector<Mouse> groupMice(std::span<const NodeFacts> nodes);

/// The nodes to be grabbed, the mouse itself first: its mice, and of the others those alone that have the
/// code of an input which no mouse of it has. A keyboard in the same device is nobody's business until then.
[[nodiscard]] std::vector<std::string> nodesToGrab(const Mouse& mouse, const engine::ButtonCodes& codes);

} // namespace quorvi::inputd
