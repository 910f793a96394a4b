#include "assignment/Commands.h"

#include <algorithm>
#include <array>

namespace quorvi {

namespace {

constexpr auto buttonsOnly = CommandInputs::Buttons;
constexpr auto all = CommandInputs::ButtonsAndWheel;

// Codes come in blocks of sixteen, with room for later functions of the same kind.
constexpr std::array table{
    Command{commandNone, "No Function", CommandGroup::None, all},

    Command{commandPrimaryClick, "Primary Click", CommandGroup::Click, buttonsOnly},
    Command{2, "Secondary Click", CommandGroup::Click, buttonsOnly},
    Command{3, "Middle Click", CommandGroup::Click, buttonsOnly},
    Command{4, "Double Click", CommandGroup::Click, buttonsOnly},
    Command{5, "Back", CommandGroup::Click, all},
    Command{6, "Forward", CommandGroup::Click, all},

    Command{commandScrollUp, "Scroll Up", CommandGroup::Scrolling, all},
    Command{commandScrollDown, "Scroll Down", CommandGroup::Scrolling, all},
    Command{10, "Scroll Left", CommandGroup::Scrolling, all},
    Command{11, "Scroll Right", CommandGroup::Scrolling, all},

    Command{16, "Sensitivity Up", CommandGroup::Sensitivity, all},
    Command{17, "Sensitivity Down", CommandGroup::Sensitivity, all},
    Command{18, "Next Stage", CommandGroup::Sensitivity, all},
    Command{19, "Lowest Stage While Held", CommandGroup::Sensitivity, buttonsOnly},

    Command{commandSingleKey, "Press Key", CommandGroup::Programmed, all},
    Command{commandRunMacro, "Run Macro", CommandGroup::Programmed, all},
    Command{commandSwitchProfile, "Switch to Profile", CommandGroup::Programmed, all},
    Command{32, "Next Profile", CommandGroup::Programmed, all},
    Command{33, "Previous Profile", CommandGroup::Programmed, all},

    Command{80, "Play or Pause", CommandGroup::Media, all},
    Command{81, "Next Track", CommandGroup::Media, all},
    Command{82, "Previous Track", CommandGroup::Media, all},
    Command{83, "Stop Playing", CommandGroup::Media, all},
    Command{84, "Volume Up", CommandGroup::Media, all},
    Command{85, "Volume Down", CommandGroup::Media, all},
    Command{86, "Mute", CommandGroup::Media, all},

    Command{96, "Page Up", CommandGroup::Navigation, all},
    Command{97, "Page Down", CommandGroup::Navigation, all},
    Command{98, "Home", CommandGroup::Navigation, all},
    Command{99, "End", CommandGroup::Navigation, all},
    Command{100, "Next Tab", CommandGroup::Navigation, all},
    Command{101, "Previous Tab", CommandGroup::Navigation, all},
    Command{102, "Zoom In", CommandGroup::Navigation, all},
    Command{103, "Zoom Out", CommandGroup::Navigation, all},

    Command{112, "Copy", CommandGroup::Editing, all},
    Command{113, "Cut", CommandGroup::Editing, all},
    Command{114, "Paste", CommandGroup::Editing, all},
    Command{115, "Undo", CommandGroup::Editing, all},
    Command{116, "Redo", CommandGroup::Editing, all},
    Command{117, "Select All", CommandGroup::Editing, all},

    Command{128, "Show Desktop", CommandGroup::Desktop, all},
    Command{129, "Switch Window", CommandGroup::Desktop, all},
    Command{130, "Close Window", CommandGroup::Desktop, all},
    Command{131, "Take Screenshot", CommandGroup::Desktop, all},
    Command{132, "Lock Screen", CommandGroup::Desktop, all},
};

constexpr std::array forButtons{
    CommandGroupPlace{CommandGroup::Click, nullptr, false},
    CommandGroupPlace{CommandGroup::Scrolling, "Scrolling", true},
    CommandGroupPlace{CommandGroup::Sensitivity, "Sensitivity", false},
    CommandGroupPlace{CommandGroup::Media, "Media", false},
    CommandGroupPlace{CommandGroup::Navigation, "Navigation", false},
    CommandGroupPlace{CommandGroup::Editing, "Editing", false},
    CommandGroupPlace{CommandGroup::Desktop, "Desktop", false},
    CommandGroupPlace{CommandGroup::Programmed, nullptr, true},
    CommandGroupPlace{CommandGroup::None, nullptr, true},
};

// On the wheel scrolling is what is wanted first.
constexpr std::array forWheel{
    CommandGroupPlace{CommandGroup::Scrolling, nullptr, false},
    CommandGroupPlace{CommandGroup::Click, nullptr, true},
    CommandGroupPlace{CommandGroup::Sensitivity, "Sensitivity", true},
    CommandGroupPlace{CommandGroup::Media, "Media", false},
    CommandGroupPlace{CommandGroup::Navigation, "Navigation", false},
    CommandGroupPlace{CommandGroup::Editing, "Editing", false},
    CommandGroupPlace{CommandGroup::Desktop, "Desktop", false},
    CommandGroupPlace{CommandGroup::Programmed, nullptr, true},
    CommandGroupPlace{CommandGroup::None, nullptr, true},
};

} // namespace

std::span<const Command> commands() {
    return table;
}

std::span<const CommandGroupPlace> buttonMenuGroups() {
    return forButtons;
}

std::span<const CommandGroupPlace> wheelMenuGroups() {
    return forWheel;
}

const Command* findCommand(int code) {
    const auto found = std::ranges::find(table, code, &Command::code);
    return found == table.end() ? nullptr : &*found;
}

} // namespace quorvi
