#include "assignment/KeyDispatch.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>

#include "assignment/EventPatch.h"
#include "pane/KyvarQuorviPane.h"

namespace quorvi {

namespace {

bool isCapturing() {
    return gPatchedPane && gPatchedPane->overrideSingleKeys();
}

/// Whether this release, of a key whose press the capture has not had, is none of the capture's business.
/// That of a modifier is: what was typed with it may be recorded, and then its release has to be. A recording
/// that waits for its one step has no such step yet.
bool isFromBefore(const KeyEvent& release) {
    return release.type == KeyEventType::KeyUp || gPatchedPane->awaitsOneStep();
}

} // namespace

KeyDispatch::KeyDispatch() {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (!window)
            forgetHeldKeys();
    });
}

bool KeyDispatch::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::ShortcutOverride && type != QEvent::KeyPress && type != QEvent::KeyRelease)
        return false;
    if (!watched->isWindowType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (!isCapturableKey(key))
        return false;
    const bool taken = type == QEvent::ShortcutOverride ? takesShortcut(key) : takesKey(key);
    // The host asks whether the event was accepted, and not whether it was delivered.
    if (taken)
        event->accept();
    return taken;
}

bool KeyDispatch::takesShortcut(const QKeyEvent& event) const {
    return performKeyKyvarQuorviPatch() || (isRepetition(event) && isTaken(event.nativeScanCode()));
}

bool KeyDispatch::takesKey(const QKeyEvent& event) {
    if (isRepetition(event))
        return isCapturing() || isTaken(event.nativeScanCode());
    const bool isPress = event.type() == QEvent::KeyPress;
    const ConvertedKey converted = m_converter.convert(event);
    const bool wasTaken = release(event.nativeScanCode());
    if (converted.event.type == KeyEventType::KeyDown)
        m_held.push_back(event.nativeScanCode());
    if (!isCapturing()) {
        if (isPress) // of all held keys the last one repeats, and it is the host's
            m_detectableAutoRepeat.reset();
        return wasTaken && !isPress;
    }
    followMissedModifiers(modifierWord(converted.flagsBefore));
    if (isPress)
        gPatchedPane->updateKeyboardGrab();
    if (!isPress && !wasTaken && isFromBefore(converted.event)) {
        followMissedModifiers(modifierWord(converted.event.modifierFlags));
        return true;
    }
    const bool usedUp = sendEventKyvarQuorviPatch(converted.event);
    if (usedUp && isPress)
        take(event.nativeScanCode());
    return usedUp;
}

bool KeyDispatch::isRepetition(const QKeyEvent& event) const {
    const bool isRelease = event.type() == QEvent::KeyRelease;
    return event.isAutoRepeat() ||
           (!isRelease && std::ranges::find(m_held, event.nativeScanCode()) != m_held.end());
}

bool KeyDispatch::isTaken(std::uint32_t scanCode) const {
    return std::ranges::find(m_taken, scanCode) != m_taken.end();
}

void KeyDispatch::take(std::uint32_t scanCode) {
    m_taken.push_back(scanCode);
    if (!m_detectableAutoRepeat)
        m_detectableAutoRepeat.emplace();
}

bool KeyDispatch::release(std::uint32_t scanCode) {
    std::erase(m_held, scanCode);
    const bool wasTaken = std::erase(m_taken, scanCode) != 0;
    if (m_taken.empty())
        m_detectableAutoRepeat.reset();
    return wasTaken;
}

void KeyDispatch::forgetHeldKeys() {
    m_converter.forgetHeldKeys();
    m_held.clear();
    m_taken.clear();
    m_detectableAutoRepeat.reset();
}

} // namespace quorvi
