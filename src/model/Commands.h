// The functions that an input of the mouse can be given: one table, used for the menus of the buttons tab and
// printed by quorvictl. Codes are stored in settings files and in the mouse, so their meaning never changes.
// Codes that the panel itself interprets have names in model/CommandCodes.h.
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
/// has no release, so functions that are held down or clicked are for buttons only.
enum class CommandInputs : std::uint8_t { Buttons, ButtonsAndWheel };

struct Command {
    std::uint8_t code;
    const char* title; ///< English, a key of the string table
    CommandGroup group;
    CommandInputs inputs;
};

/// How a menu shows the commands of a group: in a submenu with the group's title, or among its own items.
struct CommandGroupPlace {
    CommandGroup group;
    bool inSubmenu;
    bool separatorBefore;
};

/// All commands, group after group, in display order.
[[nodiscard]] std::span<const Command> commandTable();

/// The group's title: English, a key of the string table where a menu shows it.
[[nodiscard]] const char* titleOfGroup(CommandGroup group);

/// The groups of the two menus in order.
[[nodiscard]] std::span<const CommandGroupPlace> buttonMenuGroups();
[[nodiscard]] std::span<const CommandGroupPlace> wheelMenuGroups();

/// The command with the code, or nullptr.
[[nodiscard]] const Command* findCommand(int code);

} // namespace quorvi
