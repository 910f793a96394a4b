// Names and serial numbers of processes, and how the bus writes them.
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
/// Nothing unless the text is ":H.L" with two decimal numbers of 32 bits.
[[nodiscard]] std::optional<ProcessSerialNumber> psnFromUniqueName(std::string_view name);

/// "com.kyvar." and the process name.
[[nodiscard]] std::string wellKnownName(std::string_view processName);
/// What follows "com.kyvar."; nothing when the name does not start so or ends there.
[[nodiscard]] std::optional<std::string_view> processNameOf(std::string_view wellKnownName);

} // namespace quorvi::events
