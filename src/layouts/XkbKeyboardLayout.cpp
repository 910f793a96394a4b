#include "layouts/XkbKeyboardLayout.h"

#include <utility>

#include "keyboard/VirtualKeys.h"
#include "layouts/DeadKeys.h"
#include "layouts/EvdevKeys.h"
#include "layouts/SpecialKeys.h"
#include "layouts/XkbGroup.h"

namespace quorvi {

namespace {

constexpr std::uint32_t kLastUtf16Unit = 0xFFFF;

constexpr KeyTranslation kTypesNothing{true, std::nullopt};
constexpr KeyTranslation kDoesNotFit{false, std::nullopt};

KeyTranslation types(char16_t character) {
    return {true, character};
}

bool holds(std::uint8_t modifiers, std::uint16_t modifier) {
    return (modifiers & modifierByte(modifier)) != 0;
}

/// The control character of a letter or of @ [ \ ] ^ _; any other character unchanged.
char16_t withControl(char16_t character) {
    const bool hasControlCharacter =
        (character >= u'@' && character <= u'_') || (character >= u'a' && character <= u'z');
    return hasControlCharacter ? static_cast<char16_t>(character & 0x1F) : character;
}

/// The character, combined with a preceding dead key.
KeyTranslation behindDeadKey(char16_t character, std::uint32_t& deadKeyState) {
    const std::uint32_t deadKey = std::exchange(deadKeyState, 0);
    if (deadKey == 0)
        return types(character);
    const std::optional<char16_t> composed = composeAccent(deadKey, character);
    return composed ? types(*composed) : kDoesNotFit;
}

class XkbKeyboardLayout final : public KeyboardLayout {
  public:
    XkbKeyboardLayout(XkbGroup typing, std::optional<XkbGroup> shortcuts)
        : m_typing(std::move(typing)), m_shortcuts(std::move(shortcuts)) {}

    [[nodiscard]] KeyTranslation translate(
        std::uint8_t keyCode, std::uint8_t modifiers, std::uint32_t& deadKeyState) const override;

  private:
    [[nodiscard]] xkb_keysym_t symbol(std::uint8_t keyCode, std::uint8_t modifiers) const;

    XkbGroup m_typing;
    std::optional<XkbGroup> m_shortcuts; ///< for Command, if the typing group has no Latin letters
};

xkb_keysym_t XkbKeyboardLayout::symbol(std::uint8_t keyCode, std::uint8_t modifiers) const {
    const std::uint16_t evdevKey = evdevKeycode(keyCode);
    if (evdevKey == 0)
        return XKB_KEY_NoSymbol;
    XkbLevel level;
    if (isKeypadKey(keyCode))
        level.numLock = true; // and no other, because Shift would turn the digits off again
    else
        level = {.shift = holds(modifiers, shiftModifier),
            .capsLock = holds(modifiers, capsLockModifier),
            .levelThree = holds(modifiers, optionModifier)};
    const bool isShortcut = holds(modifiers, commandModifier);
    return (isShortcut && m_shortcuts ? *m_shortcuts : m_typing).symbol(evdevKey, level);
}

KeyTranslation XkbKeyboardLayout::translate(
    std::uint8_t keyCode, std::uint8_t modifiers, std::uint32_t& deadKeyState) const {
    if (const std::optional<char16_t> special = specialKeyCharacter(keyCode))
        return behindDeadKey(*special, deadKeyState);

    const xkb_keysym_t keysym = symbol(keyCode, modifiers);
    const bool isShortcut = holds(modifiers, commandModifier);
    if (isDeadKey(keysym) && deadKeyState == 0 && !isShortcut) {
        deadKeyState = keysym;
        return kTypesNothing;
    }
    const std::uint32_t character =
        isDeadKey(keysym) ? spacingAccent(keysym).value_or(0) : xkb_keysym_to_utf32(keysym);
    if (character == 0)
        return kTypesNothing;
    if (character > kLastUtf16Unit)
        return kDoesNotFit;
    const auto unit = static_cast<char16_t>(character);
    return behindDeadKey(holds(modifiers, controlModifier) ? withControl(unit) : unit, deadKeyState);
}

XkbKeymap keymapFromNames(const KeymapNames& names) {
    const XkbContext context = newXkbContext();
    if (!context)
        return nullptr;
    const xkb_rule_names ruleNames{names.rules.c_str(), names.model.c_str(), names.layout.c_str(),
        names.variant.c_str(), names.options.c_str()};
    return XkbKeymap(xkb_keymap_new_from_names(context.get(), &ruleNames, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

const KeymapNames kUsNames{.rules = {}, .model = {}, .layout = "us", .variant = {}, .options = {}};

/// The group for shortcuts if this group has no Latin letters; std::nullopt if it has them.
std::optional<XkbGroup> groupForShortcuts(xkb_keymap* keymap, xkb_layout_index_t group) {
    if (hasLatinLetters(keymap, group))
        return std::nullopt;
    for (xkb_layout_index_t other = 0; other < xkb_keymap_num_layouts(keymap); ++other)
        if (hasLatinLetters(keymap, other))
            return XkbGroup(keymap, other);
    const XkbKeymap us = keymapFromNames(kUsNames);
    return us ? std::optional(XkbGroup(us.get(), 0)) : std::nullopt;
}

} // namespace

KeyboardLayoutRef makeKeyboardLayout(xkb_keymap* keymap, std::uint32_t group) {
    if (keymap == nullptr)
        return nullptr;
    const xkb_layout_index_t active = group < xkb_keymap_num_layouts(keymap) ? group : 0;
    return std::make_shared<XkbKeyboardLayout>(XkbGroup(keymap, active), groupForShortcuts(keymap, active));
}

KeyboardLayoutRef makeKeyboardLayout(const KeymapNames& names) {
    return makeKeyboardLayout(keymapFromNames(names).get(), 0);
}

KeyboardLayoutRef makeDefaultKeyboardLayout() {
    KeyboardLayoutRef layout = makeKeyboardLayout(configuredKeymapNames());
    return layout ? layout : makeKeyboardLayout(kUsNames);
}

} // namespace quorvi
