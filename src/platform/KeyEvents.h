// Key events in the terms of the panel: key down, key up and change of the modifiers, with a virtual key code
// and the modifier flags after the event.
//
// X11 and Wayland deliver a modifier as a key like any other, and with every event the modifiers before it. A
// modifier is identified by its place on the keyboard, as the mouse will press it; the keymap decides what
// the press does.
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
    std::uint8_t keyCode = noKey;    ///< virtual key code; meaningless for flagsChanged
    char16_t character = 0;          ///< first UTF-16 unit of the typed text; 0 for none
    std::uint32_t modifierFlags = 0; ///< after the event
};

/// The modifier word of modifier flags; flags without a bit are dropped.
[[nodiscard]] std::uint16_t modifierWord(std::uint32_t flags);

/// Whether the key is a modifier or one that the mouse can press: it has a virtual key code with a USB usage.
/// F16 and higher have no usage; media keys and events without a keyboard (scan code 0) have no code.
[[nodiscard]] bool isCapturableKey(const QKeyEvent& event);

struct ConvertedKey {
    KeyEvent event;
    std::uint32_t flagsBefore = 0; ///< held and locked modifiers before the event
};

/// Tracks the held modifier keys. It should see every press and release, but the next event corrects missed
/// ones.
class KeyEventConverter {
  public:
    /// Converts a press or release of a capturable key that is not a repeat.
    [[nodiscard]] ConvertedKey convert(const QKeyEvent& event);

    /// Call this when the keyboard focus moved away, with later releases.
    void forgetHeldKeys();

  private:
    struct HeldKey {
        std::uint32_t scanCode;
        std::uint32_t flag;
        std::uint32_t stateBit; ///< set in events while the key is held; 0 if unknown
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
