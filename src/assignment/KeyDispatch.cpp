#include "assignment/KeyDispatch.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPlatformSurfaceEvent>

#include <algorithm>

#include "assignment/EventPatch.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/PressedKeys.h"

namespace quorvi {

namespace {

bool isCapturing() {
    return gPatchedPane && gPatchedPane->overrideSingleKeys();
}

bool isAboutToGo(const QEvent& event) {
    return static_cast<const QPlatformSurfaceEvent&>(event).surfaceEventType() ==
           QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed;
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
    if (!watched->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return takes(watched, static_cast<QKeyEvent&>(*event));
    case QEvent::PlatformSurface:
        // The window is still there; the next events are those that come when it has gone.
        if (isAboutToGo(*event) && !m_held.empty())
            QMetaObject::invokeMethod(
                this, [this, watched] { forgetKeysReleasedIn(watched); }, Qt::QueuedConnection);
        return false;
    default:
        return false;
    }
}

bool KeyDispatch::takes(const QObject* window, QKeyEvent& event) {
    if (!isCapturableKey(event))
        return false;
    const bool taken =
        event.type() == QEvent::ShortcutOverride ? takesShortcut(event) : takesKey(window, event);
    // The host asks whether the event was accepted, and not whether it was delivered.
    if (taken)
        event.accept();
    return taken;
}

bool KeyDispatch::takesShortcut(const QKeyEvent& event) const {
    return performKeyKyvarQuorviPatch() || (isRepetition(event) && isTaken(event.nativeScanCode()));
}

bool KeyDispatch::takesKey(const QObject* window, const QKeyEvent& event) {
    if (isRepetition(event))
        return isCapturing() || isTaken(event.nativeScanCode());
    const bool isPress = event.type() == QEvent::KeyPress;
    const ConvertedKey converted = m_converter.convert(event);
    const bool wasTaken = release(event.nativeScanCode());
    if (converted.event.type == KeyEventType::KeyDown)
        m_held.push_back({event.nativeScanCode(), window});
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
    return event.isAutoRepeat() || (!isRelease && std::ranges::find(m_held, event.nativeScanCode(),
                                                      &HeldKey::scanCode) != m_held.end());
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
    std::erase_if(m_held, [scanCode](const HeldKey& key) { return key.scanCode == scanCode; });
    const bool wasTaken = std::erase(m_taken, scanCode) != 0;
    if (m_taken.empty())
        m_detectableAutoRepeat.reset();
    return wasTaken;
}

// A release that was on its way when its window went reaches nobody.
void KeyDispatch::forgetKeysReleasedIn(const QObject* window) {
    const std::vector<HeldKey> held = m_held;
    for (const HeldKey& key : held)
        if (key.window == window && isKeyKnownToBeUp(key.scanCode))
            release(key.scanCode);
}

void KeyDispatch::forgetHeldKeys() {
    m_converter.forgetHeldKeys();
    m_held.clear();
    m_taken.clear();
    m_detectableAutoRepeat.reset();
}

} // namespace quorvi
