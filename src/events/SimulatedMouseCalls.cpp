#include "events/EventBusPrivate.h"
#include "events/ProcessName.h"
#include "events/SimulatedMouse.h"
#include "events/SimulatedMouseInterface.h"

namespace quorvi {

namespace {

using namespace simulatedmouse;

constexpr std::chrono::seconds kCallTimeout{1};

EventBus::Private::Deadline deadline() {
    return std::chrono::steady_clock::now() + kCallTimeout;
}

template <typename... Arguments>
Status callMethod(const EventBus& bus, const ProcessSerialNumber& helper, const char* method,
    const char* signature = "", Arguments... arguments) {
    Status status = noErr;
    (void)bus.connection().call(events::uniqueName(helper).c_str(), kPath, kInterface, method, deadline(),
        status, signature, arguments...);
    return status;
}

/// Queries the property, enters the variant and calls the reader.
template <typename Read>
Status getProperty(const EventBus& bus, const ProcessSerialNumber& helper, const char* property,
    const char* signature, Read&& read) {
    Status status = noErr;
    const auto reply = bus.connection().call(events::uniqueName(helper).c_str(), kPath,
        "org.freedesktop.DBus.Properties", "Get", deadline(), status, "ss", kInterface, property);
    if (!reply)
        return status;
    const bool entered = sd_bus_message_enter_container(reply.get(), 'v', signature) > 0;
    return entered && read(reply.get()) ? noErr : errAECoercionFail;
}

Status getBoolean(
    const EventBus& bus, const ProcessSerialNumber& helper, const char* property, bool& result) {
    return getProperty(bus, helper, property, "b", [&](sd_bus_message* reply) {
        int value = 0;
        if (sd_bus_message_read_basic(reply, 'b', &value) <= 0)
            return false;
        result = value != 0;
        return true;
    });
}

Status getNumber(
    const EventBus& bus, const ProcessSerialNumber& helper, const char* property, std::uint32_t& result) {
    return getProperty(bus, helper, property, kRunningSignature,
        [&](sd_bus_message* reply) { return sd_bus_message_read_basic(reply, 'u', &result) > 0; });
}

} // namespace

Status attachSimulatedMouse(const EventBus& bus, const ProcessSerialNumber& helper) {
    return callMethod(bus, helper, kAttach);
}

Status detachSimulatedMouse(const EventBus& bus, const ProcessSerialNumber& helper) {
    return callMethod(bus, helper, kDetach);
}

Status getSimulatedMouseAttached(const EventBus& bus, const ProcessSerialNumber& helper, bool& attached) {
    return getBoolean(bus, helper, kAttached, attached);
}

Status getSimulatedMouseRecording(const EventBus& bus, const ProcessSerialNumber& helper, bool& recording) {
    return getBoolean(bus, helper, kRecording, recording);
}

Status getSimulatedMouseProfile(
    const EventBus& bus, const ProcessSerialNumber& helper, std::uint32_t& profile) {
    return getNumber(bus, helper, kProfile, profile);
}

Status getSimulatedMouseStage(const EventBus& bus, const ProcessSerialNumber& helper, std::uint32_t& stage) {
    return getNumber(bus, helper, kStage, stage);
}

Status pressSimulatedMouse(const EventBus& bus, const ProcessSerialNumber& helper, std::uint8_t input) {
    return callMethod(bus, helper, kPress, kInputSignature, input);
}

Status releaseSimulatedMouse(const EventBus& bus, const ProcessSerialNumber& helper, std::uint8_t input) {
    return callMethod(bus, helper, kRelease, kInputSignature, input);
}

Status moveSimulatedMouse(
    const EventBus& bus, const ProcessSerialNumber& helper, std::int32_t x, std::int32_t y) {
    return callMethod(bus, helper, kMove, kMoveSignature, x, y);
}

Status getSimulatedMouseRecord(const EventBus& bus, const ProcessSerialNumber& helper, EventBytes& record) {
    return getProperty(bus, helper, kRecord, kRecordSignature, [&](sd_bus_message* reply) {
        const void* data = nullptr;
        std::size_t size = 0;
        if (sd_bus_message_read_array(reply, 'y', &data, &size) < 0)
            return false;
        const auto* bytes = static_cast<const std::uint8_t*>(data);
        record.assign(bytes, bytes + size);
        return true;
    });
}

} // namespace quorvi
