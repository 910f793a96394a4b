// The keyboard that a macro is tried with: the keys that it presses come into one field, whatever has the
// focus.
#pragma once

#include <QString>

#include <cstdint>

#include "macros/TypedKeys.h"
#include "widgets/TrialField.h"

namespace quorvi {

class TrialKeyboard {
  public:
    /// The field must outlive it. The keys are those of the layout, null for none; nothing is held, and Caps
    /// Lock is off.
    TrialKeyboard(TrialField& field, KeyboardLayoutRef layout, TextLookup lookup);

    /// Types the key into the field, or lets it do there what it does in any field. What leads out of a field
    /// (Tab, Return, Escape, Alt+F4) does nothing.
    void change(std::uint8_t usage, bool down);
    void changeButton(int button, bool down);

    /// Keys and buttons that have typed no text, in order, and the modifiers that are held.
    [[nodiscard]] QString shownKeys() const;
    /// All that was typed, in one line.
    [[nodiscard]] QString line() const;

  private:
    [[nodiscard]] int fieldKey(std::uint8_t usage) const;
    [[nodiscard]] Qt::KeyboardModifiers heldModifiers() const;

    TrialField& m_field;
    KeyboardLayoutRef m_layout;
    TextLookup m_lookup;
    TypedKeys m_keys;
};

} // namespace quorvi
