#include "macros/LayoutLevels.h"

#include "keyboard/VirtualKeys.h"

namespace quorvi {

namespace {

/// The key next to the left Shift key. It has further characters even in keymaps whose right Alt key selects
/// none.
constexpr std::uint8_t kKeyBesideShift = 0x0A;

} // namespace

bool hasAltGr(const KeyboardLayout& layout) {
    for (std::uint8_t key = 0; key < virtualKeyCount; ++key) {
        if (key == kKeyBesideShift)
            continue;
        std::uint32_t plainDeadKey = 0;
        std::uint32_t deadKey = 0;
        const KeyTranslation plain = layout.translate(key, 0, plainDeadKey);
        const KeyTranslation typed = layout.translate(key, modifierByte(optionModifier), deadKey);
        const bool types = typed.character && isTypedCharacter(*typed.character);
        if ((types && typed.character != plain.character) || (deadKey != 0 && deadKey != plainDeadKey))
            return true;
    }
    return false;
}

} // namespace quorvi
