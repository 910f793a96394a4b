#include "platform/events/EventBusPrivate.h"
#include "platform/events/SimulatedMouse.h"
#include "platform/events/SimulatedMouseInterface.h"

namespace quorvi {

namespace {

using namespace simulatedmouse;

SimulatedMouseDevice& deviceOf(void* userdata) {
    return *static_cast<SimulatedMouseDevice*>(userdata);
}

int receiveAttach(sd_bus_message* call, void* device, sd_bus_error*) {
    deviceOf(device).attach();
    return sd_bus_reply_method_return(call, "");
}

int receiveDetach(sd_bus_message* call, void* device, sd_bus_error*) {
    deviceOf(device).detach();
    return sd_bus_reply_method_return(call, "");
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

const sd_bus_vtable g_vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD(kAttach, "", "", receiveAttach, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kDetach, "", "", receiveDetach, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY(kAttached, kAttachedSignature, giveAttached, 0, 0),
    SD_BUS_PROPERTY(kRecording, kRecordingSignature, giveRecording, 0, 0),
    SD_BUS_PROPERTY(kRecord, kRecordSignature, giveRecord, 0, 0),
    SD_BUS_VTABLE_END,
};

} // namespace

struct SimulatedMouseObject::Registration {
    events::SlotPtr slot;
};

SimulatedMouseObject::~SimulatedMouseObject() = default;

std::unique_ptr<SimulatedMouseObject> SimulatedMouseObject::offer(
    const EventBus& bus, SimulatedMouseDevice& device) {
    sd_bus_slot* slot = nullptr;
    if (!bus.isConnected() ||
        sd_bus_add_object_vtable(bus.connection().bus.get(), &slot, kPath, kInterface, g_vtable, &device) < 0)
        return nullptr;
    std::unique_ptr<SimulatedMouseObject> object(new SimulatedMouseObject);
    object->m_registration = std::make_unique<Registration>(Registration{events::SlotPtr(slot)});
    return object;
}

} // namespace quorvi
