// Recognises the application of a window.
#pragma once

#include "helper/front/DesktopEntries.h"
#include "helper/front/FrontApplication.h"
#include "helper/front/FrontWindow.h"
#include "helper/front/ProcessFacts.h"

namespace quorvi::front {

/// Finds the desktop entry, in this order: by the display's name for it, the window's class, the process's
/// game, its systemd unit, its program. Without an entry the application has only its class and its program.
[[nodiscard]] FrontApplication recognise(
    const FrontWindow& window, const DesktopEntries& entries, const ProcessFacts& process);

} // namespace quorvi::front
