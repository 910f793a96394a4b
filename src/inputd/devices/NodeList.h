// The input devices that are plugged in, as udev tells of them.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <systemd/sd-device.h>

#include "inputd/devices/MouseGroups.h"

namespace quorvi::inputd {

class NodeList {
  public:
    /// Listens in that loop. `changed` is called when a node came or went, never from within start().
    NodeList(sd_event* loop, std::function<void()> changed);

    /// Reads what is there and listens from now on. False when udev's news cannot be had; then the list stays
    /// as it was read.
    [[nodiscard]] bool start();
    [[nodiscard]] std::vector<Mouse> mice() const;

  private:
    static int received(sd_device_monitor* monitor, sd_device* device, void* self);
    void add(sd_device* device);

    struct MonitorReleaser {
        void operator()(sd_device_monitor* monitor) const { sd_device_monitor_unref(monitor); }
    };

    sd_event* m_loop;
    std::function<void()> m_changed;
    std::unique_ptr<sd_device_monitor, MonitorReleaser> m_monitor;
    std::map<std::string, NodeFacts> m_nodes; ///< by path below /sys
};

} // namespace quorvi::inputd
