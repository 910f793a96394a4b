// Names and serial numbers of processes, and their form on the bus.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "events/EventTypes.h"

namespace quorvi::events {

/// Equal in length and in every byte, the letters A to Z in any case.
[[nodiscard]] bool sameProcessName(std::string_view a, std::string_view b);

/// ":H.L", the connection's unique name on the bus.
[[nodiscard]] std::string uniqueName(const ProcessSerialNumber& psn);
/// std::nullopt unless the text is ":H.L" with two decimal numbers of 32 bits.
[[nodiscard]] std::optional<ProcessSerialNumber> psnFromUniqueName(std::string_view name);

/// "com.kyvar." and the process name.
[[nodiscard]] std::string wellKnownName(std::string_view processName);
/// The part after "com.kyvar."; std::nullopt if the name does not start with it or ends there.
[[nodiscard]] std::optional<std::string_view> processNameOf(std::string_view wellKnownName);

} // namespace quorvi::events
