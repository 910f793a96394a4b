// The input devices that are plugged in, as reported by udev.
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
    /// Listens in that loop. `changed` is called when a node is added or removed, never from within start().
    NodeList(sd_event* loop, std::function<void()> changed);

    /// Reads the present nodes and listens from now on. Returns false if udev cannot be monitored; the list
    /// then stays as first read.
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
