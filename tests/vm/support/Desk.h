// What a desktop learns of the input devices: it opens each that comes, and forgets each that goes.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <linux/input.h>

#include "inputd/loop/Descriptor.h"

namespace quorvi::test {

class Desk {
  public:
    struct Event {
        std::string device; ///< its name
        std::uint16_t type;
        std::uint16_t code;
        int value;
        std::chrono::microseconds when; ///< of the steady clock, as the kernel stamped it

        bool operator==(const Event& other) const {
            return type == other.type && code == other.code && value == other.value;
        }
    };

    Desk() { look(); }

    /// Opens devices that are new, reads what has come from all.
    void look();
    /// Looks until the condition holds; false when it never does.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& condition);
    /// Looks until the device is there. False when it does not come.
    [[nodiscard]] bool waitForDevice(const std::string& name);
    /// Looks until no device of that name is there. False when one stays.
    [[nodiscard]] bool waitForNoDevice(const std::string& name);
    /// Looks until that key or button has come down or up, on any device. False when it never does.
    [[nodiscard]] bool waitForKey(std::uint16_t code, int value);

    /// What has come since the start or the last forget(), without SYN and MSC events, in order for each
    /// device.
    [[nodiscard]] const std::vector<Event>& events() const { return m_events; }
    void forget() { m_events.clear(); }
    /// The sum of an axis over all devices, since forget().
    [[nodiscard]] long sum(std::uint16_t axis) const;
    /// The keys and buttons alone, as "KEY_A down" in words: "30+ 30-", in the order in which they came.
    [[nodiscard]] std::string keys() const;

    /// Keys and buttons that are down, on whichever device. Those of a device that went are not.
    [[nodiscard]] std::set<std::uint16_t> held() const;
    [[nodiscard]] bool has(const std::string& name) const;

  private:
    struct Device {
        inputd::Descriptor fd;
        std::string name;
        std::set<std::uint16_t> held;
    };
    [[nodiscard]] bool read(Device& device);
    static Device openDevice(const std::string& path);

    std::map<std::string, Device> m_devices; ///< by path
    std::vector<Event> m_events;
};

} // namespace quorvi::test
