// Ownership of the bus library's objects, and its errors as status codes.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <systemd/sd-bus.h>

#include "base/Status.h"

namespace quorvi::events {

struct BusCloser {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
struct SlotReleaser {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};

using BusPtr = std::unique_ptr<sd_bus, BusCloser>;
using SlotPtr = std::unique_ptr<sd_bus_slot, SlotReleaser>;
using MessageRef = std::shared_ptr<sd_bus_message>;

/// Takes ownership of a reference; null stays null.
[[nodiscard]] inline MessageRef adopt(sd_bus_message* message) {
    return {message, [](sd_bus_message* m) { sd_bus_message_unref(m); }};
}

/// An error answer that frees itself.
class BusError {
  public:
    BusError() = default;
    ~BusError() { sd_bus_error_free(&m_error); }
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;

    [[nodiscard]] sd_bus_error* get() { return &m_error; }

  private:
    sd_bus_error m_error = {nullptr, nullptr, 0};
};

/// The bus itself, as a process that is called. Its interface has the same name.
constexpr char kBusName[] = "org.freedesktop.DBus";
constexpr char kBusPath[] = "/org/freedesktop/DBus";

/// Whether the bus itself sent the signal or answer. Neither a match rule with this sender's name nor a call
/// to it ensures that: the library also delivers signals that any connection addresses to this one, and takes
/// any answer that bears the number of a call.
[[nodiscard]] inline bool isOfTheBus(sd_bus_message* message) {
    const char* sender = sd_bus_message_get_sender(message);
    return sender && std::string_view(sender) == kBusName;
}

/// The rule for the bus's signal that the connection with that unique name has left it.
[[nodiscard]] inline std::string ruleForLeaving(const std::string& connection) {
    return "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
           "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='" +
           connection + "',arg2=''";
}

/// For sd_bus_add_match_async: without a callback the library closes the connection if the bus refuses the
/// rule.
inline int receiveRuleAdded(sd_bus_message* /*reply*/, void* /*data*/, sd_bus_error* /*error*/) {
    return 1;
}

/// The status for a call that failed: by the name of the error answer, else by the error number.
[[nodiscard]] Status statusOf(const sd_bus_error& error, int errorNumber);

} // namespace quorvi::events
