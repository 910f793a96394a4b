// The functions that an input of the mouse can be given: one table, from which the menus of the buttons tab
// and the help page are made. A code is stored in settings files and in the mouse, so it keeps its meaning
// for ever.
#pragma once

#include <cstdint>
#include <span>

namespace quorvi {

/// The codes that the panel itself knows. All others it only stores.
inline constexpr int commandNone = 0;
inline constexpr int commandPrimaryClick = 1;
inline constexpr int commandScrollUp = 8;
inline constexpr int commandScrollDown = 9;
inline constexpr int commandSwitchProfile = 34; ///< param1: number of the profile, from 1
inline constexpr int commandSingleKey = 49;     ///< param1: USB usage of the key, param2: USB modifier bits
inline constexpr int commandRunMacro = 65;      ///< param1: "macroid" of the macro, param2: 1

enum class CommandGroup : std::uint8_t {
    None,
    Click,
    Scrolling,
    Sensitivity,
    Media,
    Navigation,
    Editing,
    Desktop,
    Programmed,
};

/// Which inputs can have a function: the buttons (1 to 7), or the wheel (8 and 9) too. A turn of the wheel
/// has no release, so what is held down or clicked is for buttons only.
enum class CommandInputs : std::uint8_t { Buttons, ButtonsAndWheel };

struct Command {
    std::uint8_t code;
    const char* title; ///< English, a key of the string table
    CommandGroup group;
    CommandInputs inputs;
};

/// How the commands of a group stand in a menu: under its title in a submenu, or without one (nullptr) among
/// the items of the menu itself.
struct CommandGroupPlace {
    CommandGroup group;
    const char* submenuTitle;
    bool separatorBefore;
};

/// All commands, each group in the order in which it is shown.
[[nodiscard]] std::span<const Command> commands();

/// The groups of the two menus in order.
[[nodiscard]] std::span<const CommandGroupPlace> buttonMenuGroups();
[[nodiscard]] std::span<const CommandGroupPlace> wheelMenuGroups();

/// The command with the code; nullptr when there is none.
[[nodiscard]] const Command* findCommand(int code);

} // namespace quorvi
