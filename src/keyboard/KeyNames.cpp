#include "keyboard/KeyNames.h"

#include <algorithm>
#include <array>
#include <utility>

#include "keyboard/KeyboardLayout.h"
#include "keyboard/MacRoman.h"
#include "keyboard/VirtualKeys.h"

namespace quorvi {

namespace {

struct KeyNaming {
    KeyNameLocalizer localizer;
    std::array<std::uint8_t, virtualKeyCount> characters{};
};

KeyNaming& naming() {
    static KeyNaming state;
    return state;
}

constexpr std::uint8_t kFirstModifierKey = 55;
constexpr std::array<std::u16string_view, 5> kModifierKeyNames{
    u"Command", u"Shift", u"Caps Lock", u"Option", u"Control"};

struct ModifierName {
    std::uint16_t bit;
    std::u16string_view name;
};

// In the order of the names.
constexpr std::array<ModifierName, 5> kModifierNames{{
    {controlModifier, u"Control"},
    {commandModifier, u"Command"},
    {optionModifier, u"Option"},
    {shiftModifier, u"Shift"},
    {capsLockModifier, u"Caps Lock"},
}};

struct ControlCharacterName {
    std::uint8_t character;
    std::u16string_view name;
};

constexpr std::array<ControlCharacterName, 15> kControlCharacterNames{{
    {0x1C, u"left"},
    {0x1D, u"right"},
    {0x1E, u"up"},
    {0x1F, u"down"},
    {0x01, u"home"},
    {0x03, u"enter"},
    {0x04, u"end"},
    {0x05, u"help"},
    {0x08, u"delete"},
    {0x09, u"tab"},
    {0x0B, u"page up"},
    {0x0C, u"page down"},
    {0x0D, u"return"},
    {0x20, u"space"},
    {0x7F, u"forward delete"},
}};

constexpr std::uint8_t kFunctionKeyCharacter = 0x10;
constexpr std::uint8_t kEscapeCharacter = 0x1B;
constexpr std::uint8_t kDeleteCharacter = 0x7F;

bool isInKeypadRange(std::uint32_t keyCode) {
    return keyCode >= 65 && keyCode <= 92;
}

void appendJoined(std::u16string& text, std::u16string_view part) {
    if (!text.empty())
        text += u'+';
    text += part;
}

std::u16string functionKeyName(std::uint32_t keyCode) {
    std::u16string name = KeyNamesLocStr(u"F");
    const auto found = std::find(functionKeys.begin(), functionKeys.end(), keyCode);
    if (found != functionKeys.end()) {
        const std::string number = std::to_string(found - functionKeys.begin() + 1);
        name.append(number.begin(), number.end());
    }
    return name;
}

std::u16string_view controlCharacterName(std::uint8_t character) {
    const auto found = std::find_if(kControlCharacterNames.begin(), kControlCharacterNames.end(),
        [character](const ControlCharacterName& entry) { return entry.character == character; });
    return found == kControlCharacterNames.end() ? u"???" : found->name;
}

/// The PC name of a key, unless the layout makes it type a character; empty for any other key.
std::u16string_view nameOnPc(std::uint32_t keyCode) {
    if (keyCode == menuKey && GetKeyChar(keyCode) == 0)
        return u"menu";
    return keyCode == keypadClearKey ? u"num lock" : u"";
}

} // namespace

std::int32_t GetKeyboardInformation(KeyNameLocalizer localizer) {
    KeyNaming& state = naming();
    state.localizer = std::move(localizer);

    KeyboardLayoutRef layout;
    OldStyleLayout oldStyle;
    const std::int32_t status = CompatibleGetKeyboardLayout(&layout, &oldStyle);
    if (status != keyboardLayoutFound)
        return status;
    for (std::uint8_t key = 0; key < virtualKeyCount - 1; ++key)
        state.characters[key] = CompatibleKeyTranslate(key, commandModifier, layout.get(), oldStyle, nullptr);
    return status;
}

std::u16string KeyNamesLocStr(std::u16string_view text) {
    const KeyNameLocalizer& localizer = naming().localizer;
    std::u16string localized = localizer ? localizer(text) : std::u16string();
    return localized.empty() ? std::u16string(text) : localized;
}

std::uint8_t GetKeyChar(std::uint32_t keyCode) {
    return naming().characters[keyCode & 0x7F];
}

std::u16string GetKeyName(std::uint32_t keyCode) {
    if (keyCode >= kFirstModifierKey && keyCode < kFirstModifierKey + kModifierKeyNames.size())
        return KeyNamesLocStr(kModifierKeyNames[keyCode - kFirstModifierKey]);
    const std::uint8_t character = GetKeyChar(keyCode);
    if (character > 0x20 && character != kDeleteCharacter)
        return {MacRomanToUnicode(character)};
    if (keyCode == noKey)
        return {};
    if (character == kEscapeCharacter)
        return KeyNamesLocStr(keyCode == escapeKey ? u"esc" : u"clear");
    if (character == kFunctionKeyCharacter)
        return functionKeyName(keyCode);
    return KeyNamesLocStr(controlCharacterName(character));
}

std::u16string GetModifiersName(std::uint32_t keyCode, std::uint32_t modifiers) {
    std::u16string text;
    for (const ModifierName& modifier : kModifierNames)
        if ((modifiers & modifier.bit) != 0)
            appendJoined(text, KeyNamesLocStr(modifier.name));
    if (isInKeypadRange(keyCode))
        appendJoined(text, KeyNamesLocStr(u"Num"));
    return text;
}

std::u16string GetKeyCombinationName(std::uint32_t keyCode, std::uint32_t modifiers) {
    const std::uint32_t key = keyCode & 0xFF;
    std::u16string text = GetModifiersName(key, modifiers & 0xFFFF);
    if (key == noKey)
        return text.empty() ? KeyNamesLocStr(u"(none)") : text;
    appendJoined(text, GetKeyName(key));
    return text;
}

std::u16string shownKeyCombination(std::uint32_t keyCode, std::uint32_t modifiers) {
    const std::u16string_view name = nameOnPc(keyCode & 0xFF);
    if (name.empty())
        return GetKeyCombinationName(keyCode, modifiers);
    std::u16string text = GetModifiersName(noKey, modifiers & 0xFFFF);
    appendJoined(text, KeyNamesLocStr(name));
    return text;
}

} // namespace quorvi
