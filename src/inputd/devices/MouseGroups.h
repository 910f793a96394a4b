// Groups nodes into mice. Some mice have their extra buttons on a second node, which looks like a keyboard.
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
/// has. Any other text yields no keys.
[[nodiscard]] KeyBits parseKeyBits(std::string_view text);

/// One of the devices above a node in the kernel's tree.
struct Ancestor {
    std::string path;      ///< below /sys
    std::string subsystem; ///< "input", "hid", "usb" and so on
    std::string type;      ///< "usb_device" and so on; empty for most
};

/// The path that identifies a node's mouse, from its ancestors, nearest first. For a device with its own plug
/// it is the USB device, with all its interfaces. A device paired with a receiver has its own HID device
/// below the receiver's, so a keyboard on the same receiver is not part of the mouse. Otherwise it is the HID
/// device or the input device itself. Empty if there is no ancestor.
[[nodiscard]] std::string groupOf(std::span<const Ancestor> nearestFirst);

/// The properties of one node, /dev/input/eventN.
struct NodeFacts {
    std::string node;
    std::string name; ///< the device's own name; any bytes
    std::string group;
    std::string seat = "seat0";
    std::string unique; ///< serial number or radio address; may be empty
    std::string place;  ///< where it is plugged in, the same after plugging it in again
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t dpi = 0; ///< of the sensor, from the hardware database; 0 if unknown
    bool isMouse = false;
    KeyBits keys;
};

struct Mouse {
    /// Stays the same when plugged in again at the same place, or anywhere if it has a serial number.
    /// Printable ASCII.
    std::string id;
    std::string name; ///< UTF-8
    std::string seat;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t dpi = 0;
    std::vector<NodeFacts> nodes; ///< mice first
};

/// The mice among the nodes, in the order of their ids, which differ. Leaves out nodes without a mouse in
/// their group, and this service's virtual devices.
[[nodiscard]] std::vector<Mouse> groupMice(std::span<const NodeFacts> nodes);

/// The nodes to grab, the mouse itself first: its mouse nodes, and of the others only those with an input's
/// code that no mouse node has. A keyboard in the same device is otherwise left alone.
[[nodiscard]] std::vector<std::string> nodesToGrab(const Mouse& mouse, const engine::ButtonCodes& codes);

} // namespace quorvi::inputd
