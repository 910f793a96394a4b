// Reads the helper's answers and signals, for HelperFollower.
#pragma once

#include <vector>

#include "events/HelperNews.h"
#include "events/SdBus.h"

namespace quorvi::events {

/// The first mice in an answer to ListMice, at most `most`; none if it has another form.
[[nodiscard]] std::vector<ListedHelperMouse> readMice(sd_bus_message* list, std::size_t most);

/// Updates the state from the known properties of "a{sv}" that have the right type; leaves the rest
/// unchanged.
void readProperties(sd_bus_message* properties, HelperNews& state);

} // namespace quorvi::events
