#include "model/Commands.h"

#include <algorithm>
#include <array>

#include "model/CommandCodes.h"

namespace quorvi {

namespace {

constexpr auto kButtonsOnly = CommandInputs::Buttons;
constexpr auto kAll = CommandInputs::ButtonsAndWheel;

// Codes come in blocks of sixteen, with room for later functions of the same kind.
constexpr std::array kTable{
    Command{commands::click, "Primary Click", CommandGroup::Click, kButtonsOnly},
    Command{2, "Secondary Click", CommandGroup::Click, kButtonsOnly},
    Command{3, "Middle Click", CommandGroup::Click, kButtonsOnly},
    Command{4, "Double Click", CommandGroup::Click, kButtonsOnly},
    Command{5, "Back", CommandGroup::Click, kAll},
    Command{6, "Forward", CommandGroup::Click, kAll},

    Command{8, "Scroll Up", CommandGroup::Scrolling, kAll},
    Command{9, "Scroll Down", CommandGroup::Scrolling, kAll},
    Command{10, "Scroll Left", CommandGroup::Scrolling, kAll},
    Command{11, "Scroll Right", CommandGroup::Scrolling, kAll},

    Command{16, "Sensitivity Up", CommandGroup::Sensitivity, kAll},
    Command{17, "Sensitivity Down", CommandGroup::Sensitivity, kAll},
    Command{18, "Next Stage", CommandGroup::Sensitivity, kAll},
    Command{19, "Lowest Stage While Held", CommandGroup::Sensitivity, kButtonsOnly},

    Command{80, "Play or Pause", CommandGroup::Media, kAll},
    Command{81, "Next Track", CommandGroup::Media, kAll},
    Command{82, "Previous Track", CommandGroup::Media, kAll},
    Command{83, "Stop Playing", CommandGroup::Media, kAll},
    Command{84, "Volume Up", CommandGroup::Media, kAll},
    Command{85, "Volume Down", CommandGroup::Media, kAll},
    Command{86, "Mute", CommandGroup::Media, kAll},

    Command{96, "Page Up", CommandGroup::Navigation, kAll},
    Command{97, "Page Down", CommandGroup::Navigation, kAll},
    Command{98, "Home", CommandGroup::Navigation, kAll},
    Command{99, "End", CommandGroup::Navigation, kAll},
    Command{100, "Next Tab", CommandGroup::Navigation, kAll},
    Command{101, "Previous Tab", CommandGroup::Navigation, kAll},
    Command{102, "Zoom In", CommandGroup::Navigation, kAll},
    Command{103, "Zoom Out", CommandGroup::Navigation, kAll},

    Command{112, "Copy", CommandGroup::Editing, kAll},
    Command{113, "Cut", CommandGroup::Editing, kAll},
    Command{114, "Paste", CommandGroup::Editing, kAll},
    Command{115, "Undo", CommandGroup::Editing, kAll},
    Command{116, "Redo", CommandGroup::Editing, kAll},
    Command{117, "Select All", CommandGroup::Editing, kAll},

    Command{128, "Show Desktop", CommandGroup::Desktop, kAll},
    Command{129, "Switch Window", CommandGroup::Desktop, kAll},
    Command{130, "Close Window", CommandGroup::Desktop, kAll},
    Command{131, "Take Screenshot", CommandGroup::Desktop, kAll},
    Command{132, "Lock Screen", CommandGroup::Desktop, kAll},

    Command{commands::singleKey, "Press Key", CommandGroup::Programmed, kAll},
    Command{commands::runMacro, "Run Macro", CommandGroup::Programmed, kAll},
    Command{commands::switchToProfile, "Switch to Profile", CommandGroup::Programmed, kAll},
    Command{32, "Next Profile", CommandGroup::Programmed, kAll},
    Command{33, "Previous Profile", CommandGroup::Programmed, kAll},

    Command{commands::noFunction, "No Function", CommandGroup::None, kAll},
};

constexpr std::array kForButtons{
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

// Scrolling comes first, being the wheel's usual function.
constexpr std::array kForWheel{
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

constexpr std::array kGroupTitles{
    "Clicks", "Scrolling", "Sensitivity", "Media", "Navigation", "Editing", "Desktop", "Your own", "Off"};
static_assert(kGroupTitles.size() == static_cast<std::size_t>(CommandGroup::None) + 1);

} // namespace

std::span<const Command> commandTable() {
    return kTable;
}

std::span<const CommandGroupPlace> buttonMenuGroups() {
    return kForButtons;
}

std::span<const CommandGroupPlace> wheelMenuGroups() {
    return kForWheel;
}

const char* titleOfGroup(CommandGroup group) {
    return kGroupTitles[static_cast<std::size_t>(group)];
}

const Command* findCommand(int code) {
    const auto found = std::ranges::find(kTable, code, &Command::code);
    return found == kTable.end() ? nullptr : &*found;
}

} // namespace quorvi
