#include "engine/EventNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include <linux/input-event-codes.h>

namespace quorvi::test {

namespace {

struct Name {
    const char* name;
    std::uint16_t type;
    std::uint16_t code;
};

constexpr auto kNames = std::to_array<Name>({
    {"REL_X", EV_REL, REL_X},
    {"REL_Y", EV_REL, REL_Y},
    {"REL_WHEEL", EV_REL, REL_WHEEL},
    {"REL_HWHEEL", EV_REL, REL_HWHEEL},
    {"REL_WHEEL_HI_RES", EV_REL, REL_WHEEL_HI_RES},
    {"REL_HWHEEL_HI_RES", EV_REL, REL_HWHEEL_HI_RES},
    {"REL_DIAL", EV_REL, REL_DIAL},
    {"BTN_LEFT", EV_KEY, BTN_LEFT},
    {"BTN_RIGHT", EV_KEY, BTN_RIGHT},
    {"BTN_MIDDLE", EV_KEY, BTN_MIDDLE},
    {"BTN_SIDE", EV_KEY, BTN_SIDE},
    {"BTN_EXTRA", EV_KEY, BTN_EXTRA},
    {"BTN_FORWARD", EV_KEY, BTN_FORWARD},
    {"BTN_BACK", EV_KEY, BTN_BACK},
    {"BTN_TASK", EV_KEY, BTN_TASK},
    {"KEY_A", EV_KEY, KEY_A},
    {"KEY_B", EV_KEY, KEY_B},
    {"KEY_C", EV_KEY, KEY_C},
    {"KEY_D", EV_KEY, KEY_D},
    {"KEY_L", EV_KEY, KEY_L},
    {"KEY_Q", EV_KEY, KEY_Q},
    {"KEY_V", EV_KEY, KEY_V},
    {"KEY_X", EV_KEY, KEY_X},
    {"KEY_Z", EV_KEY, KEY_Z},
    {"KEY_TAB", EV_KEY, KEY_TAB},
    {"KEY_F4", EV_KEY, KEY_F4},
    {"KEY_F13", EV_KEY, KEY_F13},
    {"KEY_SYSRQ", EV_KEY, KEY_SYSRQ},
    {"KEY_HOME", EV_KEY, KEY_HOME},
    {"KEY_END", EV_KEY, KEY_END},
    {"KEY_PAGEUP", EV_KEY, KEY_PAGEUP},
    {"KEY_PAGEDOWN", EV_KEY, KEY_PAGEDOWN},
    {"KEY_KPPLUS", EV_KEY, KEY_KPPLUS},
    {"KEY_KPMINUS", EV_KEY, KEY_KPMINUS},
    {"KEY_PLAYPAUSE", EV_KEY, KEY_PLAYPAUSE},
    {"KEY_NEXTSONG", EV_KEY, KEY_NEXTSONG},
    {"KEY_PREVIOUSSONG", EV_KEY, KEY_PREVIOUSSONG},
    {"KEY_STOPCD", EV_KEY, KEY_STOPCD},
    {"KEY_VOLUMEUP", EV_KEY, KEY_VOLUMEUP},
    {"KEY_VOLUMEDOWN", EV_KEY, KEY_VOLUMEDOWN},
    {"KEY_MUTE", EV_KEY, KEY_MUTE},
    {"KEY_LEFTCTRL", EV_KEY, KEY_LEFTCTRL},
    {"KEY_LEFTSHIFT", EV_KEY, KEY_LEFTSHIFT},
    {"KEY_LEFTALT", EV_KEY, KEY_LEFTALT},
    {"KEY_LEFTMETA", EV_KEY, KEY_LEFTMETA},
    {"KEY_RIGHTCTRL", EV_KEY, KEY_RIGHTCTRL},
    {"KEY_RIGHTSHIFT", EV_KEY, KEY_RIGHTSHIFT},
    {"KEY_RIGHTALT", EV_KEY, KEY_RIGHTALT},
    {"KEY_RIGHTMETA", EV_KEY, KEY_RIGHTMETA},
    {"KEY_POWER", EV_KEY, KEY_POWER},
});

} // namespace

std::string nameOfEvent(std::uint16_t type, std::uint16_t code) {
    const auto found = std::ranges::find_if(
        kNames, [=](const Name& name) { return name.type == type && name.code == code; });
    return found == kNames.end() ? std::to_string(type) + "/" + std::to_string(code) : found->name;
}

std::pair<std::uint16_t, std::uint16_t> codeOfEvent(const std::string& name) {
    const auto found = std::ranges::find_if(kNames, [&](const Name& entry) { return name == entry.name; });
    EXPECT_NE(found, kNames.end()) << name;
    return found == kNames.end() ? std::pair<std::uint16_t, std::uint16_t>{}
                                 : std::pair{found->type, found->code};
}

} // namespace quorvi::test
