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

} // namespace

KeyDispatch::KeyDispatch() {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window)
            return;
        m_converter.forgetHeldKeys();
        m_taken.clear();
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
    return performKeyKyvarQuorviPatch() || (event.isAutoRepeat() && isTaken(event.nativeScanCode()));
}

bool KeyDispatch::takesKey(const QKeyEvent& event) {
    if (event.isAutoRepeat())
        return isCapturing() || isTaken(event.nativeScanCode());
    const ConvertedKey converted = m_converter.convert(event);
    const bool wasTaken = release(event.nativeScanCode());
    if (!isCapturing())
        return wasTaken && event.type() == QEvent::KeyRelease;
    followMissedModifiers(modifierWord(converted.flagsBefore));
    if (event.type() == QEvent::KeyPress)
        gPatchedPane->updateKeyboardGrab();
    if (converted.event.type == KeyEventType::KeyUp && !wasTaken)
        return true;
    const bool usedUp = sendEventKyvarQuorviPatch(converted.event);
    if (usedUp && event.type() == QEvent::KeyPress)
        m_taken.push_back(event.nativeScanCode());
    return usedUp;
}

bool KeyDispatch::isTaken(std::uint32_t scanCode) const {
    return std::ranges::find(m_taken, scanCode) != m_taken.end();
}

bool KeyDispatch::release(std::uint32_t scanCode) {
    return std::erase(m_taken, scanCode) != 0;
}

} // namespace quorvi
