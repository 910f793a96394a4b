// The functions that an input of the mouse can be given: one table, from which the menus of the buttons tab
// are made and which quorvictl prints. A code is stored in settings files and in the mouse, so it keeps its
// meaning for ever. The codes that mean something to the panel itself are named in model/CommandCodes.h.
#pragma once

#include <cstdint>
#include <span>

namespace quorvi {

enum class CommandGroup : std::uint8_t {
    Click,
    Scrolling,
    Sensitivity,
    Media,
    Navigation,
    Editing,
    Desktop,
    Programmed,
    None,
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

/// How the commands of a group stand in a menu: in a submenu of the group's title, or among the items of the
/// menu itself.
struct CommandGroupPlace {
    CommandGroup group;
    bool inSubmenu;
    bool separatorBefore;
};

/// All commands, group after group, each in the order in which it is shown.
[[nodiscard]] std::span<const Command> commandTable();

/// The group's title: English, a key of the string table where a menu shows it.
[[nodiscard]] const char* titleOfGroup(CommandGroup group);

/// The groups of the two menus in order.
[[nodiscard]] std::span<const CommandGroupPlace> buttonMenuGroups();
[[nodiscard]] std::span<const CommandGroupPlace> wheelMenuGroups();

/// The command with the code; nullptr when there is none.
[[nodiscard]] const Command* findCommand(int code);

} // namespace quorvi
