#include <vector>

#include "events/EventBusPrivate.h"
#include "events/ProcessName.h"
#include "events/SimulatedMouse.h"
#include "events/SimulatedMouseInterface.h"

namespace quorvi {

struct SimulatedMouseListener::Registration {
    Function function;
    events::SlotPtr slot;

    static int receive(sd_bus_message* message, void* registration, sd_bus_error*) {
        using namespace simulatedmouse;
        std::vector<EmittedEvent> frame;
        if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, kEmittedEvent) <= 0)
            return 0;
        for (EmittedEvent event; sd_bus_message_read(message, kEmittedEvent, &event.time, &event.type,
                                     &event.code, &event.value) > 0;)
            frame.push_back(event);
        static_cast<const Registration*>(registration)->function(frame);
        return 0;
    }
};

SimulatedMouseListener::~SimulatedMouseListener() = default;

std::unique_ptr<SimulatedMouseListener> SimulatedMouseListener::listen(
    const EventBus& bus, const ProcessSerialNumber& helper, Function function) {
    auto registration = std::make_unique<Registration>(Registration{std::move(function), nullptr});
    sd_bus_slot* slot = nullptr;
    if (!bus.isConnected() ||
        sd_bus_match_signal(bus.connection().bus.get(), &slot, events::uniqueName(helper).c_str(),
            simulatedmouse::kPath, simulatedmouse::kInterface, simulatedmouse::kEmitted,
            Registration::receive, registration.get()) < 0)
        return nullptr;
    registration->slot.reset(slot);
    std::unique_ptr<SimulatedMouseListener> listener(new SimulatedMouseListener);
    listener->m_registration = std::move(registration);
    return listener;
}

} // namespace quorvi
