#include "editors/playing/TrialKeyboard.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/VirtualKeys.h"
#include "widgets/FilledText.h"

namespace quorvi {

namespace {

struct EditingKey {
    std::uint8_t usage; ///< HID usage tables, keyboard page
    Qt::Key key;
};

/// What edits a text or moves its cursor. The keys that lead out of a field are not among them.
constexpr std::array kEditingKeys{
    EditingKey{0x2A, Qt::Key_Backspace},
    EditingKey{0x49, Qt::Key_Insert},
    EditingKey{0x4A, Qt::Key_Home},
    EditingKey{0x4C, Qt::Key_Delete},
    EditingKey{0x4D, Qt::Key_End},
    EditingKey{0x4F, Qt::Key_Right},
    EditingKey{0x50, Qt::Key_Left},
};

} // namespace

TrialKeyboard::TrialKeyboard(TrialField& field, KeyboardLayoutRef layout, TextLookup lookup)
    : m_field(field), m_layout(std::move(layout)), m_lookup(std::move(lookup)), m_keys(m_layout, m_lookup) {}

void TrialKeyboard::change(std::uint8_t usage, bool down) {
    if (!down)
        return m_keys.release(usage);
    if (const auto text = m_keys.press(usage))
        m_field.type(QString::fromStdU16String(*text));
    else if (const int key = fieldKey(usage))
        m_field.pressKey(key, heldModifiers());
}

void TrialKeyboard::changeButton(int button, bool down) {
    if (down)
        m_keys.pressButton(button);
}

/// A key that edits, or the letter of a shortcut; 0 for any other.
int TrialKeyboard::fieldKey(std::uint8_t usage) const {
    const auto* const editing = std::ranges::find(kEditingKeys, usage, &EditingKey::usage);
    if (editing != kEditingKeys.end())
        return editing->key;
    const std::uint8_t virtualKey = UsbToAdbKeycode(usage);
    if (!m_keys.isControlHeld() || !m_layout || virtualKey == noKey)
        return 0;
    std::uint32_t deadKey = 0;
    const auto letter = m_layout->translate(virtualKey, modifierByte(commandModifier), deadKey).character;
    return letter && *letter >= u'a' && *letter <= u'z' ? Qt::Key_A + (*letter - u'a') : 0;
}

Qt::KeyboardModifiers TrialKeyboard::heldModifiers() const {
    Qt::KeyboardModifiers held;
    held.setFlag(Qt::ShiftModifier, m_keys.isShiftHeld());
    held.setFlag(Qt::ControlModifier, m_keys.isControlHeld());
    held.setFlag(Qt::AltModifier, m_keys.isAltHeld());
    held.setFlag(Qt::MetaModifier, m_keys.isSuperHeld());
    return held;
}

QString TrialKeyboard::shownKeys() const {
    QStringList names;
    for (const TypedPiece& piece : m_keys.pieces())
        if (!piece.isText)
            names << QString::fromStdU16String(piece.text);
    if (const auto held = m_keys.heldAlone(); !held.empty())
        names << QString::fromStdU16String(held);
    return joinedText(QString::fromStdU16String(m_lookup(u"^1, ^2, ^3")), names);
}

QString TrialKeyboard::line() const {
    return QString::fromStdU16String(typedLine(m_keys.pieces(), m_lookup));
}

} // namespace quorvi
