// show-record SETTINGS.plist: what a driver would write to the mouse, and what it says of the active profile.

#include <cstdio>
#include <memory>

#include "keyboard/KeyCodeConversion.h"
#include "model/CommandCodes.h"
#include "model/ConfigFileStore.h"
#include "model/ConfigMapping.h"
#include "model/Keys.h"
#include "model/Sensitivity.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: show-record SETTINGS.plist\n", stderr);
        return 2;
    }
    constexpr std::int32_t oldestVersion = 6;
    const auto tree = quorvi::KyvarLoadConfigFromFile(quorvi::keys::storage, oldestVersion, argv[1], {});
    const auto record = std::make_unique<quorvi::ConfigRecord>();
    if (!quorvi::KyvarConfigDictToStruct(tree, record.get())) {
        std::fputs("show-record: the file holds no settings that a mouse takes\n", stderr);
        return 1;
    }

    const auto& settings = record->settings;
    std::printf("%zu bytes, profile %d, stage %d, %d x %d DPI\n", sizeof *record, settings.profileId,
        settings.stage, quorvi::codeToDpi(settings.dpiXCode), quorvi::codeToDpi(settings.dpiYCode));
    if (settings.profileId < 1 || settings.profileId > record->profiles.size())
        return 0;
    for (const auto& button : record->profiles[settings.profileId - 1U].buttons) {
        if (button.button == 0)
            continue;
        std::printf(
            "button %d: command %d, %d, %d", button.button, button.command, button.param1, button.param2);
        if (button.command == quorvi::commands::singleKey)
            std::printf(" (virtual key 0x%02X)", quorvi::UsbToAdbKeycode(button.param1));
        std::puts("");
    }
    return 0;
}
