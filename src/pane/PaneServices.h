// What the controller is given to work with. The plug-in passes the user's session; a test passes what it
// wants to watch.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

#include "base/FileCalls.h"
#include "events/EventBus.h"
#include "loginitems/LoginItemStore.h"
#include "platform/Bundle.h"
#include "platform/Clock.h"
#include "platform/KeyboardLayoutWatcher.h"
#include "platform/Workspace.h"

namespace quorvi {

struct PaneServices {
    Bundle bundle;                              ///< the pane's own bundle
    std::filesystem::path homeFolder;           ///< the settings file is below it
    FileCalls& files = systemFileCalls();       ///< the settings file is written by these
    std::filesystem::path historyFolder;        ///< dated copies are kept in it; none are when it is empty
    std::unique_ptr<EventBus> bus;              ///< null without a session bus: nothing is sent then
    std::unique_ptr<Workspace> workspace;       ///< never null
    std::unique_ptr<LoginItemStore> loginItems; ///< never null
    /// Called once, before the first key is named. Empty: keys are named by whatever layout is the current
    /// one then.
    std::function<std::unique_ptr<KeyboardLayoutWatcher>()> watchKeyboardLayout;
    /// What recordings take the time from, in seconds; never empty.
    std::function<double()> clock = steadySeconds;
    /// What dated copies take the date from; never empty.
    std::function<std::chrono::system_clock::time_point()> dateAndTime = std::chrono::system_clock::now;
    /// Calls the action once when so many seconds have passed, unless the context is gone by then; never
    /// empty.
    std::function<void(double seconds, QObject* context, std::function<void()> action)> callLater =
        callAfterSeconds;
};

} // namespace quorvi
