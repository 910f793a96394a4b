#include "macros/TextKeystrokes.h"

#include <algorithm>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/VirtualKeys.h"
#include "macros/LayoutLevels.h"

namespace quorvi {

namespace {

constexpr std::uint8_t kReturnUsage = 0x28;
constexpr std::uint8_t kTabUsage = 0x2B;

std::uint8_t modifiersOf(unsigned held) {
    unsigned modifiers = 0;
    if (held & shiftHeld)
        modifiers |= shiftModifier;
    if (held & altGrHeld)
        modifiers |= optionModifier;
    return modifierByte(static_cast<std::uint16_t>(modifiers));
}

/// Whether there already is a way with the same modifiers.
bool isKnown(const std::vector<Keystrokes>& ways, const Keystroke& stroke) {
    return std::ranges::any_of(ways, [&](const Keystrokes& way) { return way.back().held == stroke.held; });
}

} // namespace

TextKeystrokes::TextKeystrokes(const KeyboardLayout& layout)
    : m_layout(layout), m_choices(hasAltGr(layout) ? modifierChoices : altGrHeld) {
    m_ways[u'\n'] = {{{kReturnUsage, 0}}};
    m_ways[u'\t'] = {{{kTabUsage, 0}}};
    collect(false);
    collect(true);
}

/// All keys without modifiers first, then all with Shift, and so on.
template <typename Visit>
void TextKeystrokes::forEachStroke(bool keypad, const Visit& visit) const {
    for (unsigned held = 0; held < m_choices; ++held)
        for (std::uint8_t key = 0; key < virtualKeyCount; ++key)
            if (const std::uint8_t usage = AdbToUsbKeycode(key); usage != 0 && isKeypadKey(key) == keypad)
                visit(key, Keystroke{usage, held});
}

void TextKeystrokes::collect(bool keypad) {
    std::map<char16_t, std::vector<Keystrokes>> ways;
    forEachStroke(keypad, [&](std::uint8_t key, const Keystroke& stroke) {
        std::uint32_t deadKey = 0;
        const KeyTranslation typed = m_layout.translate(key, modifiersOf(stroke.held), deadKey);
        if (!typed.character || !isTypedCharacter(*typed.character))
            return;
        std::vector<Keystrokes>& known = ways[*typed.character];
        if (!isKnown(known, stroke))
            known.push_back({stroke});
    });
    m_ways.merge(ways); // which keeps existing ways
}

void TextKeystrokes::collectDeadKeys() {
    forEachStroke(false, [&](std::uint8_t key, const Keystroke& stroke) {
        std::uint32_t deadKey = 0;
        static_cast<void>(m_layout.translate(key, modifiersOf(stroke.held), deadKey));
        if (deadKey != 0)
            collectBehind(stroke, deadKey);
    });
}

void TextKeystrokes::collectBehind(const Keystroke& dead, std::uint32_t deadKey) {
    std::map<char16_t, std::vector<Keystrokes>> ways;
    forEachStroke(false, [&](std::uint8_t key, const Keystroke& stroke) {
        std::uint32_t state = deadKey;
        const KeyTranslation typed = m_layout.translate(key, modifiersOf(stroke.held), state);
        if (!typed.character || !isTypedCharacter(*typed.character))
            return;
        std::vector<Keystrokes>& known = ways[*typed.character];
        if (!isKnown(known, stroke))
            known.push_back({dead, stroke});
    });
    m_ways.merge(ways);
}

const std::vector<Keystrokes>& TextKeystrokes::waysToType(char16_t character) {
    static const std::vector<Keystrokes> none;
    auto found = m_ways.find(character);
    if (found == m_ways.end() && !m_knowsDeadKeys) {
        m_knowsDeadKeys = true;
        collectDeadKeys();
        found = m_ways.find(character);
    }
    return found == m_ways.end() ? none : found->second;
}

} // namespace quorvi
