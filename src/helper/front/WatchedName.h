// Tracks the owner of a bus name.
#pragma once

#include <functional>
#include <string>

#include "events/EventBus.h"
#include "events/SdBus.h"

namespace quorvi::front {

class WatchedName {
  public:
    /// The function is called from EventBus::process() for the first owner and whenever the owner changes or
    /// is gone. The bus must outlive the object.
    WatchedName(const EventBus& bus, std::string name, std::function<void()> function);
    WatchedName(const WatchedName&) = delete;
    WatchedName& operator=(const WatchedName&) = delete;

    [[nodiscard]] const std::string& name() const { return m_name; }
    /// The owner's unique name; empty if there is none or it is not known yet.
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
