#include "macros/TypedKeys.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "base/Pattern.h"
#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "keyboard/VirtualKeys.h"
#include "macros/LayoutLevels.h"
#include "macros/StepCodes.h"
#include "macros/StepPairs.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

constexpr std::uint8_t kFirstModifier = 0xE0;
constexpr std::uint8_t kLastModifier = 0xE7;
constexpr std::uint8_t kCapsLockUsage = 0x39;

constexpr std::array<std::u16string_view, 5> kButtonNames{
    u"Left button", u"Right button", u"Middle button", u"Back button", u"Forward button"};
static_assert(kButtonNames.size() == stepcodes::buttonsDown.size());

bool isModifier(std::uint8_t usage) {
    return usage >= kFirstModifier && usage <= kLastModifier;
}

/// The letter as printed on the key: layouts of Latin letters type small ones up to U+00FE.
char16_t capital(char16_t letter) {
    const bool isSmall = (letter >= u'a' && letter <= u'z') ||
                         (letter >= u'\u00E0' && letter <= u'\u00FE' && letter != u'\u00F7');
    return isSmall ? static_cast<char16_t>(letter - u'a' + u'A') : letter;
}

std::u16string nameOfKey(std::uint8_t usage) {
    std::u16string name = shownKeyCombination(UsbToAdbKeycode(usage), 0);
    if (name.size() == 1)
        name.front() = capital(name.front());
    return name;
}

/// Names of keys are joined with "+" in every language.
void appendJoined(std::u16string& keys, std::u16string_view key) {
    if (!keys.empty())
        keys += u'+';
    keys += key;
}

/// The sign of a key that ends a line or a column of a text; empty for any other.
std::u16string signInText(const TypedPiece& piece) {
    constexpr std::uint8_t returnUsage = 0x28;
    constexpr std::uint8_t tabUsage = 0x2B;
    if (piece.text == nameOfKey(returnUsage))
        return u"\u23CE";
    return piece.text == nameOfKey(tabUsage) ? u"\u21E5" : u"";
}

/// Behind what is done that often; empty for once. The same in every language.
std::u16string timesSign(std::ptrdiff_t times) {
    if (times == 1)
        return {};
    const std::string digits = std::to_string(times);
    return u"\u00A0\u00D7" + std::u16string(digits.begin(), digits.end());
}

/// The pieces, with keys that belong to the text before them as signs in it.
std::vector<TypedPiece> withSigns(const std::vector<TypedPiece>& pieces) {
    std::vector<TypedPiece> result;
    for (const TypedPiece& piece : pieces) {
        const std::u16string sign = piece.isText ? piece.text : signInText(piece);
        if (!result.empty() && result.back().isText && !sign.empty())
            result.back().text += sign;
        else
            result.push_back(piece);
    }
    return result;
}

} // namespace

TypedKeys::TypedKeys(KeyboardLayoutRef layout, TextLookup lookup)
    : m_layout(std::move(layout)), m_lookup(std::move(lookup)) {}

bool TypedKeys::hasAltGrKey() const {
    if (!m_hasAltGr)
        m_hasAltGr = m_layout && hasAltGr(*m_layout);
    return *m_hasAltGr;
}

bool TypedKeys::isHeld(std::uint8_t usage) const {
    return std::ranges::find(m_held, usage, &Held::usage) != m_held.end();
}

std::uint16_t TypedKeys::modifiersForText() const {
    unsigned modifiers = 0;
    if (isShiftHeld())
        modifiers |= shiftModifier;
    if (m_capsLock)
        modifiers |= capsLockModifier;
    if (isHeld(kRightAlt) && hasAltGrKey())
        modifiers |= optionModifier;
    return static_cast<std::uint16_t>(modifiers);
}

std::optional<std::u16string> TypedKeys::typedBy(std::uint8_t virtualKey) {
    if (!m_layout || virtualKey == noKey || isShortcut())
        return std::nullopt;
    const std::uint32_t before = m_deadKey;
    const KeyTranslation typed = m_layout->translate(virtualKey, modifierByte(modifiersForText()), m_deadKey);
    if (typed.character && isTypedCharacter(*typed.character))
        return std::u16string(1, *typed.character);
    if (m_deadKey != 0 && m_deadKey != before)
        return std::u16string();
    return std::nullopt;
}

