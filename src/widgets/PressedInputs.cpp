#include "widgets/PressedInputs.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

#include <array>

#include "widgets/InputMarks.h"

namespace quorvi {

namespace {

constexpr std::array kButtons{
    Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton};

} // namespace

int inputOfButton(Qt::MouseButton button) {
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        if (kButtons.at(i) == button)
            return int(i) + 1;
    }
    return 0;
}

PressedInputs::PressedInputs(QWidget& view, InputMarks& marks) : m_view(view), m_marks(marks) {
    view.installEventFilter(this);
}

void PressedInputs::setActive(bool active) {
    m_active = active;
    if (!active)
        keepOnly({});
}

// Events of windows, not of widgets: a press is seen even if a widget accepts it, and its release even if a
// menu opened by the press receives it.
bool PressedInputs::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
        if (watched == &m_view)
            qApp->installEventFilter(this);
        break;
    case QEvent::Hide:
        if (watched == &m_view) {
            qApp->removeEventFilter(this);
            keepOnly({});
        }
        break;
    case QEvent::WindowDeactivate: // a release may go elsewhere from now on
        if (watched == m_view.window())
            keepOnly({});
        break;
    case QEvent::MouseButtonPress:
        if (m_active && watched == m_view.window()->windowHandle())
            m_marks.set(inputOfButton(static_cast<QMouseEvent*>(event)->button()), InputMarks::Pressed, true);
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        if (watched->isWindowType())
            keepOnly(static_cast<QMouseEvent*>(event)->buttons());
        break;
    default:
        break;
    }
    return false;
}

void PressedInputs::keepOnly(Qt::MouseButtons held) {
    for (const Qt::MouseButton button : kButtons) {
        if (!held.testFlag(button))
            m_marks.set(inputOfButton(button), InputMarks::Pressed, false);
    }
}

} // namespace quorvi
