#include "helper/front/WatchedName.h"

#include <utility>

#include "events/AsyncCalls.h"
#include "events/EventBusPrivate.h"

namespace quorvi::front {

WatchedName::WatchedName(const EventBus& bus, std::string name, std::function<void()> function)
    : m_name(std::move(name)), m_function(std::move(function)) {
    auto* connection = bus.connection().bus.get();
    const std::string rule = "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                             "member='NameOwnerChanged',arg0='" +
                             m_name + "'";
    m_match = events::matchSignal(connection, rule.c_str(), receiveChange, this);
    sd_bus_slot* slot = nullptr;
    // After the rule, so that no change is missed.
    if (sd_bus_call_method_async(connection, &slot, events::kBusName, events::kBusPath, events::kBusName,
            "GetNameOwner", receiveOwner, this, "s", m_name.c_str()) >= 0)
        m_question.reset(slot);
}

int WatchedName::receiveChange(sd_bus_message* signal, void* self, sd_bus_error*) {
    const char* name = nullptr;
    const char* before = nullptr;
    const char* owner = nullptr;
    auto& watched = *static_cast<WatchedName*>(self);
    if (events::isOfTheBus(signal) && sd_bus_message_read(signal, "sss", &name, &before, &owner) > 0 &&
        name == watched.m_name)
        watched.take(owner);
    return 0;
}

int WatchedName::receiveOwner(sd_bus_message* answer, void* self, sd_bus_error*) {
    const char* owner = nullptr;
    if (!sd_bus_message_is_method_error(answer, nullptr) && sd_bus_message_read(answer, "s", &owner) > 0)
        static_cast<WatchedName*>(self)->take(owner);
    return 0;
}

void WatchedName::take(const char* owner) {
    if (std::exchange(m_owner, owner) != owner)
        m_function();
}

} // namespace quorvi::front
