#include "helper/mice/InputdLink.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "events/InputdInterface.h"

namespace quorvi {

using namespace inputd;
using std::chrono::milliseconds;
using namespace std::chrono_literals;

namespace {

constexpr char kOwnerRule[] =
    "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
    "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='com.kyvar.Inputd1'";
constexpr char kSignalRule[] =
    "type='signal',sender='com.kyvar.Inputd1',path='/com/kyvar/Inputd1',interface='com.kyvar.Inputd1'";

/// Starting a service of the system may take a while.
constexpr milliseconds kServicePatience = 25s;

InputdResult resultOf(std::string_view error) {
    constexpr auto missing = std::to_array<std::string_view>(
        {"org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.NameHasNoOwner",
            "org.freedesktop.DBus.Error.UnknownObject", "org.freedesktop.DBus.Error.UnknownMethod"});
    if (error.empty())
        return InputdResult::done;
    if (error == kErrorAccessDenied)
        return InputdResult::denied;
    if (error == kErrorNoSuchMouse)
        return InputdResult::noSuchMouse;
    if (std::ranges::find(missing, error) != missing.end() ||
        error.starts_with("org.freedesktop.DBus.Error.Spawn"))
        return InputdResult::noService;
    return InputdResult::failed;
}

std::vector<ListedMouse> readMice(sd_bus_message* reply) {
    std::vector<ListedMouse> mice;
    if (sd_bus_message_enter_container(reply, 'a', kMouse) < 0)
        return mice;
    const char* id = nullptr;
    const char* name = nullptr;
    ListedMouse mouse;
    int used = 0;
    while (sd_bus_message_read(reply, kMouse, &id, &name, &mouse.vendor, &mouse.product, &mouse.dpi, &used) >
           0) {
        mouse.id = id;
        mouse.name = name;
        mouse.used = used != 0;
        mice.push_back(mouse);
    }
    return mice;
}

bool readStatus(sd_bus_message* message, MouseStatus& status) {
    const char* state = nullptr;
    if (sd_bus_message_read(message, kStatus, &state, &status.profile, &status.stage, &status.dpiX,
            &status.dpiY, &status.inputs) <= 0)
        return false;
    status.state = state;
    return true;
}

template <typename Codes>
void appendCodes(sd_bus_message* message, const char* option, const Codes& codes) {
    sd_bus_message_open_container(message, 'e', "sv");
    sd_bus_message_append_basic(message, 's', option);
    sd_bus_message_open_container(message, 'v', "aq");
    sd_bus_message_append_array(message, 'q', codes.data(), codes.size() * sizeof codes[0]);
    sd_bus_message_close_container(message);
    sd_bus_message_close_container(message);
}

/// The service refuses values out of bounds, which the engine would treat as 1.
std::array<double, limits::profiles> inBounds(const std::array<float, limits::profiles>& factors) {
    std::array<double, limits::profiles> bounded{};
    std::ranges::transform(factors, bounded.begin(),
        [](float factor) { return factor >= 0.1F && factor <= 2.0F ? double{factor} : 1.0; });
    // The lowest factor is not exact as a float, and may be below the bound as a double.
    for (auto& factor : bounded)
        factor = std::clamp(factor, 0.1, 2.0);
    return bounded;
}

void appendOptions(sd_bus_message* message, const engine::Options& options) {
    const auto factors = inBounds(options.acceleration);
    sd_bus_message_open_container(message, 'a', "{sv}");
    sd_bus_message_append(message, "{sv}", kOptionSensorDpi, "q", options.sensorDpi);
    sd_bus_message_open_container(message, 'e', "sv");
    sd_bus_message_append_basic(message, 's', kOptionAcceleration);
    sd_bus_message_open_container(message, 'v', "ad");
    sd_bus_message_append_array(message, 'd', factors.data(), sizeof factors);
    sd_bus_message_close_container(message);
    sd_bus_message_close_container(message);
    appendCodes(message, kOptionButtonCodes, options.buttonCodes);
    appendCodes(message, kOptionLetterKeys, options.letterKeys);
    sd_bus_message_append(message, "{sv}", kOptionQuietMacros, "b", static_cast<int>(options.macrosAreQuiet));
    sd_bus_message_close_container(message);
}

} // namespace

InputdLink::InputdLink(sd_bus* bus, InputdListener& listener)
    : m_bus(bus), m_listener(listener), m_calls(bus),
      m_ownerMatch(events::matchSignal(bus, kOwnerRule, ownerChanged, this)),
      m_signalMatch(events::matchSignal(bus, kSignalRule, signalled, this)) {
    m_calls.call(
        m_calls.newCall(events::kBusName, events::kBusPath, events::kBusName, "GetNameOwner", "s", kName),
        kServicePatience, [this](sd_bus_message* reply, std::string_view error) {
            const char* owner = nullptr;
            if (error.empty() && sd_bus_message_read_basic(reply, 's', &owner) > 0 && m_owner.empty())
                setOwner(owner);
        });
}

int InputdLink::ownerChanged(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) {
    const char* name = nullptr;
    const char* before = nullptr;
    const char* owner = nullptr;
    if (events::isOfTheBus(signal) && sd_bus_message_read(signal, "sss", &name, &before, &owner) > 0)
        static_cast<InputdLink*>(self)->setOwner(owner);
    return 0;
}

void InputdLink::setOwner(std::string owner) {
    const auto before = std::exchange(m_owner, std::move(owner));
    if (before == m_owner)
        return;
    if (!before.empty())
        m_listener.serviceLeft();
    if (!m_owner.empty())
        m_listener.serviceCame();
}

int InputdLink::signalled(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) {
    auto& link = *static_cast<InputdLink*>(self);
    // Despite the sender in the rule, signals that any program addresses to this connection pass.
    const char* sender = sd_bus_message_get_sender(signal);
    if (sender && !link.m_owner.empty() && link.m_owner == sender)
        link.receive(signal);
    return 0;
}

void InputdLink::receive(sd_bus_message* signal) {
    const char* id = nullptr;
    if (sd_bus_message_is_signal(signal, kInterface, kMiceChanged) > 0)
        return m_listener.miceChanged();
    if (sd_bus_message_read_basic(signal, 's', &id) <= 0)
        return;
    if (sd_bus_message_is_signal(signal, kInterface, kStatusChanged) > 0) {
        if (MouseStatus status; readStatus(signal, status))
            m_listener.statusChanged(id, status);
        return;
    }
    int pressed = 0;
    std::uint8_t input = 0;
    std::uint16_t code = 0;
    if (sd_bus_message_is_signal(signal, kInterface, kInputChanged) > 0 &&
        sd_bus_message_read(signal, "yb", &input, &pressed) > 0)
        m_listener.inputChanged(id, input, pressed != 0);
    else if (sd_bus_message_is_signal(signal, kInterface, kCodeChanged) > 0 &&
             sd_bus_message_read(signal, "qb", &code, &pressed) > 0)
        m_listener.codeChanged(id, code, pressed != 0);
}

events::MessageRef InputdLink::newCall(const char* method) const {
    auto call = m_calls.newCall(kName, kPath, kInterface, method);
    if (call)
        sd_bus_message_set_auto_start(call.get(), 0);
    return call;
}

void InputdLink::callFor(const events::MessageRef& call, milliseconds timeout, const Answer& answer) {
    if (!m_calls.call(call, timeout,
            [answer](sd_bus_message* /*reply*/, std::string_view error) { answer(resultOf(error)); }))
        answer(InputdResult::noService);
}

void InputdLink::list(const std::function<void(InputdResult, std::vector<ListedMouse>)>& answer) {
    const auto call = m_calls.newCall(kName, kPath, kInterface, kListMice);
    if (!m_calls.call(call, kServicePatience, [answer](sd_bus_message* reply, std::string_view error) {
            answer(resultOf(error), error.empty() ? readMice(reply) : std::vector<ListedMouse>());
        }))
        answer(InputdResult::noService, {});
}

void InputdLink::use(const std::string& id, std::span<const std::uint8_t> record,
    const engine::Options& options, const Answer& answer) {
    const auto call = newCall(kUse);
    if (call) {
        sd_bus_message_append_basic(call.get(), 's', id.c_str());
        sd_bus_message_append_array(call.get(), 'y', record.data(), record.size());
        appendOptions(call.get(), options);
    }
    callFor(call, events::kForEver, answer);
}

void InputdLink::setOptions(const std::string& id, const engine::Options& options, const Answer& answer) {
    const auto call = newCall(kSetOptions);
    if (call) {
        sd_bus_message_append_basic(call.get(), 's', id.c_str());
        appendOptions(call.get(), options);
    }
    callFor(call, kServicePatience, answer);
}

void InputdLink::setRecord(
    const std::string& id, std::span<const std::uint8_t> record, const Answer& answer) {
    const auto call = newCall(kSetRecord);
    if (call) {
        sd_bus_message_append_basic(call.get(), 's', id.c_str());
        sd_bus_message_append_array(call.get(), 'y', record.data(), record.size());
    }
    callFor(call, kServicePatience, answer);
}

void InputdLink::forget(const std::string& id) {
    const auto call = newCall(kForget);
    if (call && sd_bus_message_append_basic(call.get(), 's', id.c_str()) >= 0)
        callFor(call, kServicePatience, [](InputdResult) {});
}

void InputdLink::status(const std::string& id, std::function<void(const MouseStatus&)> answer) {
    const auto call = newCall(kGetStatus);
    if (!call || sd_bus_message_append_basic(call.get(), 's', id.c_str()) < 0)
        return;
    m_calls.call(
        call, kServicePatience, [answer = std::move(answer)](sd_bus_message* reply, std::string_view error) {
            if (MouseStatus status; error.empty() && readStatus(reply, status))
                answer(status);
        });
}

void InputdLink::watch(bool inputs) {
    const auto call = newCall(kWatch);
    if (call && sd_bus_message_append(call.get(), kWatchArguments, static_cast<int>(inputs)) >= 0)
        callFor(call, kServicePatience, [](InputdResult) {});
}

void InputdLink::watchCodes(const std::string& id, bool wanted) {
    const auto call = newCall(kWatchCodes);
    if (call &&
        sd_bus_message_append(call.get(), kWatchCodesArguments, id.c_str(), static_cast<int>(wanted)) >= 0)
        callFor(call, kServicePatience, [](InputdResult) {});
}

} // namespace quorvi
