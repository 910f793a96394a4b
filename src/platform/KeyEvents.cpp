#include "platform/KeyEvents.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <limits>

#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "keyboard/KeyCodeConversion.h"
#include "layouts/EvdevKeys.h"

namespace quorvi {

namespace {

// Bits of an event's native modifiers: the eight real modifiers of the X keyboard extension. Shift, Lock and
// Control have fixed bits; the others are those of xkeyboard-config's keymaps.
constexpr std::uint32_t kShiftState = 0x01;
constexpr std::uint32_t kLockState = 0x02;
constexpr std::uint32_t kControlState = 0x04;
constexpr std::uint32_t kAltState = 0x08;
constexpr std::uint32_t kSuperState = 0x40;
constexpr std::uint32_t kLevelThreeState = 0x80;

constexpr std::uint32_t scanCodeOf(std::uint32_t evdevKey) {
    return evdevKey + xkbKeycodeOffset;
}

constexpr std::uint32_t kCapsLockScanCode = scanCodeOf(KEY_CAPSLOCK);
/// A dedicated key for ISO_Level3_Shift, on no keyboard but in every keymap (xkeyboard-config, "LVL3").
constexpr std::uint32_t kLevelThreeScanCode = 92;

struct FlagOfKey {
    std::uint32_t scanCode;
    std::uint32_t flag;
};

constexpr std::array kFlagsOfKeys{
    FlagOfKey{scanCodeOf(KEY_LEFTSHIFT), shiftFlag},
    FlagOfKey{scanCodeOf(KEY_RIGHTSHIFT), shiftFlag},
    FlagOfKey{scanCodeOf(KEY_LEFTCTRL), controlFlag},
    FlagOfKey{scanCodeOf(KEY_RIGHTCTRL), controlFlag},
    FlagOfKey{scanCodeOf(KEY_LEFTALT), optionFlag},
    FlagOfKey{scanCodeOf(KEY_RIGHTALT), optionFlag},
    FlagOfKey{kLevelThreeScanCode, optionFlag},
    FlagOfKey{scanCodeOf(KEY_LEFTMETA), commandFlag},
    FlagOfKey{scanCodeOf(KEY_RIGHTMETA), commandFlag},
};

struct FlagOfState {
    std::uint32_t stateBit;
    std::uint32_t flag;
};

constexpr std::array kFlagsOfStates{
    FlagOfState{kShiftState, shiftFlag},
    FlagOfState{kControlState, controlFlag},
    FlagOfState{kAltState, optionFlag},
    FlagOfState{kLevelThreeState, optionFlag},
    FlagOfState{kSuperState, commandFlag},
};

/// The flag of a modifier that must be held; 0 for any other key.
std::uint32_t flagOfKey(std::uint32_t scanCode) {
    const auto* found = std::ranges::find(kFlagsOfKeys, scanCode, &FlagOfKey::scanCode);
    return found == kFlagsOfKeys.end() ? 0 : found->flag;
}

/// The bit that a modifier key's symbol sets in the state of later events; 0 if unknown. Uses the symbol
/// because a keymap may have swapped Alt and Super.
std::uint32_t stateBitOf(std::uint32_t keysym) {
    switch (keysym) {
    case XKB_KEY_Shift_L:
    case XKB_KEY_Shift_R:
        return kShiftState;
    case XKB_KEY_Control_L:
    case XKB_KEY_Control_R:
        return kControlState;
    case XKB_KEY_Alt_L:
    case XKB_KEY_Alt_R:
    case XKB_KEY_Meta_L:
    case XKB_KEY_Meta_R:
        return kAltState;
    case XKB_KEY_Super_L:
    case XKB_KEY_Super_R:
        return kSuperState;
    case XKB_KEY_ISO_Level3_Shift:
        return kLevelThreeState;
    default:
        return 0;
    }
}

/// A Caps Lock key that the keymap has remapped does not lock; it is a plain key then.
bool isCapsLock(const QKeyEvent& event) {
    return event.nativeScanCode() == kCapsLockScanCode && event.nativeVirtualKey() == XKB_KEY_Caps_Lock;
}

std::uint8_t keyCodeOf(std::uint32_t scanCode) {
    if (scanCode <= xkbKeycodeOffset || scanCode > std::numeric_limits<std::uint16_t>::max())
        return noKey;
    return virtualKeycode(static_cast<std::uint16_t>(scanCode - xkbKeycodeOffset));
}

} // namespace

std::uint16_t modifierWord(std::uint32_t flags) {
    std::uint16_t word = 0;
    if (flags & commandFlag)
        word |= commandModifier;
    if (flags & shiftFlag)
        word |= shiftModifier;
    if (flags & capsLockFlag)
        word |= capsLockModifier;
    if (flags & optionFlag)
        word |= optionModifier;
    if (flags & controlFlag)
        word |= controlModifier;
    return word;
}

bool isCapturableKey(const QKeyEvent& event) {
    return flagOfKey(event.nativeScanCode()) != 0 || AdbToUsbKeycode(keyCodeOf(event.nativeScanCode())) != 0;
}

ConvertedKey KeyEventConverter::convert(const QKeyEvent& event) {
    const bool down = event.type() == QEvent::KeyPress;
    const std::uint32_t scanCode = event.nativeScanCode();
    const std::uint32_t flag = flagOfKey(scanCode);
    const std::uint32_t ownBit = flag ? stateBitOf(event.nativeVirtualKey()) : 0;
    reconcile(event.nativeModifiers());
    // For its own modifier the event is more accurate than the state.
    const std::uint32_t otherState = event.nativeModifiers() & ~ownBit;

    ConvertedKey result{{KeyEventType::FlagsChanged}, flags(otherState)};
    if (isCapsLock(event)) {
        // The unlocking press takes effect only at its release, so derive the lock from the press.
        if (down)
            m_capsLock = (event.nativeModifiers() & kLockState) == 0;
        m_capsLockKeyHeld = down;
    } else if (flag != 0) {
        if (down)
            hold({scanCode, flag, ownBit});
        else
            release(scanCode);
    } else {
        result.event.type = down ? KeyEventType::KeyDown : KeyEventType::KeyUp;
        result.event.keyCode = keyCodeOf(scanCode);
        result.event.character = event.text().isEmpty() ? u'\0' : event.text().at(0).unicode();
    }
    result.event.modifierFlags = flags(otherState);
    return result;
}

void KeyEventConverter::forgetHeldKeys() {
    m_held.clear();
    m_capsLockKeyHeld = false;
}

void KeyEventConverter::reconcile(std::uint32_t state) {
    std::erase_if(
        m_held, [state](const HeldKey& key) { return key.stateBit != 0 && (state & key.stateBit) == 0; });
    if (!m_capsLockKeyHeld)
        m_capsLock = (state & kLockState) != 0;
}

void KeyEventConverter::hold(const HeldKey& key) {
    release(key.scanCode);
    m_held.push_back(key);
}

void KeyEventConverter::release(std::uint32_t scanCode) {
    std::erase_if(m_held, [scanCode](const HeldKey& key) { return key.scanCode == scanCode; });
}

std::uint32_t KeyEventConverter::flags(std::uint32_t state) const {
    std::uint32_t result = m_capsLock ? capsLockFlag : 0;
    std::uint32_t explained = 0;
    for (const HeldKey& key : m_held) {
        result |= key.flag;
        explained |= key.stateBit;
    }
    // Modifiers pressed while another window had the focus.
    for (const FlagOfState& bit : kFlagsOfStates)
        if (state & ~explained & bit.stateBit)
            result |= bit.flag;
    return result;
}

} // namespace quorvi
