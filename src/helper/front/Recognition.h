// From what a display says of a window to the application that it is of.
#pragma once

#include "helper/front/DesktopEntries.h"
#include "helper/front/FrontApplication.h"
#include "helper/front/FrontWindow.h"
#include "helper/front/ProcessFacts.h"

namespace quorvi::front {

/// The application by its desktop entry: by the name that the display says, by the window's class, by the
/// game that the process is, by the unit that it runs in, by its program; the first that there is an entry
/// for. What has none is known by its class and its program alone.
[[nodiscard]] FrontApplication recognise(
    const FrontWindow& window, const DesktopEntries& entries, const ProcessFacts& process);

} // namespace quorvi::front
