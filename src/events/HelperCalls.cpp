#include "events/HelperCalls.h"

#include <algorithm>
#include <string_view>

#include "events/EventBusPrivate.h"
#include "events/HelperInterface.h"
#include "events/ProcessName.h"

namespace quorvi {

namespace {

using namespace helperinterface;
using namespace std::chrono_literals;

constexpr char kProperties[] = "org.freedesktop.DBus.Properties";

EventBus::Private::Deadline within(std::chrono::milliseconds time) {
    return std::chrono::steady_clock::now() + time;
}

template <typename... Arguments>
Status callMethod(const EventBus& bus, const ProcessSerialNumber& helper, const char* method,
    const char* signature = "", Arguments... arguments) {
    Status status = noErr;
    (void)bus.connection().call(events::uniqueName(helper).c_str(), kPath, kInterface, method, within(1s),
        status, signature, arguments...);
    return status;
}

bool readMouse(sd_bus_message* reply, MouseEntry& mouse) {
    const char* id = nullptr;
    const char* name = nullptr;
    const char* connection = nullptr;
    const char* state = nullptr;
    int inUse = 0;
    const void* codes = nullptr;
    std::size_t bytes = 0;
    if (sd_bus_message_read(
            reply, "sssbsqq", &id, &name, &connection, &inUse, &state, &mouse.hardwareDpi, &mouse.dpi) <= 0 ||
        sd_bus_message_read_array(reply, 'q', &codes, &bytes) < 0 || sd_bus_message_skip(reply, "as") < 0)
        return false;
    mouse.id = id;
    mouse.name = name;
    mouse.connection = connection;
    mouse.inUse = inUse != 0;
    mouse.state = state;
    const auto* first = static_cast<const std::uint16_t*>(codes);
    std::copy_n(first, std::min(bytes / sizeof *first, mouse.codes.size()), mouse.codes.begin());
    return true;
}

/// Reads the property's value if the state has such a property.
bool readProperty(sd_bus_message* reply, std::string_view name, HelperState& state) {
    if (name == kDemonstration) {
        int yes = 0;
        const bool read = sd_bus_message_read(reply, "v", "b", &yes) > 0;
        state.demonstration = yes != 0;
        return read;
    }
    if (name == kFrontReason) {
        const char* reason = "";
        const bool read = sd_bus_message_read(reply, "v", "s", &reason) > 0;
        state.frontReason = reason;
        return read;
    }
    if (name == kRunningProfile)
        return sd_bus_message_read(reply, "v", "u", &state.profile) > 0;
    if (name == kRunningStage)
        return sd_bus_message_read(reply, "v", "u", &state.stage) > 0;
    if (name == kInputs)
        return sd_bus_message_read(reply, "v", "q", &state.inputs) > 0;
    return sd_bus_message_skip(reply, "v") >= 0;
}

} // namespace

Status listMice(const EventBus& bus, const ProcessSerialNumber& helper, std::vector<MouseEntry>& mice) {
    Status status = noErr;
    const auto reply = bus.connection().call(
        events::uniqueName(helper).c_str(), kPath, kInterface, kListMice, within(5s), status, "");
    if (!reply)
        return status;
    if (sd_bus_message_enter_container(reply.get(), 'a', kMouse) < 0)
        return errAECoercionFail;
    std::vector<MouseEntry> read;
    while (sd_bus_message_enter_container(reply.get(), 'r', kMouseMembers) > 0) {
        if (MouseEntry mouse; readMouse(reply.get(), mouse))
            read.push_back(std::move(mouse));
        if (sd_bus_message_exit_container(reply.get()) < 0)
            return errAECoercionFail;
    }
    mice = std::move(read);
    return noErr;
}

Status useMouse(
    const EventBus& bus, const ProcessSerialNumber& helper, const std::string& mouse, bool inUse) {
    return callMethod(bus, helper, kUse, kUseSignature, mouse.c_str(), static_cast<int>(inUse));
}

Status setMouseDpi(
    const EventBus& bus, const ProcessSerialNumber& helper, const std::string& mouse, std::uint16_t dpi) {
    return callMethod(bus, helper, kSetDpi, kSetDpiSignature, mouse.c_str(), dpi);
}

Status setMouseCodes(const EventBus& bus, const ProcessSerialNumber& helper, const std::string& mouse,
    const std::vector<std::uint16_t>& codes) {
    auto& connection = bus.connection();
    const auto call = connection.newCall(events::uniqueName(helper).c_str(), kPath, kInterface, kSetCodes);
    if (!call || sd_bus_message_append_basic(call.get(), 's', mouse.c_str()) < 0 ||
        sd_bus_message_append_array(call.get(), 'q', codes.data(), codes.size() * sizeof codes[0]) < 0)
        return connectionInvalid;
    Status status = noErr;
    (void)connection.send(call, within(1s), status);
    return status;
}

Status beginMouseSetUp(const EventBus& bus, const ProcessSerialNumber& helper, const std::string& mouse) {
    return callMethod(bus, helper, kBeginSetUp, kMouseSignature, mouse.c_str());
}

Status watchMouseKey(const EventBus& bus, const ProcessSerialNumber& helper, std::uint16_t code) {
    return callMethod(bus, helper, kWatchKey, kWatchKeySignature, code);
}

Status endMouseSetUp(const EventBus& bus, const ProcessSerialNumber& helper) {
    return callMethod(bus, helper, kEndSetUp);
}

Status getHelperState(const EventBus& bus, const ProcessSerialNumber& helper, HelperState& state) {
    Status status = noErr;
    const auto reply = bus.connection().call(events::uniqueName(helper).c_str(), kPath, kProperties, "GetAll",
        within(1s), status, "s", kInterface);
    if (!reply)
        return status;
    HelperState read;
    const char* name = nullptr;
    if (sd_bus_message_enter_container(reply.get(), 'a', "{sv}") < 0)
        return errAECoercionFail;
    while (sd_bus_message_enter_container(reply.get(), 'e', "sv") > 0)
        if (sd_bus_message_read_basic(reply.get(), 's', &name) <= 0 ||
            !readProperty(reply.get(), name, read) || sd_bus_message_exit_container(reply.get()) < 0)
            return errAECoercionFail;
    state = read;
    return noErr;
}

struct HelperListener::Registration {
    Functions functions;
    std::string helper;
    events::SlotPtr own;
    events::SlotPtr properties;

