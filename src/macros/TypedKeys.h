// The result of key presses: the texts that they type under a keyboard layout, and the combinations that type
// none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "keyboard/KeyboardLayout.h"
#include "macros/StepText.h"

namespace quorvi {

/// A typed text or the name of a combination: "Hello", "Ctrl+S", "Left button".
struct TypedPiece {
    bool isText = false;
    std::u16string text;
    friend bool operator==(const TypedPiece&, const TypedPiece&) = default;
};

/// A keyboard and a mouse; initially nothing is held and Caps Lock is off. Keys are USB usages; the mouse's
/// buttons count from 1.
class TypedKeys {
  public:
    /// Without a layout (null) every key is shown by its name. The lookup names the mouse's buttons.
    TypedKeys(KeyboardLayoutRef layout, TextLookup lookup);

    /// The text that the press types; empty for a dead key, which waits for the next key. std::nullopt for a
    /// key that types no text: a modifier, a shortcut, an arrow key.
    std::optional<std::u16string> press(std::uint8_t usage);
    void release(std::uint8_t usage);
    void pressButton(int button);
    /// Releases everything.
    void releaseAll();

    /// Everything typed so far, in order. Modifiers pressed alone are added when the first of them is
    /// released.
    [[nodiscard]] const std::vector<TypedPiece>& pieces() const { return m_pieces; }
    /// The held modifiers, "Ctrl+Shift"; empty if there are none, or if each was already used with a key.
    [[nodiscard]] std::u16string heldAlone() const;

    [[nodiscard]] bool isShiftHeld() const { return isHeld(kLeftShift) || isHeld(kRightShift); }
    [[nodiscard]] bool isControlHeld() const { return isHeld(kLeftControl) || isHeld(kRightControl); }
    /// Alt, but not AltGr.
    [[nodiscard]] bool isAltHeld() const { return isHeld(kLeftAlt) || (isHeld(kRightAlt) && !hasAltGrKey()); }
    [[nodiscard]] bool isSuperHeld() const { return isHeld(kLeftSuper) || isHeld(kRightSuper); }

  private:
    // Usages of the modifier keys (HID usage tables, keyboard page).
    static constexpr std::uint8_t kLeftControl = 0xE0;
    static constexpr std::uint8_t kLeftShift = 0xE1;
    static constexpr std::uint8_t kLeftAlt = 0xE2;
    static constexpr std::uint8_t kLeftSuper = 0xE3;
    static constexpr std::uint8_t kRightControl = 0xE4;
    static constexpr std::uint8_t kRightShift = 0xE5;
    static constexpr std::uint8_t kRightAlt = 0xE6;
    static constexpr std::uint8_t kRightSuper = 0xE7;

    struct Held {
        std::uint8_t usage;
        bool isUsed; ///< a key was pressed with it
    };

    [[nodiscard]] bool isHeld(std::uint8_t usage) const;
    [[nodiscard]] bool isShortcut() const { return isControlHeld() || isAltHeld() || isSuperHeld(); }
    [[nodiscard]] std::uint16_t modifiersForText() const;
    [[nodiscard]] bool hasAltGrKey() const;
    std::optional<std::u16string> typedBy(std::uint8_t virtualKey);
    [[nodiscard]] std::u16string namesOfHeld() const;
    void hold(std::uint8_t usage);
    void useHeld();
    void addCombination(const std::u16string& name);
    void addText(const std::u16string& text);

    KeyboardLayoutRef m_layout;
    TextLookup m_lookup;
    mutable std::optional<bool> m_hasAltGr; ///< determined on first use, because it is slow
    bool m_capsLock = false;
    std::uint32_t m_deadKey = 0;
    std::vector<Held> m_held; ///< the modifiers, in the order of their presses
    std::vector<TypedPiece> m_pieces;
};

/// The result of the steps. Anything still down at the end is released.
[[nodiscard]] std::vector<TypedPiece> typedBySteps(
    const plist::Array& steps, KeyboardLayoutRef layout, const TextLookup& lookup);

/// The pieces in one line: a single text as it is ("Regards,⏎"), otherwise as a list with texts in quotation
/// marks ("“Hello”, Ctrl+S"). A combination is named once for all its presses in a row ("Left button ×2"). A
/// plain Return or Tab after a text is shown as a sign in it. Empty without pieces.
[[nodiscard]] std::u16string typedLine(const std::vector<TypedPiece>& pieces, const TextLookup& lookup);

} // namespace quorvi
