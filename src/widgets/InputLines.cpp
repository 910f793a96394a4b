#include "widgets/InputLines.h"

#include <QEvent>
#include <QPainter>

#include "widgets/MouseView.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kPlainWidth = 1.0;
constexpr qreal kMarkedWidth = 2.2;
constexpr qreal kLineShareOfText = 0.4;

} // namespace

InputLines::InputLines(MouseView& view, const Controls& controls)
    : QWidget(view.parentWidget()), m_view(view), m_controls(controls) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    lower();
    view.lower();
    view.installEventFilter(this);
    view.parentWidget()->installEventFilter(this);
    for (QWidget* control : controls)
        control->installEventFilter(this);
    connect(&view.marks(), &InputMarks::changed, this, QOverload<>::of(&QWidget::update));
}

QLineF InputLines::lineOf(int input) const {
    const QWidget* control = m_controls.at(std::size_t(input - 1));
    const QRectF edges(control->mapTo(parentWidget(), QPoint()), QSizeF(control->size()));
    const QPointF middle = m_view.mapTo(parentWidget(), QPoint()) + m_view.middleOfInput(input);
    const bool before = edges.center().x() < middle.x();
    QLineF line(QPointF(before ? edges.right() : edges.left(), edges.center().y()), middle);
    line.setLength(line.length() - m_view.radiusOfInput());
    return line;
}

bool InputLines::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Move:
        setGeometry(parentWidget()->rect());
        update();
        break;
    case QEvent::EnabledChange:
        update();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void InputLines::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPalette colours = palette();
    colours.setCurrentColorGroup(m_view.isEnabled() ? QPalette::Active : QPalette::Disabled);
    const QColor plain = lineOnWindow(colours, kLineShareOfText);
    for (int input = 1; input <= mouseInputs; ++input) {
        const bool marked = m_view.isEnabled() && m_view.marks().isMarked(input);
        painter.setPen(QPen(marked ? markColour(colours) : plain, marked ? kMarkedWidth : kPlainWidth));
        painter.drawLine(lineOf(input));
    }
}

} // namespace quorvi
