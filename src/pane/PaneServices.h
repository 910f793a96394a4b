// The controller's environment. The plug-in passes the user's session; a test passes objects to watch.
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
    std::filesystem::path homeFolder;           ///< contains the settings file
    FileCalls& files = systemFileCalls();       ///< the system calls for writing the settings file
    std::filesystem::path historyFolder;        ///< the folder of dated copies; empty for none
    std::unique_ptr<EventBus> bus;              ///< null without a session bus: then no messages are sent
    std::unique_ptr<Workspace> workspace;       ///< never null
    std::unique_ptr<LoginItemStore> loginItems; ///< never null
    /// Called once, before the first key is named. If empty, keys are named in the layout current at that
    /// time.
    std::function<std::unique_ptr<KeyboardLayoutWatcher>()> watchKeyboardLayout;
    /// The clock of recordings, in seconds; never empty.
    std::function<double()> clock = steadySeconds;
    /// The clock of dated copies; never empty.
    std::function<std::chrono::system_clock::time_point()> dateAndTime = std::chrono::system_clock::now;
    /// Calls the action once after that many seconds, unless the context is gone by then; never empty.
    std::function<void(double seconds, QObject* context, std::function<void()> action)> callLater =
        callAfterSeconds;
};

} // namespace quorvi
