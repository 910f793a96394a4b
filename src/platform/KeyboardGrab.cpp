#include "platform/KeyboardGrab.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>

#include <xcb/xcb.h>

namespace quorvi {

namespace {

/// Other platforms cannot, and print that on standard error at each attempt.
bool canGrab() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

/// A grab begins and ends with its own focus events, which tell where keys go, not where the focus is. Qt
/// treats them as focus changes: a grab at the moment when the user switches to another window would make Qt
/// believe that the focus had returned, and the keyboard would never be released.
class GrabFocusFilter : public QAbstractNativeEventFilter {
  public:
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    using Result = qintptr;
#else
    using Result = long;
#endif
    GrabFocusFilter() {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray& eventType, void* message, Result* /*result*/) override {
        if (eventType != "xcb_generic_event_t")
            return false;
        constexpr int kSentEvent = 0x80;
        const int type = static_cast<const xcb_generic_event_t*>(message)->response_type & ~kSentEvent;
        if (type != XCB_FOCUS_IN && type != XCB_FOCUS_OUT)
            return false;
        // Both events have the same layout.
        const auto mode = static_cast<const xcb_focus_in_event_t*>(message)->mode;
        return mode == XCB_NOTIFY_MODE_GRAB || mode == XCB_NOTIFY_MODE_UNGRAB;
    }
};

} // namespace

KeyboardGrab::KeyboardGrab() = default;

KeyboardGrab::~KeyboardGrab() {
    stop();
}

void KeyboardGrab::start(QWindow* window) {
    m_window = window; // our own grab can move between windows without a release
    if (!canGrab()) {
        m_inhibitor.start(window);
        return;
    }
    if (!m_focusFilter)
        m_focusFilter = std::make_unique<GrabFocusFilter>();
    if (!m_detectableAutoRepeat)
        m_detectableAutoRepeat.emplace();
    window->setKeyboardGrabEnabled(true);
}

void KeyboardGrab::stop() {
    m_inhibitor.stop();
    if (m_window && canGrab())
        m_window->setKeyboardGrabEnabled(false);
    m_focusFilter.reset();
    m_detectableAutoRepeat.reset();
    m_window = nullptr;
}

} // namespace quorvi
