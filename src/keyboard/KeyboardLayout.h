// The keyboard layout in use, and the translation of a key press through it.
//
// Platforms implement the interface KeyboardLayout. The current layout is queried from the platform's sources
// every time, so changes take effect at once. All of this is for the main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace quorvi {

/// The result of a key press.
struct KeyTranslation {
    bool succeeded = false;            ///< false if the result does not fit into one UTF-16 unit
    std::optional<char16_t> character; ///< std::nullopt for a dead key and for a key without a character
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

/// A layout of the old style: accepts (modifier word | key code) and returns a word whose low byte is the
/// character.
using OldStyleLayout = std::function<std::uint32_t(std::uint16_t keyWord)>;

/// The user's chosen input source. It may have no layout (null).
struct InputSource {
    KeyboardLayoutRef layout;
};

/// A layout manager's kinds of layout. Any other number means no usable data.
inline constexpr std::int32_t layoutKindBoth = 0;     ///< Unicode and old-style data
inline constexpr std::int32_t layoutKindOldStyle = 1; ///< old-style data only
inline constexpr std::int32_t layoutKindUnicode = 2;  ///< Unicode data only

/// A layout manager's answer, for systems without input sources.
struct ManagedLayout {
    std::int32_t status = 0; ///< not 0 if the layout or its kind could not be read
    std::int32_t kind = layoutKindUnicode;
    KeyboardLayoutRef layout;
    OldStyleLayout oldStyle;
};

/// The sources of the current layout: input sources if there is a function for the current one, else the
/// layout manager.
struct KeyboardLayoutSources {
    std::function<std::optional<InputSource>()> currentInputSource;
    /// Used if there is no current one.
    std::function<std::optional<InputSource>()> asciiCapableInputSource;
    std::function<ManagedLayout()> managedLayout;
};

/// Sets the process-wide sources. Initially there are none, and so no layout.
void SetKeyboardLayoutSources(KeyboardLayoutSources sources);

/// Makes one layout the current one until the sources are set again; null for no layout.
void SetCurrentKeyboardLayout(KeyboardLayoutRef layout);

inline constexpr std::int32_t keyboardLayoutFound = 0;
inline constexpr std::int32_t keyboardLayoutParameterMissing = -50;
inline constexpr std::int32_t keyboardLayoutNotFound = -192;

/// Finds the current layout. Returns -50 if an out pointer is null. Otherwise empties both first, and returns
/// 0 with the layout in one of them, -192 if there is no layout or it has no data, or the layout manager's
/// error.
[[nodiscard]] std::int32_t CompatibleGetKeyboardLayout(KeyboardLayoutRef* layout, OldStyleLayout* oldStyle);

/// The Mac Roman character that a key types with the modifiers of the modifier word: "?" for a character that
/// Mac Roman lacks, 0 if the key types none or there is neither layout. Uses the layout if there is one, else
/// the low byte of the old-style one's answer. Without a dead-key state (null) the key is translated by
/// itself.
[[nodiscard]] std::uint8_t CompatibleKeyTranslate(std::uint8_t keyCode, std::uint16_t modifiers,
    const KeyboardLayout* layout, const OldStyleLayout& oldStyle, std::uint32_t* deadKeyState);

} // namespace quorvi
