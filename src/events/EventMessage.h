// Events in the form of bus messages.
#pragma once

#include "events/EventTypes.h"
#include "events/SdBus.h"

namespace quorvi::events {

/// Appends the arguments of Send. Returns false if a code is not four ASCII characters or a value does not
/// fit its type; the message is then unusable.
[[nodiscard]] bool writeEvent(sd_bus_message* message, const Event& event);
/// Appends the result of Send. Returns false as above.
[[nodiscard]] bool writeParameters(sd_bus_message* message, const Event& event);

/// Reads the arguments of Send; std::nullopt if a code is not four ASCII characters or a value does not fit
/// its type.
[[nodiscard]] std::optional<Event> readEvent(sd_bus_message* message);
/// Adds the result of Send to the event's parameters. Returns false as above.
[[nodiscard]] bool readParameters(sd_bus_message* message, Event& event);

} // namespace quorvi::events
