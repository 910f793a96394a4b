#include "engine/Chord.h"

#include "engine/UsbKeys.h"

namespace quorvi::engine {

Chord::Chord(const Function& function, const ButtonAssignment& assignment, const LetterKeys& letters) {
    switch (function.act) {
    case Act::Keys:
        addModifiers(function.modifiers);
        add(function.key);
        break;
    case Act::Letter:
        addModifiers(function.modifiers);
        add(letters[static_cast<std::size_t>(function.letter - 'a')]);
        break;
    case Act::SingleKey:
        addModifiers(assignment.param2);
        add(keyOfUsage(assignment.param1));
        break;
    default:
        break;
    }
}

void Chord::press(HeldKeys& keys) const {
    for (std::size_t i = 0; i < m_size; ++i)
        keys.press(m_codes[i]);
}

void Chord::release(HeldKeys& keys) const {
    for (std::size_t i = m_size; i > 0; --i)
        keys.release(m_codes[i - 1]);
}

void Chord::add(std::uint16_t code) {
    if (code != KEY_RESERVED)
        m_codes[m_size++] = code;
}

void Chord::addModifiers(std::uint8_t bits) {
    for (std::size_t bit = 0; bit < modifierKeysOfBits.size(); ++bit)
        if ((bits >> bit & 1) != 0)
            add(modifierKeysOfBits[bit]);
}

} // namespace quorvi::engine
