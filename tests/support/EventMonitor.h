// A bus monitor: only that can see an event sent to a process that is gone.
#pragma once

#include <memory>
#include <string>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace quorvi::test {

/// Records the calls of Send on the bus from now on.
class EventMonitor {
  public:
    explicit EventMonitor(const std::string& busAddress);
    EventMonitor(const EventMonitor&) = delete;
    EventMonitor& operator=(const EventMonitor&) = delete;

    /// Waits until an event goes to the destination, and returns all destinations up to that one, by their
    /// unique names.
    [[nodiscard]] std::vector<std::string> destinationsUntil(const std::string& last);

    /// Waits for a command of that message and parameter, "KyPR 1", that was not seen and forgotten; returns
    /// false if none arrives.
    [[nodiscard]] bool sees(const std::string& command);
    /// The commands that have passed and were not forgotten, in their order; an empty one for every other
    /// event.
    [[nodiscard]] const std::vector<std::string>& commands();
    /// Waits for a command in the same way, and returns all up to that one, in order.
    [[nodiscard]] std::vector<std::string> commandsUntil(const std::string& last);
    /// Forgets everything that has passed.
    void forget();

  private:
    static int note(sd_bus_message* message, void* monitor, void* /*error*/);

    struct Close {
        void operator()(sd_bus* bus) const;
    };
    std::unique_ptr<sd_bus, Close> m_bus;
    std::vector<std::string> m_destinations;
    std::vector<std::string> m_commands;
};

} // namespace quorvi::test
