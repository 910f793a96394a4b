// Brings windows to the front on a GNOME Shell that evaluates scripts.
#pragma once

#include <chrono>
#include <string>

#include "events/EventBusPrivate.h"

namespace quorvi::test {

/// False when the Shell does not do it.
[[nodiscard]] inline bool bringToFrontOnGnome(const EventBus& bus, const std::string& appId) {
    const std::string script = "global.get_window_actors().map(a => a.meta_window)"
                               ".find(w => w.get_wm_class() === '" +
                               appId + "').activate(0)";
    Status status = noErr;
    const auto answer = bus.connection().call("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell",
        "Eval", std::chrono::steady_clock::now() + std::chrono::seconds(10), status, "s", script.c_str());
    return status == noErr;
}

} // namespace quorvi::test
