#include "keyboard/KeyTables.h"

#include <new>

#include "keyboard/KeyboardLayout.h"
#include "keyboard/VirtualKeys.h"

namespace quorvi {

namespace {

constexpr std::uint8_t kCommand = modifierByte(commandModifier);
constexpr std::uint8_t kShift = modifierByte(shiftModifier);
constexpr std::uint8_t kCapsLock = modifierByte(capsLockModifier);
constexpr std::uint8_t kOption = modifierByte(optionModifier);
constexpr std::uint8_t kControl = modifierByte(controlModifier);

constexpr std::array<std::uint8_t, 7> kTriedModifiers{
    0, kShift, kCapsLock, kOption, kShift | kOption, kCapsLock | kOption, kControl};

bool isInKeypadRange(std::uint8_t keyCode) {
    return keyCode >= 64 && keyCode <= 95;
}

int modifierCost(std::uint8_t modifiers) {
    int cost = 0;
    cost += (modifiers & kShift) != 0 ? 1 : 0;
    cost += (modifiers & kOption) != 0 ? 2 : 0;
    cost += (modifiers & kControl) != 0 ? 4 : 0;
    cost += (modifiers & kCapsLock) != 0 ? 8 : 0;
    cost += (modifiers & kCommand) != 0 ? 16 : 0;
    return cost;
}

KeyTableSlot newTable(std::uint8_t content) {
    KeyTableSlot table(new (std::nothrow) KeyTable);
    if (table)
        table->fill(content);
    return table;
}

} // namespace

std::uint16_t GetCharMessage(const KeyTable& characterToKey, std::uint8_t character) {
    return static_cast<std::uint16_t>(characterToKey[character] << 8 | character);
}

std::uint16_t GetCharModifiers(const KeyTable& characterToModifiers, std::uint8_t character) {
    return static_cast<std::uint16_t>(characterToModifiers[character] << 8);
}

bool SetupKeyTablesNumPad(
    KeyTableSlot* characterToKey, KeyTableSlot* characterToModifiers, bool preferKeypad) {
    if (characterToKey == nullptr || characterToModifiers == nullptr)
        return false;
    *characterToKey = newTable(noKey);
    *characterToModifiers = newTable(0);
    return UpdateKeyTablesNumPad(characterToKey->get(), characterToModifiers->get(), preferKeypad);
}

bool SetupKeyTables(KeyTableSlot* characterToKey, KeyTableSlot* characterToModifiers) {
    return SetupKeyTablesNumPad(characterToKey, characterToModifiers, false);
}

bool UpdateKeyTablesNumPad(KeyTable* characterToKey, KeyTable* characterToModifiers, bool preferKeypad) {
    KeyboardLayoutRef layout;
    OldStyleLayout oldStyle;
    if (characterToKey == nullptr || characterToModifiers == nullptr ||
        CompatibleGetKeyboardLayout(&layout, &oldStyle) != keyboardLayoutFound || !layout)
        return false;

    characterToKey->fill(noKey);
    characterToModifiers->fill(0);
    std::uint32_t deadKeyState = 0;
    char16_t lastTyped = 0;
    for (const std::uint8_t modifiers : kTriedModifiers) {
        for (std::uint8_t key = 0; key < virtualKeyCount; ++key) {
            const KeyTranslation typed = layout->translate(key, modifiers, deadKeyState);
            if (!typed.succeeded)
                continue;
            lastTyped = typed.character.value_or(lastTyped);
            std::uint8_t& bestKey = (*characterToKey)[lastTyped & 0xFF];
            std::uint8_t& bestModifiers = (*characterToModifiers)[lastTyped & 0xFF];
            if (bestKey == noKey || IsBetterKeystroke(key, modifiers, bestKey, bestModifiers, preferKeypad)) {
                bestKey = key;
                bestModifiers = modifiers;
            }
        }
    }
    return true;
}

bool UpdateKeyTables(KeyTable* characterToKey, KeyTable* characterToModifiers) {
    return UpdateKeyTablesNumPad(characterToKey, characterToModifiers, false);
}

bool IsBetterKeystroke(std::uint8_t newKey, std::uint8_t newModifiers, std::uint8_t oldKey,
    std::uint8_t oldModifiers, bool preferKeypad) {
    if (newKey == escapeKey && oldKey == keypadClearKey)
        return true;
    if (preferKeypad && isKeypadKey(newKey) != isKeypadKey(oldKey))
        return isKeypadKey(newKey);
    if (isInKeypadRange(newKey) != isInKeypadRange(oldKey))
        return isInKeypadRange(oldKey);
    return modifierCost(newModifiers) < modifierCost(oldModifiers);
}

} // namespace quorvi
