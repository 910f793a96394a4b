#include "model/Commands.h"

#include <algorithm>
#include <array>

#include "model/CommandCodes.h"

namespace quorvi {

namespace {

constexpr auto buttonsOnly = CommandInputs::Buttons;
constexpr auto all = CommandInputs::ButtonsAndWheel;

// Codes come in blocks of sixteen, with room for later functions of the same kind.
constexpr std::array table{
    Command{commands::click, "Primary Click", CommandGroup::Click, buttonsOnly},
    Command{2, "Secondary Click", CommandGroup::Click, buttonsOnly},
    Command{3, "Middle Click", CommandGroup::Click, buttonsOnly},
    Command{4, "Double Click", CommandGroup::Click, buttonsOnly},
    Command{5, "Back", CommandGroup::Click, all},
    Command{6, "Forward", CommandGroup::Click, all},

    Command{8, "Scroll Up", CommandGroup::Scrolling, all},
    Command{9, "Scroll Down", CommandGroup::Scrolling, all},
    Command{10, "Scroll Left", CommandGroup::Scrolling, all},
    Command{11, "Scroll Right", CommandGroup::Scrolling, all},

    Command{16, "Sensitivity Up", CommandGroup::Sensitivity, all},
    Command{17, "Sensitivity Down", CommandGroup::Sensitivity, all},
    Command{18, "Next Stage", CommandGroup::Sensitivity, all},
    Command{19, "Lowest Stage While Held", CommandGroup::Sensitivity, buttonsOnly},

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

    Command{commands::singleKey, "Press Key", CommandGroup::Programmed, all},
    Command{commands::runMacro, "Run Macro", CommandGroup::Programmed, all},
    Command{commands::switchToProfile, "Switch to Profile", CommandGroup::Programmed, all},
    Command{32, "Next Profile", CommandGroup::Programmed, all},
    Command{33, "Previous Profile", CommandGroup::Programmed, all},

    Command{commands::noFunction, "No Function", CommandGroup::None, all},
};

constexpr std::array forButtons{
    CommandGroupPlace{CommandGroup::Click, false, false},
    CommandGroupPlace{CommandGroup::Scrolling, true, true},
    CommandGroupPlace{CommandGroup::Sensitivity, true, false},
    CommandGroupPlace{CommandGroup::Media, true, false},
    CommandGroupPlace{CommandGroup::Navigation, true, false},
    CommandGroupPlace{CommandGroup::Editing, true, false},
    CommandGroupPlace{CommandGroup::Desktop, true, false},
    CommandGroupPlace{CommandGroup::Programmed, false, true},
    CommandGroupPlace{CommandGroup::None, false, true},
};

// On the wheel scrolling is what is wanted first.
constexpr std::array forWheel{
    CommandGroupPlace{CommandGroup::Scrolling, false, false},
    CommandGroupPlace{CommandGroup::Click, false, true},
    CommandGroupPlace{CommandGroup::Sensitivity, true, true},
    CommandGroupPlace{CommandGroup::Media, true, false},
    CommandGroupPlace{CommandGroup::Navigation, true, false},
    CommandGroupPlace{CommandGroup::Editing, true, false},
    CommandGroupPlace{CommandGroup::Desktop, true, false},
    CommandGroupPlace{CommandGroup::Programmed, false, true},
    CommandGroupPlace{CommandGroup::None, false, true},
};

constexpr std::array groupTitles{
    "Clicks", "Scrolling", "Sensitivity", "Media", "Navigation", "Editing", "Desktop", "Your own", "Off"};
static_assert(groupTitles.size() == static_cast<std::size_t>(CommandGroup::None) + 1);

} // namespace

std::span<const Command> commandTable() {
    return table;
}

std::span<const CommandGroupPlace> buttonMenuGroups() {
    return forButtons;
}

std::span<const CommandGroupPlace> wheelMenuGroups() {
    return forWheel;
}

const char* titleOfGroup(CommandGroup group) {
    return groupTitles[static_cast<std::size_t>(group)];
}

const Command* findCommand(int code) {
    const auto found = std::ranges::find(table, code, &Command::code);
    return found == table.end() ? nullptr : &*found;
}

} // namespace quorvi
