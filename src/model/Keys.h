// The keys of the configuration tree. Compared exactly, case included.
#pragma once

#include <string>
#include <string_view>

namespace quorvi::keys {

/// The key of a settings or defaults file under which the tree is stored.
inline constexpr std::string_view storage = "quorvi";

// The tree.
inline constexpr std::string_view version = "version";
inline constexpr std::string_view firmware = "firmware";
inline constexpr std::string_view settings = "settings";
inline constexpr std::string_view profiles = "profiles";
inline constexpr std::string_view macros = "macros";

// Device-wide settings; a sensitivity stage has the last three as well.
inline constexpr std::string_view profileId = "profileid";
inline constexpr std::string_view pollingRate = "pollingrate";
inline constexpr std::string_view stage = "stage";
inline constexpr std::string_view dpiX = "dpix";
inline constexpr std::string_view dpiY = "dpiy";
inline constexpr std::string_view independentXY = "independentxy";

// A profile; a macro and a step share some of them.
inline constexpr std::string_view name = "name";
inline constexpr std::string_view ledState = "ledstate";
inline constexpr std::string_view defaultStage = "defaultstage";
inline constexpr std::string_view stages = "stages";
inline constexpr std::string_view buttons = "buttons";
inline constexpr std::string_view driver = "driver";

// A button's assignment; a step has a command as well.
inline constexpr std::string_view command = "command";
inline constexpr std::string_view param1 = "param1";
inline constexpr std::string_view param2 = "param2";
inline constexpr std::string_view string = "string"; ///< the menu's text, for other programs to show

// A profile's driver dictionary: the application that it is bound to, and options that are not sent to the
// device.
inline constexpr std::string_view autoSwitch = "autoswitch";
inline constexpr std::string_view application = "application";
inline constexpr std::string_view identifier = "identifier";
inline constexpr std::string_view signature = "signature";
inline constexpr std::string_view executable = "executable";
inline constexpr std::string_view acceleration = "acceleration";
inline constexpr std::string_view enableAcceleration = "enableaccel";
inline constexpr std::string_view sensitivityDisplay = "sensitivityosd";
inline constexpr std::string_view profileDisplay = "profileosd";

// A macro, and a step of it.
inline constexpr std::string_view macroId = "macroid";
inline constexpr std::string_view delay = "delay";
inline constexpr std::string_view steps = "steps";
inline constexpr std::string_view argument = "argument";

/// The key of a button in a profile's "buttons": its number with at least two digits ("01" to "09"). The
/// number must be 0 or more.
[[nodiscard]] inline std::string button(int number) {
    auto key = std::to_string(number);
    if (number < 10)
        key.insert(key.begin(), '0');
    return key;
}

} // namespace quorvi::keys
