// A monitor of a bus: only that sees an event that is sent to somebody who is gone.
#pragma once

#include <memory>
#include <string>
#include <vector>

struct sd_bus;

namespace quorvi::test {

/// Sees the calls of Send that pass the bus from now on.
class EventMonitor {
  public:
    explicit EventMonitor(const std::string& busAddress);
    EventMonitor(const EventMonitor&) = delete;
    EventMonitor& operator=(const EventMonitor&) = delete;

    /// Waits until an event goes to the destination, and gives all destinations up to that one, by their
    /// unique names.
    [[nodiscard]] std::vector<std::string> destinationsUntil(const std::string& last);

  private:
    struct Close {
        void operator()(sd_bus* bus) const;
    };
    std::unique_ptr<sd_bus, Close> m_bus;
    std::vector<std::string> m_destinations;
};

} // namespace quorvi::test
