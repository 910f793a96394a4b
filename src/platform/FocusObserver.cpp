#include "platform/FocusObserver.h"

#include <QEvent>
#include <QGuiApplication>

namespace quorvi {

FocusObserver::FocusObserver(QObject* parent) : QObject(parent) {}

void FocusObserver::start(QWidget* window) {
    stop();
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
    m_applicationState =
        connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
            if (state != Qt::ApplicationActive)
                emit applicationDidResignActive();
        });
}

void FocusObserver::stop() {
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = nullptr;
    disconnect(m_applicationState);
}

bool FocusObserver::eventFilter(QObject* watched, QEvent* event) {
    // These two arrive before the widgets inside lose the focus, so an edit can still be cancelled.
    if (event->type() == QEvent::WindowActivate)
        emit windowDidBecomeKey();
    else if (event->type() == QEvent::WindowDeactivate)
        emit windowDidResignKey();
    return QObject::eventFilter(watched, event);
}

} // namespace quorvi
