#include "bench/Programs.h"

#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "events/EventBus.h"
#include "model/SettingsDocument.h"
#include "support/ChildProcess.h"

namespace quorvi::bench {

void becomeNewUser(const std::string& home) {
    for (const char* variable :
        {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "QT_QPA_PLATFORM",
            "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "XDG_CURRENT_DESKTOP", "WAYLAND_DISPLAY"})
        unsetenv(variable);
    setenv("HOME", home.c_str(), 1);
    if (!saveSettings(fullConfiguration(), userSettingsPath(home)))
        throw std::runtime_error("the settings cannot be written");
}

void waitForProcess(const std::string& name) {
    const auto bus = EventBus::connect();
    const auto deadline = Clock::now() + test::kPatience;
    while (!bus || bus->findProcessByName(name, nullptr) != noErr) {
        if (!bus || Clock::now() > deadline)
            throw std::runtime_error(name + " does not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

} // namespace quorvi::bench
