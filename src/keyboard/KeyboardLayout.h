// The keyboard layout in use, and the translation of a key press through it.
//
// KeyboardLayout is the interface that a platform implements. Which layout is the current one is asked of the
// sources that the platform has set, every time, so that a change of the layout is seen. All of this is for
// the main thread alone.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace quorvi {

/// What a key press types.
struct KeyTranslation {
    bool succeeded = false;            ///< false when the press types what does not fit into one UTF-16 unit
    std::optional<char16_t> character; ///< nothing for a dead key and for a key that types nothing
};

/// A keyboard layout.
class KeyboardLayout {
  public:
    virtual ~KeyboardLayout() = default;

    /// Translates the press of a virtual key (0 to 127) with the modifiers of the modifier byte held (Command
    /// 1, Shift 2, Caps Lock 4, Option 8, Control 16). The dead-key state is the layout's own: 0 when no dead
    /// key is pending, changed by a dead key and by the key after it.
    [[nodiscard]] virtual KeyTranslation translate(
        std::uint8_t keyCode, std::uint8_t modifiers, std::uint32_t& deadKeyState) const = 0;
};

using KeyboardLayoutRef = std::shared_ptr<const KeyboardLayout>;

/// A layout of the old style: takes (modifier word | key code), gives a word whose low byte is the character.
using OldStyleLayout = std::function<std::uint32_t(std::uint16_t keyWord)>;

/// What the user has chosen to type with. An input source may come without a layout (null).
struct InputSource {
    KeyboardLayoutRef layout;
};

/// The kinds of layout that a layout manager knows. Any other number is a kind without usable data.
inline constexpr std::int32_t layoutKindBoth = 0;     ///< Unicode and old-style data
inline constexpr std::int32_t layoutKindOldStyle = 1; ///< old-style data only
inline constexpr std::int32_t layoutKindUnicode = 2;  ///< Unicode data only

/// The answer of a layout manager, where there are no input sources.
struct ManagedLayout {
    std::int32_t status = 0; ///< not 0 when the layout or its kind could not be read
    std::int32_t kind = layoutKindUnicode;
    KeyboardLayoutRef layout;
    OldStyleLayout oldStyle;
};

/// Where the current layout comes from. Input sources are asked when there is a function for the current one,
/// the layout manager otherwise.
struct KeyboardLayoutSources {
    std::function<std::optional<InputSource>()> currentInputSource;
    /// Asked when there is no current one.
    std::function<std::optional<InputSource>()> asciiCapableInputSource;
    std::function<ManagedLayout()> managedLayout;
};

/// Sets the process-wide sources. At the start of the process there are none, and so no layout.
void SetKeyboardLayoutSources(KeyboardLayoutSources sources);

/// Makes one layout the current one until the sources are set again; null for no layout.
void SetCurrentKeyboardLayout(KeyboardLayoutRef layout);

inline constexpr std::int32_t keyboardLayoutFound = 0;
inline constexpr std::int32_t keyboardLayoutParameterMissing = -50;
inline constexpr std::int32_t keyboardLayoutNotFound = -192;

/// Finds the current layout. -50 when an out pointer is null. Otherwise both outs are emptied first; 0 with
/// the layout in one of them, -192 when there is no layout or it has no data, or the error of the layout
/// manager as it is.
[[nodiscard]] std::int32_t CompatibleGetKeyboardLayout(KeyboardLayoutRef* layout, OldStyleLayout* oldStyle);

/// The Mac Roman character that a key types with the modifiers of the modifier word: "?" for what Mac Roman
/// does not hold, 0 when the key types nothing or there is neither layout. The layout is used where there is
/// one, else the old-style one, of whose answer the low byte counts. Without a dead-key state (null) the key
/// stands by itself.
[[nodiscard]] std::uint8_t CompatibleKeyTranslate(std::uint8_t keyCode, std::uint16_t modifiers,
    const KeyboardLayout* layout, const OldStyleLayout& oldStyle, std::uint32_t* deadKeyState);

} // namespace quorvi
