#include "engine/Functions.h"

#include <algorithm>
#include <array>

#include <linux/input-event-codes.h>

#include "engine/Options.h"
#include "engine/UsbKeys.h"
#include "model/CommandCodes.h"
#include "model/Commands.h"

namespace quorvi::engine {

namespace {

constexpr Function act(std::int32_t code, Act what) {
    return {static_cast<std::uint8_t>(code), what, 0, 0, 0, {}};
}

constexpr Function key(std::int32_t code, std::uint16_t key, std::uint8_t modifiers = 0) {
    return {static_cast<std::uint8_t>(code), Act::Keys, key, 0, modifiers, {}};
}

constexpr Function letter(std::uint8_t code, char letter, std::uint8_t modifiers) {
    return {code, Act::Letter, 0, letter, modifiers, {}};
}

constexpr Function scroll(std::uint8_t code, std::uint16_t axis, std::int8_t sign) {
    return {code, Act::Scroll, 0, 0, 0, {axis, sign}};
}

// Zooming uses the keypad's keys, which type plus and minus in every layout. Desktops use the side buttons
// for back and forward, whatever the mouse calls its own.
constexpr std::array kTable{
    key(commands::click, BTN_LEFT),
    key(2, BTN_RIGHT),
    key(3, BTN_MIDDLE),
    Function{4, Act::DoubleClick, BTN_LEFT, 0, 0, {}},
    key(5, BTN_SIDE),
    key(6, BTN_EXTRA),

    scroll(8, REL_WHEEL, 1),
    scroll(9, REL_WHEEL, -1),
    scroll(10, REL_HWHEEL, -1),
    scroll(11, REL_HWHEEL, 1),

    act(16, Act::StageUp),
    act(17, Act::StageDown),
    act(18, Act::NextStage),
    act(19, Act::LowestStage),

    key(80, KEY_PLAYPAUSE),
    key(81, KEY_NEXTSONG),
    key(82, KEY_PREVIOUSSONG),
    key(83, KEY_STOPCD),
    key(84, KEY_VOLUMEUP),
    key(85, KEY_VOLUMEDOWN),
    key(86, KEY_MUTE),

    key(96, KEY_PAGEUP),
    key(97, KEY_PAGEDOWN),
    key(98, KEY_HOME),
    key(99, KEY_END),
    key(100, KEY_TAB, leftControl),
    key(101, KEY_TAB, leftControl | leftShift),
    key(102, KEY_KPPLUS, leftControl),
    key(103, KEY_KPMINUS, leftControl),

    letter(112, 'c', leftControl),
    letter(113, 'x', leftControl),
    letter(114, 'v', leftControl),
    letter(115, 'z', leftControl),
    letter(116, 'z', leftControl | leftShift),
    letter(117, 'a', leftControl),

    letter(128, 'd', leftSuper),
    key(129, KEY_TAB, leftAlt),
    key(130, KEY_F4, leftAlt),
    key(131, KEY_SYSRQ),
    letter(132, 'l', leftSuper),

    act(commands::singleKey, Act::SingleKey),
    act(commands::runMacro, Act::RunMacro),
    act(commands::switchToProfile, Act::SwitchToProfile),
    act(32, Act::NextProfile),
    act(33, Act::PreviousProfile),

    act(commands::noFunction, Act::Nothing),
};

constexpr Function kNothing = act(commands::noFunction, Act::Nothing);

bool isOffered(std::uint8_t code, std::uint8_t input) {
    const Command* command = findCommand(code);
    return command && (input <= buttonInputs || command->inputs == CommandInputs::ButtonsAndWheel);
}

} // namespace

std::span<const Function> functionTable() {
    return kTable;
}

const Function& functionOf(const ButtonAssignment& assignment, std::uint8_t input) {
    if (assignment.button == 0 || !isOffered(assignment.command, input))
        return kNothing;
    const auto found = std::ranges::find(kTable, assignment.command, &Function::code);
    return found == kTable.end() ? kNothing : *found;
}

} // namespace quorvi::engine
