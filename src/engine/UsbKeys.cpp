#include "engine/UsbKeys.h"

namespace quorvi::engine {

namespace {

// From usage 0 on, as in the kernel's own table for USB keyboards.
constexpr auto kUsbKeys = std::to_array<std::uint16_t>({
    0, 0, 0, 0, KEY_A, KEY_B, KEY_C, KEY_D, KEY_E, KEY_F, KEY_G, KEY_H, KEY_I, KEY_J, KEY_K, KEY_L, // 0x00
    KEY_M, KEY_N, KEY_O, KEY_P, KEY_Q, KEY_R, KEY_S, KEY_T, KEY_U, KEY_V, KEY_W, KEY_X,             // 0x10
    KEY_Y, KEY_Z, KEY_1, KEY_2, KEY_3, KEY_4, KEY_5, KEY_6, KEY_7, KEY_8, KEY_9, KEY_0,             // 0x1C
    KEY_ENTER, KEY_ESC, KEY_BACKSPACE, KEY_TAB, KEY_SPACE, KEY_MINUS, KEY_EQUAL, KEY_LEFTBRACE,     // 0x28
    KEY_RIGHTBRACE, KEY_BACKSLASH, KEY_BACKSLASH, KEY_SEMICOLON, KEY_APOSTROPHE, KEY_GRAVE,         // 0x30
    KEY_COMMA, KEY_DOT, KEY_SLASH, KEY_CAPSLOCK, KEY_F1, KEY_F2, KEY_F3, KEY_F4, KEY_F5, KEY_F6,    // 0x36
    KEY_F7, KEY_F8, KEY_F9, KEY_F10, KEY_F11, KEY_F12, KEY_SYSRQ, KEY_SCROLLLOCK, KEY_PAUSE,        // 0x40
    KEY_INSERT, KEY_HOME, KEY_PAGEUP, KEY_DELETE, KEY_END, KEY_PAGEDOWN, KEY_RIGHT, KEY_LEFT,       // 0x49
    KEY_DOWN, KEY_UP, KEY_NUMLOCK, KEY_KPSLASH, KEY_KPASTERISK, KEY_KPMINUS, KEY_KPPLUS,            // 0x51
    KEY_KPENTER, KEY_KP1, KEY_KP2, KEY_KP3, KEY_KP4, KEY_KP5, KEY_KP6, KEY_KP7, KEY_KP8,            // 0x58
    KEY_KP9, KEY_KP0, KEY_KPDOT, KEY_102ND, KEY_COMPOSE, 0, KEY_KPEQUAL, KEY_F13, KEY_F14,          // 0x61
    KEY_F15, KEY_F16, KEY_F17, KEY_F18, KEY_F19, KEY_F20, KEY_F21, KEY_F22, KEY_F23, KEY_F24,       // 0x6A
    KEY_OPEN, KEY_HELP, KEY_PROPS, KEY_FRONT, KEY_STOP, KEY_AGAIN, KEY_UNDO, KEY_CUT, KEY_COPY,     // 0x74
    KEY_PASTE, KEY_FIND, KEY_MUTE, KEY_VOLUMEUP, KEY_VOLUMEDOWN, 0, 0, 0, KEY_KPCOMMA, 0,           // 0x7D
    KEY_RO, KEY_KATAKANAHIRAGANA, KEY_YEN, KEY_HENKAN, KEY_MUHENKAN, KEY_KPJPCOMMA, 0, 0, 0,        // 0x87
    KEY_HANGEUL, KEY_HANJA, KEY_KATAKANA, KEY_HIRAGANA, KEY_ZENKAKUHANKAKU,                         // 0x90
});
static_assert(kUsbKeys.size() == 0x95);
static_assert(kUsbKeys[0x1C] == KEY_Y && kUsbKeys[0x28] == KEY_ENTER && kUsbKeys[0x30] == KEY_RIGHTBRACE);
static_assert(kUsbKeys[0x36] == KEY_COMMA && kUsbKeys[0x40] == KEY_F7 && kUsbKeys[0x49] == KEY_INSERT);
static_assert(kUsbKeys[0x51] == KEY_DOWN && kUsbKeys[0x58] == KEY_KPENTER && kUsbKeys[0x61] == KEY_KP9);
static_assert(kUsbKeys[0x6A] == KEY_F15 && kUsbKeys[0x74] == KEY_OPEN && kUsbKeys[0x7D] == KEY_PASTE);
static_assert(kUsbKeys[0x87] == KEY_RO && kUsbKeys[0x90] == KEY_HANGEUL);

constexpr std::uint32_t kFirstModifierUsage = 0xE0;
constexpr std::array<std::uint16_t, 8> kModifierUsages{KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTALT, KEY_LEFTMETA,
    KEY_RIGHTCTRL, KEY_RIGHTSHIFT, KEY_RIGHTALT, KEY_RIGHTMETA};

} // namespace

std::uint16_t keyOfUsage(std::uint32_t usage) {
    if (usage < kUsbKeys.size())
        return kUsbKeys[usage];
    const auto modifier = usage - kFirstModifierUsage; // wraps round below
    return modifier < kModifierUsages.size() ? kModifierUsages[modifier] : std::uint16_t{KEY_RESERVED};
}

std::uint8_t usageOfKey(std::uint16_t key) {
    constexpr std::uint8_t last = 0xFF;
    for (std::uint8_t usage = 1; key != KEY_RESERVED && usage < last; ++usage)
        if (keyOfUsage(usage) == key)
            return usage;
    return 0;
}

} // namespace quorvi::engine
