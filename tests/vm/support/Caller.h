// A program of a user, on the machine's bus.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "engine/TestRecord.h"
#include "events/InputdInterface.h"
#include "events/SdBus.h"

namespace quorvi::test {

struct ListedMouse {
    std::string id;
    std::string name;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t dpi = 0;
    bool used = false;
};

struct Status {
    std::string state;
    int profile = 0;
    int stage = 0;
    int dpiX = 0;
    int dpiY = 0;
    int inputs = 0;
};

class Caller {
  public:
    explicit Caller(uid_t user);

    // Each gives the name of the error; empty when there was none.
    std::string list(std::vector<ListedMouse>& mice);
    std::string use(const std::string& mouse, const TestRecord& record);
    /// Leaves the answer to itself.
    void useWithoutWaiting(const std::string& mouse, const TestRecord& record);
    /// Sends a signal to the destination, or to everybody when there is none.
    void signal(
        const char* destination, const char* path, const char* interface, const char* member, bool value);
    std::string setRecord(const std::string& mouse, const TestRecord& record);
    std::string forget(const std::string& mouse);
    std::string status(const std::string& mouse, Status& status);
    std::string watch(bool inputs);
    std::string watchCodes(const std::string& mouse, bool wanted);
    /// Any method, with arguments that the function appends.
    std::string call(
        const char* method, const std::function<void(sd_bus_message*)>& append,
        const std::function<void(sd_bus_message*)>& read = [](sd_bus_message*) {});

    /// What the service's object says of itself.
    std::string introspection();

    /// The id of the one mouse of that name that the user may use; empty when there is none.
    std::string mouseNamed(const std::string& name);

    /// Signals that have come, as "MiceChanged" or "InputChanged 4 1" or "StatusChanged driven 1 2" (profile,
    /// stage).
    const std::vector<std::string>& signalsSoFar();

  private:
    static int received(sd_bus_message* message, void* self, sd_bus_error* error);
    events::BusPtr m_bus;
    std::vector<std::string> m_signals;
};

} // namespace quorvi::test
