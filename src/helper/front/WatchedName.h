// Who owns a name on the bus, all the time.
#pragma once

#include <functional>
#include <string>

#include "events/EventBus.h"
#include "events/SdBus.h"

namespace quorvi::front {

class WatchedName {
  public:
    /// The function is called from EventBus::process() when the name has another owner, or none, and with the
    /// first one. The bus must live longer.
    WatchedName(const EventBus& bus, std::string name, std::function<void()> function);
    WatchedName(const WatchedName&) = delete;
    WatchedName& operator=(const WatchedName&) = delete;

    [[nodiscard]] const std::string& name() const { return m_name; }
    /// The owner's unique name; empty when there is none, or it is not known yet.
    [[nodiscard]] const std::string& owner() const { return m_owner; }

  private:
    static int receiveChange(sd_bus_message* signal, void* self, sd_bus_error*);
    static int receiveOwner(sd_bus_message* answer, void* self, sd_bus_error*);
    void take(const char* owner);

    std::string m_name;
    std::function<void()> m_function;
    std::string m_owner;
    events::SlotPtr m_match;
    events::SlotPtr m_question;
};

} // namespace quorvi::front
