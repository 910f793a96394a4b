#include "platform/KeyboardGrab.h"

#include <QGuiApplication>

namespace quorvi {

namespace {

/// Other platforms cannot, and say so on the standard error output each time that they are asked.
bool canGrab() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

} // namespace

KeyboardGrab::~KeyboardGrab() {
    stop();
}

void KeyboardGrab::start(QWindow* window) {
    m_window = window; // a grab of our own needs no release before it goes from window to window
    if (canGrab())
        window->setKeyboardGrabEnabled(true);
    else
        m_inhibitor.start(window);
}

void KeyboardGrab::stop() {
    m_inhibitor.stop();
    if (m_window && canGrab())
        m_window->setKeyboardGrabEnabled(false);
    m_window = nullptr;
}

} // namespace quorvi
