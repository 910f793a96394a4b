#include "layouts/LetterKeys.h"

#include "keyboard/VirtualKeys.h"
#include "layouts/EvdevKeys.h"

namespace quorvi {

std::array<std::uint16_t, 26> letterKeysOf(const KeyboardLayout& layout) {
    std::array<std::uint16_t, 26> keys{};
    for (std::uint8_t key = 0; key < virtualKeyCount; ++key) {
        const auto evdev = evdevKeycode(key);
        if (evdev == 0 || isKeypadKey(key))
            continue;
        std::uint32_t deadKeys = 0;
        const auto typed = layout.translate(key, modifierByte(commandModifier), deadKeys);
        if (!typed.succeeded || !typed.character || *typed.character < u'a' || *typed.character > u'z')
            continue;
        auto& known = keys[static_cast<std::size_t>(*typed.character - u'a')];
        if (known == 0)
            known = evdev;
    }
    return keys;
}

} // namespace quorvi
