// The names of dated copies: "2026-11-22T17-33-05.123Z-day.quorviSettings". Private to this library.
#pragma once

#include <optional>
#include <string>

#include "history/History.h"

namespace quorvi {

/// The copy with its name, which sorts by time: UTC, so that names stay unique when clocks are put back. The
/// time is cut to milliseconds.
[[nodiscard]] DatedCopy datedCopy(std::chrono::system_clock::time_point time, CopyReason reason);

/// The copy of that name; std::nullopt for a name that datedCopy() does not produce.
[[nodiscard]] std::optional<DatedCopy> copyOfName(const std::string& name);

} // namespace quorvi