std::optional<std::u16string> TypedKeys::press(std::uint8_t usage) {
    if (isModifier(usage)) {
        hold(usage);
        return std::nullopt;
    }
    if (usage == kCapsLockUsage)
        m_capsLock = !m_capsLock;
    auto text = typedBy(UsbToAdbKeycode(usage));
    if (text)
        addText(*text);
    else
        addCombination(nameOfKey(usage));
    return text;
}

void TypedKeys::hold(std::uint8_t usage) {
    if (!isHeld(usage))
        m_held.push_back({usage, false});
}

void TypedKeys::release(std::uint8_t usage) {
    const auto held = std::ranges::find(m_held, usage, &Held::usage);
    if (held == m_held.end())
        return;
    if (!held->isUsed)
        addCombination({});
    m_held.erase(held);
}

void TypedKeys::pressButton(int button) {
    if (button >= 1 && button <= static_cast<int>(kButtonNames.size()))
        addCombination(m_lookup(kButtonNames[static_cast<std::size_t>(button) - 1]));
}

void TypedKeys::releaseAll() {
    while (!m_held.empty())
        release(m_held.back().usage);
}

std::u16string TypedKeys::namesOfHeld() const {
    std::u16string names;
    for (const Held& held : m_held)
        appendJoined(names, nameOfKey(held.usage));
    return names;
}

std::u16string TypedKeys::heldAlone() const {
    const bool isAnyUnused = std::ranges::any_of(m_held, [](const Held& held) { return !held.isUsed; });
    return isAnyUnused ? namesOfHeld() : std::u16string();
}

void TypedKeys::useHeld() {
    for (Held& held : m_held)
        held.isUsed = true;
}

/// Adds the key or button with all held modifiers; for an empty name, the modifiers alone.
void TypedKeys::addCombination(const std::u16string& name) {
    std::u16string combination = namesOfHeld();
    if (!name.empty())
        appendJoined(combination, name);
    useHeld();
    m_pieces.push_back({.isText = false, .text = std::move(combination)});
}

void TypedKeys::addText(const std::u16string& text) {
    useHeld();
    if (text.empty())
        return;
    if (m_pieces.empty() || !m_pieces.back().isText)
        m_pieces.push_back({.isText = true, .text = {}});
    m_pieces.back().text += text;
}

std::vector<TypedPiece> typedBySteps(
    const plist::Array& steps, KeyboardLayoutRef layout, const TextLookup& lookup) {
    TypedKeys typed(std::move(layout), lookup);
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const plist::Dictionary step = steps.dictionary(index);
        const auto movement = movementOfStep(step);
        if (!movement)
            continue;
        if (movement->isButton) {
            const auto code = static_cast<std::uint32_t>(step.integer(keys::command));
            const auto* button = std::ranges::find(stepcodes::buttonsDown, code);
            if (movement->isPress)
                typed.pressButton(static_cast<int>(button - stepcodes::buttonsDown.begin()) + 1);
        } else if (movement->isPress) {
            typed.press(static_cast<std::uint8_t>(movement->key));
        } else {
            typed.release(static_cast<std::uint8_t>(movement->key));
        }
    }
    typed.releaseAll();
    return typed.pieces();
}

std::u16string typedLine(const std::vector<TypedPiece>& pieces, const TextLookup& lookup) {
    const std::vector<TypedPiece> all = withSigns(pieces);
    if (all.size() == 1)
        return all.front().text;
    const std::u16string pattern = lookup(u"^1, ^2, ^3");
    const std::u16string_view separator = separatorIn(pattern);
    std::u16string line;
    for (auto piece = all.begin(); piece != all.end();) {
        const auto next = piece->isText ? piece + 1
                                        : std::find_if_not(piece, all.end(),
                                              [&](const auto& other) { return other == *piece; });
        line.append(line.empty() ? u"" : separator);
        line.append(piece->isText ? filledPattern(lookup(u"“^1”"), {piece->text})
                                  : piece->text + timesSign(next - piece));
        piece = next;
    }
    return line;
}

} // namespace quorvi
