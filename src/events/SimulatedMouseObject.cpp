#include "events/EventBusPrivate.h"
#include "events/EventsInterface.h"
#include "events/SimulatedMouse.h"
#include "events/SimulatedMouseInterface.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

using namespace simulatedmouse;

std::uint64_t timeOf(const input_event& event) {
    return static_cast<std::uint64_t>(event.input_event_sec) * 1'000'000 +
           static_cast<std::uint64_t>(event.input_event_usec);
}

SimulatedMouseDevice& deviceOf(void* userdata) {
    return *static_cast<SimulatedMouseDevice*>(userdata);
}

int requireAttached(const SimulatedMouseDevice& device, sd_bus_error* error) {
    return device.attached() ? 0 : sd_bus_error_set(error, kErrorNotAttached, "The mouse is not plugged in");
}

int receiveAttach(sd_bus_message* call, void* device, sd_bus_error*) {
    deviceOf(device).attach();
    return sd_bus_reply_method_return(call, "");
}

int receiveDetach(sd_bus_message* call, void* device, sd_bus_error*) {
    deviceOf(device).detach();
    return sd_bus_reply_method_return(call, "");
}

/// Returns a negative number and sets the error unless the call names an input of a plugged-in mouse.
int readInput(
    sd_bus_message* call, const SimulatedMouseDevice& device, std::uint8_t& input, sd_bus_error* error) {
    if (const int read = sd_bus_message_read(call, kInputSignature, &input); read < 0)
        return read;
    if (input < 1 || input > limits::buttons)
        return sd_bus_error_set(error, events::kErrorInvalidArguments, "Inputs are 1 to 9");
    return requireAttached(device, error);
}

template <void (SimulatedMouseDevice::*act)(std::uint8_t)>
int receiveInput(sd_bus_message* call, void* device, sd_bus_error* error) {
    std::uint8_t input = 0;
    if (const int read = readInput(call, deviceOf(device), input, error); read < 0)
        return read;
    (deviceOf(device).*act)(input);
    return sd_bus_reply_method_return(call, "");
}

constexpr auto kReceivePress = receiveInput<&SimulatedMouseDevice::press>;
constexpr auto kReceiveRelease = receiveInput<&SimulatedMouseDevice::release>;

int receiveMove(sd_bus_message* call, void* device, sd_bus_error* error) {
    std::int32_t x = 0;
    std::int32_t y = 0;
    if (const int read = sd_bus_message_read(call, kMoveSignature, &x, &y); read < 0)
        return read;
    if (const int refused = requireAttached(deviceOf(device), error); refused < 0)
        return refused;
    deviceOf(device).move(x, y);
    return sd_bus_reply_method_return(call, "");
}

int giveProfile(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* device, sd_bus_error*) {
    return sd_bus_message_append(reply, kRunningSignature, deviceOf(device).profile());
}

int giveStage(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* device, sd_bus_error*) {
    return sd_bus_message_append(reply, kRunningSignature, deviceOf(device).stage());
}

int giveAttached(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* device, sd_bus_error*) {
    return sd_bus_message_append(reply, kAttachedSignature, int{deviceOf(device).attached()});
}

int giveRecording(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* device, sd_bus_error*) {
    return sd_bus_message_append(reply, kRecordingSignature, int{deviceOf(device).recording()});
}

int giveRecord(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* device, sd_bus_error*) {
    const auto record = deviceOf(device).record();
    return sd_bus_message_append_array(reply, 'y', record.data(), record.size());
}

const sd_bus_vtable kG_vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD(kAttach, "", "", receiveAttach, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kDetach, "", "", receiveDetach, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kPress, kInputSignature, kInputNames, "",
        /* no others */, kReceivePress, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kRelease, kInputSignature, kInputNames, "",
        /* no others */, kReceiveRelease, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kMove, kMoveSignature, kMoveNames, "",
        /* no others */, receiveMove, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL_WITH_NAMES(kEmitted, kEmittedSignature, kEmittedNames, 0),
    SD_BUS_PROPERTY(kAttached, kAttachedSignature, giveAttached, 0, 0),
    SD_BUS_PROPERTY(kRecording, kRecordingSignature, giveRecording, 0, 0),
    SD_BUS_PROPERTY(kRecord, kRecordSignature, giveRecord, 0, 0),
    SD_BUS_PROPERTY(kProfile, kRunningSignature, giveProfile, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(kStage, kRunningSignature, giveStage, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_VTABLE_END,
};

} // namespace

struct SimulatedMouseObject::Registration {
    sd_bus* bus;
    events::SlotPtr slot;
};

void SimulatedMouseObject::tellEmitted(std::span<const input_event> frame) const {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_signal(m_registration->bus, &made, kPath, kInterface, kEmitted) < 0)
        return;
    const auto message = events::adopt(made);
    sd_bus_message_open_container(made, SD_BUS_TYPE_ARRAY, kEmittedEvent);
    for (const input_event& event : frame)
        sd_bus_message_append(made, kEmittedEvent, timeOf(event), event.type, event.code, event.value);
    sd_bus_message_close_container(made);
    sd_bus_send(m_registration->bus, made, nullptr);
}

void SimulatedMouseObject::tellRunning() const {
    sd_bus_emit_properties_changed(m_registration->bus, kPath, kInterface, kProfile, kStage, nullptr);
}

SimulatedMouseObject::~SimulatedMouseObject() = default;

std::unique_ptr<SimulatedMouseObject> SimulatedMouseObject::offer(
    const EventBus& bus, SimulatedMouseDevice& device) {
    sd_bus_slot* slot = nullptr;
    if (!bus.isConnected() || sd_bus_add_object_vtable(bus.connection().bus.get(), &slot, kPath, kInterface,
                                  kG_vtable, &device) < 0)
        return nullptr;
    std::unique_ptr<SimulatedMouseObject> object(new SimulatedMouseObject);
    object->m_registration =
        std::make_unique<Registration>(Registration{bus.connection().bus.get(), events::SlotPtr(slot)});
    return object;
}

} // namespace quorvi
