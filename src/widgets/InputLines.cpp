#include "widgets/InputLines.h"

#include <QEvent>
#include <QLineF>
#include <QPainter>

#include "widgets/Metrics.h"
#include "widgets/MouseBody.h"
#include "widgets/MouseView.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kPlainWidth = 1.0;
constexpr qreal kMarkedWidth = 2.2;
constexpr qreal kLineShareOfText = 0.4;

/// Around a control, most of it hidden behind it.
void frame(QPainter& painter, const QRectF& control, const QColor& colour) {
    constexpr qreal out = metrics::markFrame / 2.0;
    painter.setPen(QPen(colour, metrics::markFrame));
    painter.drawRoundedRect(control.adjusted(-out, -out, out, out), metrics::corner, metrics::corner);
}

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

QRectF InputLines::edgesOf(int input) const {
    const QWidget* control = m_controls.at(std::size_t(input - 1));
    return {control->mapTo(parentWidget(), QPoint()), QSizeF(control->size())};
}

QPolygonF InputLines::lineOf(int input) const {
    const QRectF edges = edgesOf(input);
    const QPointF middle = m_view.mapTo(parentWidget(), QPoint()) + m_view.middleOfInput(input);
    const bool before = edges.center().x() < middle.x();
    const QPointF begin(before ? edges.right() : edges.left(), edges.center().y());
    const QPointF knee = begin + QPointF(before ? metrics::knee : -metrics::knee, 0);
    QLineF slope(knee, middle);
    slope.setLength(slope.length() - m_view.radiusOfInput());
    return QPolygonF({begin, knee, slope.p2()});
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
    const MouseTones tones = mouseTones(colours);
    const QColor window = colours.color(QPalette::Window);
    const QColor plain = lineOn(colours, kLineShareOfText, {window, tones.lightest, tones.darkest});
    const QColor mark = markOn(colours, {window, tones.lightest, tones.darkest});
    for (int input = 1; input <= mouseInputs; ++input) {
        const bool marked = m_view.isEnabled() && m_view.marks().isMarked(input);
        painter.setPen(QPen(marked ? mark : plain, marked ? kMarkedWidth : kPlainWidth, Qt::SolidLine,
            Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(lineOf(input));
        if (marked)
            frame(painter, edgesOf(input), markColour(colours));
    }
}

} // namespace quorvi
