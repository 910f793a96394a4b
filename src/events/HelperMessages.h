// Reads what the helper answers and tells, for HelperFollower.
#pragma once

#include <vector>

#include "events/HelperNews.h"
#include "events/SdBus.h"

namespace quorvi::events {

/// The first of the mice in an answer to ListMice, so many at most; none when it is of another form.
[[nodiscard]] std::vector<ListedHelperMouse> readMice(sd_bus_message* list, std::size_t most);

/// Takes the properties of "a{sv}" over that are known and of the right type, and leaves the rest as it was.
void readProperties(sd_bus_message* properties, HelperNews& state);

} // namespace quorvi::events
