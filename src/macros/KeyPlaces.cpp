#include "macros/KeyPlaces.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quorvi {

namespace {

constexpr std::uint8_t kFirstUsage = 0x04;
constexpr std::uint8_t kFirstModifier = 0xE0;

// Indexed by USB usage from 0x04.
constexpr std::array<std::string_view, 112> kNames{"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L",
    "M", "N", "O", "P", "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z", "1", "2", "3", "4", "5", "6", "7",
    "8", "9", "0", "Enter", "Escape", "Backspace", "Tab", "Space", "Minus", "Equals", "Left Bracket",
    "Right Bracket", "Backslash", "", "Semicolon", "Apostrophe", "Grave", "Comma", "Period", "Slash",
    "Caps Lock", "F1", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9", "F10", "F11", "F12", "Print Screen",
    "Scroll Lock", "Pause", "Insert", "Home", "Page Up", "Delete", "End", "Page Down", "Right", "Left",
    "Down", "Up", "Num Lock", "Num /", "Num *", "Num -", "Num +", "Num Enter", "Num 1", "Num 2", "Num 3",
    "Num 4", "Num 5", "Num 6", "Num 7", "Num 8", "Num 9", "Num 0", "Num .", "<", "Menu", "Power",
    "Num =", "F13", "F14", "F15", "F16", "F17", "F18", "F19", "F20", "F21", "F22", "F23", "F24"};

constexpr std::array<std::string_view, 8> kModifierNames{
    "Ctrl", "Shift", "Alt", "Super", "Right Ctrl", "Right Shift", "Right Alt", "Right Super"};

struct OtherName {
    std::string_view name; // in lower case, without blanks
    std::uint8_t usage;
};

constexpr std::array kOtherNames{OtherName{"return", 0x28}, OtherName{"esc", 0x29}, OtherName{"bksp", 0x2A},
    OtherName{"spacebar", 0x2C}, OtherName{"-", 0x2D}, OtherName{"hyphen", 0x2D}, OtherName{"=", 0x2E},
    OtherName{"equal", 0x2E}, OtherName{"[", 0x2F}, OtherName{"]", 0x30}, OtherName{"\\", 0x31},
    OtherName{";", 0x33}, OtherName{"'", 0x34}, OtherName{"quote", 0x34}, OtherName{"`", 0x35},
    OtherName{"backtick", 0x35}, OtherName{".", 0x37}, OtherName{"dot", 0x37}, OtherName{"/", 0x38},
    OtherName{"caps", 0x39}, OtherName{"printscr", 0x46}, OtherName{"prtsc", 0x46}, OtherName{"print", 0x46},
    OtherName{"scroll", 0x47}, OtherName{"break", 0x48}, OtherName{"ins", 0x49}, OtherName{"pgup", 0x4B},
    OtherName{"del", 0x4C}, OtherName{"pgdn", 0x4E}, OtherName{"pgdown", 0x4E}, OtherName{"rightarrow", 0x4F},
    OtherName{"arrowright", 0x4F}, OtherName{"leftarrow", 0x50}, OtherName{"arrowleft", 0x50},
    OtherName{"downarrow", 0x51}, OtherName{"arrowdown", 0x51}, OtherName{"uparrow", 0x52},
    OtherName{"arrowup", 0x52}, OtherName{"less", 0x64}, OtherName{"application", 0x65},
    OtherName{"control", 0xE0}, OtherName{"leftctrl", 0xE0}, OtherName{"leftcontrol", 0xE0},
    OtherName{"leftshift", 0xE1}, OtherName{"option", 0xE2}, OtherName{"leftalt", 0xE2},
    OtherName{"win", 0xE3}, OtherName{"windows", 0xE3}, OtherName{"meta", 0xE3}, OtherName{"command", 0xE3},
    OtherName{"cmd", 0xE3}, OtherName{"leftsuper", 0xE3}, OtherName{"rightcontrol", 0xE4},
    OtherName{"altgr", 0xE6}, OtherName{"rightwin", 0xE7}, OtherName{"rightmeta", 0xE7}};

std::string_view properName(std::uint8_t usage) {
    if (usage >= kFirstModifier && usage < kFirstModifier + kModifierNames.size())
        return kModifierNames[usage - kFirstModifier];
    if (usage >= kFirstUsage && usage < kFirstUsage + kNames.size())
        return kNames[usage - kFirstUsage];
    return {};
}

/// Whether the names are equal without regard to case and blanks.
bool isPlainly(std::string_view name, std::string_view plain) {
    std::string plainName;
    for (const char c : name)
        if (c != ' ')
            plainName += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return plainName == plain;
}

/// The number after "key".
std::optional<std::uint8_t> numberedKey(std::string_view name) {
    constexpr std::string_view kWord = "key";
    if (!name.starts_with(kWord))
        return std::nullopt;
    const std::string_view digits = name.substr(kWord.size());
    std::uint8_t usage = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), usage);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional(usage) : std::nullopt;
}

} // namespace

std::string nameOfKeyPlace(std::uint8_t usage) {
    const std::string_view name = properName(usage);
    return name.empty() ? std::string("key ").append(std::to_string(usage)) : std::string(name);
}

std::optional<std::uint8_t> keyPlaceWithName(std::string_view name) {
    if (name.empty())
        return std::nullopt;
    for (unsigned usage = 0; usage <= UINT8_MAX; ++usage)
        if (isPlainly(properName(static_cast<std::uint8_t>(usage)), name))
            return static_cast<std::uint8_t>(usage);
    const auto* other = std::ranges::find(kOtherNames, name, &OtherName::name);
    return other == kOtherNames.end() ? numberedKey(name) : std::optional(other->usage);
}

} // namespace quorvi
