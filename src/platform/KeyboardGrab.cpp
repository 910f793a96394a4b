#include "platform/KeyboardGrab.h"

#include <QGuiApplication>

#include "platform/GrabFocusFilter.h"

namespace quorvi {

namespace {

/// Other platforms cannot, and print that on standard error at each attempt.
bool canGrab() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

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
    // A grab at the moment when the user switches to another window would make Qt believe that the focus had
    // returned, and the keyboard would never be released.
    if (!m_focusFilter)
        m_focusFilter = std::make_unique<GrabFocusFilter>(GrabFocusFilter::Hidden::beginningsAndEnds);
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
