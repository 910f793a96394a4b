#include "widgets/MouseView.h"

#include <QHelpEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <utility>

#include "widgets/Metrics.h"
#include "widgets/MouseDrawing.h"

namespace quorvi {

namespace {

constexpr int kWheelUp = 8;
constexpr int kWheelDown = 9;
constexpr int kWheelMarkMs = 300;
constexpr qreal kReach = 1.35; // times its radius around a number: small circles are hard to hit

} // namespace

MouseView::MouseView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
    connect(&m_marks, &InputMarks::changed, this, QOverload<>::of(&QWidget::update));
    connect(&m_fade, &PressFade::changed, this, QOverload<>::of(&QWidget::update));
    m_wheelRest.setSingleShot(true);
    m_wheelRest.setInterval(kWheelMarkMs);
    connect(&m_wheelRest, &QTimer::timeout, this, [this] {
        for (const auto reason : {InputMarks::Pressed, InputMarks::Reported}) {
            m_marks.set(kWheelUp, reason, false);
            m_marks.set(kWheelDown, reason, false);
        }
    });
}

void MouseView::setReported(bool reported) {
    m_reported = reported;
    m_pressed.setActive(!reported);
}

void MouseView::reportInput(int input, bool pressed) {
    m_marks.set(input, InputMarks::Reported, pressed);
    if (input == kWheelUp || input == kWheelDown) {
        m_marks.set(input == kWheelUp ? kWheelDown : kWheelUp, InputMarks::Reported, false);
        m_wheelRest.start();
    }
}

void MouseView::setLights(bool wheel, bool battery) {
    m_wheelIsLit = wheel;
    m_batteryIsLit = battery;
    update();
}

QTransform MouseView::fromSheet() const {
    return sheetOn(size());
}

QPointF MouseView::middleOfInput(int input) const {
    return fromSheet().map(placeOfInput(input));
}

qreal MouseView::radiusOfInput() const {
    return badgeRadius * fromSheet().m11();
}

int MouseView::inputAt(const QPointF& point) const {
    for (int input = 1; input <= mouseInputs; ++input) {
        if (QLineF(point, middleOfInput(input)).length() <= radiusOfInput() * kReach)
            return input;
    }
    return 0;
}

QSize MouseView::sizeHint() const {
    return mouseSheet.size().toSize();
}

QSize MouseView::minimumSizeHint() const {
    return {metrics::leastMouse, metrics::leastMouseHigh};
}

void MouseView::pointAt(int input) {
    m_marks.setOnly(input, InputMarks::Pointed);
    setCursor(input != 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void MouseView::mouseMoveEvent(QMouseEvent* event) {
    pointAt(inputAt(event->pos()));
}

bool MouseView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    explain(*static_cast<QHelpEvent*>(event));
    return true;
}

void MouseView::explain(const QHelpEvent& event) {
    const int input = inputAt(event.pos());
    const QString text = input != 0 && m_explanation ? m_explanation(input) : QString();
    if (text.isEmpty())
        return QToolTip::hideText();
    QString lines = text.toHtmlEscaped(); // names are shown literally
    lines.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    const qreal reached = radiusOfInput() * kReach;
    const QRectF around(middleOfInput(input) - QPointF(reached, reached), QSizeF(2 * reached, 2 * reached));
    QToolTip::showText(
        event.globalPos(), QStringLiteral("<span>%1</span>").arg(lines), this, around.toAlignedRect());
}

void MouseView::leaveEvent(QEvent* /*event*/) {
    pointAt(0);
}

void MouseView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_clicked = inputAt(event->pos());
}

void MouseView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const int pressed = std::exchange(m_clicked, 0);
    if (pressed != 0 && inputAt(event->pos()) == pressed)
        emit inputClicked(pressed);
}

// The event is left to the host, which may scroll the surrounding area.
void MouseView::wheelEvent(QWheelEvent* event) {
    event->ignore();
    const int turn = event->inverted() ? -event->angleDelta().y() : event->angleDelta().y();
    if (turn == 0 || m_reported)
        return;
    m_marks.set(turn > 0 ? kWheelUp : kWheelDown, InputMarks::Pressed, true);
    m_marks.set(turn > 0 ? kWheelDown : kWheelUp, InputMarks::Pressed, false);
    m_wheelRest.start();
}

BadgeState MouseView::stateOf(int input) const {
    if (isEnabled() && m_marks.isPressed(input))
        return BadgeState::Pressed;
    if (isEnabled() && m_marks.isMarked(input))
        return BadgeState::Marked;
    return m_marks.isKnown(input) ? BadgeState::Known : BadgeState::Plain;
}

void MouseView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    m_picture.paint(painter, *this, m_wheelIsLit, m_batteryIsLit);
    painter.setTransform(fromSheet(), true);
    for (int input = 1; input <= mouseInputs; ++input)
        drawBadge(painter, palette(), input, stateOf(input), m_fade.left(input));
}

} // namespace quorvi
