#include "capture/KeyCapture.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace quorvi {

namespace {

bool isAboutToGo(const QEvent& event) {
    return static_cast<const QPlatformSurfaceEvent&>(event).surfaceEventType() ==
           QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed;
}

/// Whether a menu has the focus. It has it for a moment even when it has closed, until the display tells that
/// the focus is back where it was.
bool isMenu(const QWindow& window) {
    return window.type() == Qt::Popup;
}

/// Whether the window is the pane's or a child of it, such as a sheet.
bool belongsTo(const QWindow* window, const QWindow* paneWindow) {
    while (window && window != paneWindow)
        window = window->parent(QWindow::IncludeTransients);
    return window;
}

} // namespace

KeyCapture::KeyCapture(QWidget& view, FollowedModifiers& modifiers, std::vector<KeySink*> sinks)
    : m_view(&view), m_modifiers(modifiers), m_sinks(std::move(sinks)) {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        updateKeyboardGrab();
        if (!window)
            forgetHeldKeys();
    });
}

KeyCapture::~KeyCapture() = default;

void KeyCapture::start() {
    m_running = true;
    QCoreApplication::instance()->installEventFilter(this);
}

void KeyCapture::stop() {
    m_running = false;
    QCoreApplication::instance()->removeEventFilter(this);
    forgetHeldKeys();
    updateKeyboardGrab();
}

KeySink* KeyCapture::activeSink() const {
    const auto found = std::ranges::find_if(m_sinks, &KeySink::wantsKeys);
    return found == m_sinks.end() ? nullptr : *found;
}

// A key passes from here through each of the following functions to the sink.
bool KeyCapture::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return takes(watched, static_cast<QKeyEvent&>(*event));
    case QEvent::PlatformSurface:
        // A pending release is lost when its window goes away. The window still exists here, so act after the
        // present event.
        if (isAboutToGo(*event) && m_keys.areHeld())
            QMetaObject::invokeMethod(
                this, [this, watched] { m_keys.forgetReleasedIn(watched); }, Qt::QueuedConnection);
        return false;
    default:
        return false;
    }
}

bool KeyCapture::takes(const QObject* window, QKeyEvent& event) {
    if (!isCapturableKey(event))
        return false;
    const bool taken =
        event.type() == QEvent::ShortcutOverride ? takesShortcut(event) : takesKey(window, event);
    // The host checks whether the event was accepted, not whether it was delivered.
    if (taken)
        event.accept();
    return taken;
}

// The key itself is not offered to the sink here, since its press is still to come.
bool KeyCapture::takesShortcut(const QKeyEvent& event) const {
    return isActive() || (isRepetition(event) && m_keys.isTaken(event.nativeScanCode()));
}

bool KeyCapture::takesKey(const QObject* window, const QKeyEvent& event) {
    const std::uint32_t scanCode = event.nativeScanCode();
    if (isRepetition(event))
        return isActive() || m_keys.isTaken(scanCode);
    const bool isPress = event.type() == QEvent::KeyPress;
    const ConvertedKey key = m_converter.convert(event);
    const bool wasTaken = m_keys.release(scanCode);
    if (key.event.type == KeyEventType::KeyDown)
        m_keys.press(scanCode, window);
    if (!isActive()) {
        if (isPress)
            m_keys.letHostRepeat();
        return wasTaken && !isPress;
    }
    const bool captured = captures(key, isPress, wasTaken);
    if (captured && isPress)
        m_keys.take(scanCode);
    return captured;
}

bool KeyCapture::captures(const ConvertedKey& key, bool isPress, bool wasTaken) {
    followMissedModifiers(modifierWord(key.flagsBefore));
    if (isPress)
        updateKeyboardGrab();
    if (!isPress && !wasTaken && isFromBefore(key.event)) {
        followMissedModifiers(modifierWord(key.event.modifierFlags));
        return true;
    }
    return receive(key.event);
}

bool KeyCapture::receive(const KeyEvent& event) {
    const std::uint8_t key = event.type == KeyEventType::FlagsChanged ? noKey : event.keyCode;
    const std::uint16_t modifiers = modifierWord(event.modifierFlags);
    const ModifierChange change = m_modifiers.follow(modifiers);
    if (key == noKey && change == ModifierChange::none)
        return false;
    return receive({.key = key,
        .modifiers = modifiers,
        .goingDown = change == ModifierChange::pressed || event.type == KeyEventType::KeyDown});
}

bool KeyCapture::receive(const CapturedKey& key) {
    KeySink* const sink = activeSink();
    if (sink)
        sink->receiveKey(key);
    return sink;
}

void KeyCapture::followMissedModifiers(std::uint16_t modifiers) {
    m_modifiers.catchUp(modifiers);
    for (KeySink* sink : m_sinks)
        sink->followModifiers(modifiers);
}

bool KeyCapture::isRepetition(const QKeyEvent& event) const {
    const bool isRelease = event.type() == QEvent::KeyRelease;
    return event.isAutoRepeat() || (!isRelease && m_keys.isHeld(event.nativeScanCode()));
}

/// Whether to ignore this release of a key whose press the capture has not seen. A modifier's release is not
/// ignored: keys typed with it may have been recorded, and then its release must be too. A capture that
/// awaits one key has recorded none yet.
bool KeyCapture::isFromBefore(const KeyEvent& release) const {
    return release.type == KeyEventType::KeyUp || activeSink()->awaitsOneKey();
}

void KeyCapture::updateKeyboardGrab() {
    QWindow* const focused = QGuiApplication::focusWindow();
    if (!m_running || !focused || !m_view || !isActive() ||
        !belongsTo(focused, m_view->window()->windowHandle()))
        m_grab.stop();
    // A grab hides from Qt where a menu's own grab gives the focus to when it ends, and Qt would take the
    // focus for lost. Once it is back, this is called again.
    else if (!isMenu(*focused))
        m_grab.start(focused);
}

void KeyCapture::forgetHeldKeys() {
    m_converter.forgetHeldKeys();
    m_keys.forget();
}

} // namespace quorvi