    static int receive(sd_bus_message* signal, void* registration, sd_bus_error*) {
        const auto& self = *static_cast<const Registration*>(registration);
        const auto& functions = self.functions;
        const char* sender = sd_bus_message_get_sender(signal);
        const char* mouse = nullptr;
        int pressed = 0;
        std::uint8_t input = 0;
        std::uint16_t code = 0;
        if (!sender || self.helper != sender)
            return 0;
        if (sd_bus_message_is_signal(signal, kProperties, "PropertiesChanged") > 0)
            call(functions.stateChanged);
        else if (sd_bus_message_is_signal(signal, kInterface, kMiceChanged) > 0)
            call(functions.miceChanged);
        else if (sd_bus_message_is_signal(signal, kInterface, kInputChanged) > 0 &&
                 sd_bus_message_read(signal, kInputChangedSignature, &mouse, &input, &pressed) > 0)
            call(functions.inputChanged, mouse, input, pressed != 0);
        else if (sd_bus_message_is_signal(signal, kInterface, kCodeChanged) > 0 &&
                 sd_bus_message_read(signal, kCodeChangedSignature, &mouse, &code, &pressed) > 0)
            call(functions.codeChanged, mouse, code, pressed != 0);
        return 0;
    }
    template <typename Function, typename... Arguments>
    static void call(const Function& function, Arguments... arguments) {
        if (function)
            function(arguments...);
    }
    [[nodiscard]] bool match(sd_bus* bus, const std::string& rest, events::SlotPtr& slot) {
        sd_bus_slot* raw = nullptr;
        const auto rule = "type='signal',sender='" + helper + "',path='" + kPath + "'," + rest;
        const bool added = sd_bus_add_match(bus, &raw, rule.c_str(), receive, this) >= 0;
        slot.reset(raw);
        return added;
    }
};

HelperListener::~HelperListener() = default;

std::unique_ptr<HelperListener> HelperListener::listen(
    const EventBus& bus, const ProcessSerialNumber& helper, Functions functions) {
    auto registration = std::make_unique<Registration>();
    registration->functions = std::move(functions);
    registration->helper = events::uniqueName(helper);
    auto* connection = bus.connection().bus.get();
    if (!bus.isConnected() ||
        !registration->match(connection, std::string("interface='") + kInterface + "'", registration->own) ||
        !registration->match(connection,
            std::string("interface='") + kProperties + "',member='PropertiesChanged',arg0='" + kInterface +
                "'",
            registration->properties))
        return nullptr;
    std::unique_ptr<HelperListener> listener(new HelperListener);
    listener->m_registration = std::move(registration);
    return listener;
}

} // namespace quorvi
