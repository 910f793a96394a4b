#include "events/FrontCalls.h"

#include <string_view>
#include <utility>

#include "events/EventBusPrivate.h"
#include "events/FrontInterface.h"
#include "events/ProcessName.h"

namespace quorvi {

namespace {

constexpr char kPropertiesOfObjects[] = "org.freedesktop.DBus.Properties";

EventBus::Private::Deadline oneSecond() {
    return std::chrono::steady_clock::now() + std::chrono::seconds(1);
}

std::string* textNamed(FrontState& state, std::string_view name) {
    if (name == frontinterface::kApplication)
        return &state.application;
    if (name == frontinterface::kSource)
        return &state.source;
    if (name == frontinterface::kDesktop)
        return &state.desktop;
    return name == frontinterface::kGnomeExtension ? &state.gnomeExtension : nullptr;
}

bool readMember(sd_bus_message* reply, FrontState& state) {
    const char* name = nullptr;
    const char* value = nullptr;
    if (sd_bus_message_read(reply, "s", &name) <= 0)
        return false;
    std::string* const text = textNamed(state, name);
    if (!text)
        return sd_bus_message_skip(reply, "v") >= 0;
    if (sd_bus_message_read(reply, "v", "s", &value) <= 0)
        return false;
    *text = value;
    return true;
}

bool readAll(sd_bus_message* reply, FrontState& state) {
    if (sd_bus_message_enter_container(reply, 'a', "{sv}") <= 0)
        return false;
    while (sd_bus_message_enter_container(reply, 'e', "sv") > 0)
        if (!readMember(reply, state) || sd_bus_message_exit_container(reply) < 0)
            return false;
    return sd_bus_message_exit_container(reply) >= 0;
}

} // namespace

Status getFrontState(const EventBus& bus, const ProcessSerialNumber& helper, FrontState& state) {
    Status status = noErr;
    const auto reply = bus.connection().call(events::uniqueName(helper).c_str(), frontinterface::kPath,
        kPropertiesOfObjects, "GetAll", oneSecond(), status, "s", frontinterface::kInterface);
    if (!reply)
        return status;
    FrontState read;
    if (!readAll(reply.get(), read))
        return errAECoercionFail;
    state = std::move(read);
    return noErr;
}

Status enableGnomeExtension(const EventBus& bus, const ProcessSerialNumber& helper) {
    Status status = noErr;
    (void)bus.connection().call(events::uniqueName(helper).c_str(), frontinterface::kPath,
        frontinterface::kInterface, frontinterface::kEnableGnomeExtension, oneSecond(), status, "");
    return status;
}

struct FrontListener::Registration {
    std::string sender;
    std::function<void()> function;
    events::SlotPtr slot;

    /// The rule does not filter signals that other senders address to this connection.
    static int receive(sd_bus_message* signal, void* registration, sd_bus_error*) {
        const auto& self = *static_cast<const Registration*>(registration);
        const char* sender = sd_bus_message_get_sender(signal);
        if (sender && self.sender == sender)
            self.function();
        return 0;
    }
};

FrontListener::~FrontListener() = default;

std::unique_ptr<FrontListener> FrontListener::listen(
    const EventBus& bus, const ProcessSerialNumber& helper, std::function<void()> function) {
    if (!bus.isConnected())
        return nullptr;
    auto registration = std::make_unique<Registration>(
        Registration{events::uniqueName(helper), std::move(function), nullptr});
    const std::string rule = "type='signal',sender='" + registration->sender + "',path='" +
                             frontinterface::kPath + "',interface='" + kPropertiesOfObjects +
                             "',member='PropertiesChanged',arg0='" + frontinterface::kInterface + "'";
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_match(
            bus.connection().bus.get(), &slot, rule.c_str(), Registration::receive, registration.get()) < 0)
        return nullptr;
    registration->slot.reset(slot);
    std::unique_ptr<FrontListener> listener(new FrontListener);
    listener->m_registration = std::move(registration);
    return listener;
}

} // namespace quorvi
