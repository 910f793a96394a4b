// The names of dated copies: "2026-11-22T17-33-05.123Z-day.quorviSettings". Private to this library.
#pragma once

#include <optional>
#include <string>

#include "history/History.h"

namespace quorvi {

/// The copy with its name, which sorts by time: universal time, so that no two of a day when clocks are put
/// back have the same one. The time is cut to milliseconds.
[[nodiscard]] DatedCopy datedCopy(std::chrono::system_clock::time_point time, CopyReason reason);

/// The copy of that name; nothing for a name that datedCopy() does not give.
[[nodiscard]] std::optional<DatedCopy> copyOfName(const std::string& name);

} // namespace quorvi
