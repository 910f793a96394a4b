// Key events in the terms of the panel: key down, key up and change of the modifiers, with a virtual key code
// and the modifier flags after the event.
//
// X11 and Wayland deliver a modifier as a key like any other, and with every event the modifiers as they were
// before it. Which modifier a key is goes by its place on the keyboard, as the mouse will press it; what its
// press brings about is the keymap's affair.
#pragma once

#include <cstdint>
#include <vector>

#include "keyboard/VirtualKeys.h"

class QKeyEvent;

namespace quorvi {

enum class KeyEventType : std::uint8_t { KeyDown = 10, KeyUp = 11, FlagsChanged = 12 };

inline constexpr std::uint32_t capsLockFlag = 0x010000;
inline constexpr std::uint32_t shiftFlag = 0x020000;
inline constexpr std::uint32_t controlFlag = 0x040000;
inline constexpr std::uint32_t optionFlag = 0x080000;
inline constexpr std::uint32_t commandFlag = 0x100000;

struct KeyEvent {
    KeyEventType type;
    std::uint8_t keyCode = noKey;    ///< virtual key code; of no meaning when the flags changed
    char16_t character = 0;          ///< first UTF-16 unit of what the key types; 0 when it types nothing
    std::uint32_t modifierFlags = 0; ///< after the event
};

/// The modifier word of modifier flags; flags that it has no bit for are dropped.
[[nodiscard]] std::uint16_t modifierWord(std::uint32_t flags);

/// The key is a modifier or one that the mouse can press: it has a virtual key code, and that a USB usage.
/// F16 and higher ones have no usage, media keys no code, nor has an event that came from no keyboard (scan
/// code 0).
[[nodiscard]] bool isCapturableKey(const QKeyEvent& event);

struct ConvertedKey {
    KeyEvent event;
    std::uint32_t flagsBefore = 0; ///< what was held and locked when the event came
};

/// Follows which modifier keys are held. It has to see every press and release, but gets over those that it
/// missed, as soon as the next event says otherwise.
class KeyEventConverter {
  public:
    /// Takes a press or release that is no repetition, of a capturable key.
    [[nodiscard]] ConvertedKey convert(const QKeyEvent& event);

    /// The keyboard went elsewhere, and the releases with it.
    void forgetHeldKeys();

  private:
    struct HeldKey {
        std::uint32_t scanCode;
        std::uint32_t flag;
        std::uint32_t stateBit; ///< that events have while it is held; 0 when that is not known
    };

    void reconcile(std::uint32_t state);
    void hold(const HeldKey& key);
    void release(std::uint32_t scanCode);
    [[nodiscard]] std::uint32_t flags(std::uint32_t state) const;

    std::vector<HeldKey> m_held;
    bool m_capsLock = false;
    bool m_capsLockKeyHeld = false;
};

} // namespace quorvi
