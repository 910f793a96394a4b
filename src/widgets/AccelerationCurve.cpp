#include "widgets/AccelerationCurve.h"

#include <QPainter>
#include <QPainterPath>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kPoints = 48; ///< of the curve: no corner shows at this size
constexpr qreal kMargin = 4.0;
constexpr qreal kCurveWidth = 2.4;
constexpr qreal kLabelGap = 2.0;

} // namespace

AccelerationCurve::AccelerationCurve(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void AccelerationCurve::setFactor(float factor) {
    m_factor = effectiveAcceleration(factor);
    update();
}

void AccelerationCurve::setHandLabel(const QString& label) {
    m_handLabel = label;
    updateGeometry();
    update();
}

void AccelerationCurve::setPointerLabel(const QString& label) {
    m_pointerLabel = label;
    updateGeometry();
    update();
}

QRectF AccelerationCurve::plot() const {
    const qreal label = fontMetrics().height() + kLabelGap;
    return QRectF(rect()).adjusted(label, kMargin, -kMargin, -label);
}

QPointF AccelerationCurve::pointAt(double handSpeed, double factor) const {
    const QRectF area = plot();
    return {area.left() + handSpeed * area.width(),
        area.bottom() - pointerSpeed(handSpeed, factor) / double(highestAcceleration) * area.height()};
}

QSize AccelerationCurve::sizeHint() const {
    return {12 * fontMetrics().height(), 8 * fontMetrics().height()};
}

QSize AccelerationCurve::minimumSizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int label = metrics.height() + int(kLabelGap + 2 * kMargin);
    return {qMax(8 * metrics.height(), metrics.horizontalAdvance(m_handLabel) + label),
        qMax(4 * metrics.height(), metrics.horizontalAdvance(m_pointerLabel) + int(kMargin))};
}

void AccelerationCurve::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = plot();
    painter.fillRect(area, palette().color(QPalette::Base));
    painter.setPen(QPen(outlineColour(palette()), 1));
    painter.drawLine(area.topLeft(), area.bottomLeft());
    painter.drawLine(area.bottomLeft(), area.bottomRight());

    painter.setPen(QPen(mutedTextColour(palette()), 1.2, Qt::DashLine));
    painter.drawLine(pointAt(0, double(neutralAcceleration)), pointAt(1, double(neutralAcceleration)));

    QPainterPath curve(pointAt(0, double(m_factor)));
    for (int point = 1; point <= kPoints; ++point)
        curve.lineTo(pointAt(double(point) / kPoints, double(m_factor)));
    painter.setPen(QPen(markColour(palette()), kCurveWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(curve);

    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF below(area.left(), area.bottom() + kLabelGap, area.width(), fontMetrics().height());
    painter.drawText(
        below, Qt::AlignCenter, fontMetrics().elidedText(m_handLabel, Qt::ElideRight, int(area.width())));
    const QString beside = fontMetrics().elidedText(m_pointerLabel, Qt::ElideRight, height());
    const qreal length = fontMetrics().horizontalAdvance(beside);
    // Beside the middle of the axis; one that is longer than that reaches down beside the other label.
    painter.translate(0, qMax(0.0, area.center().y() - length / 2) + length);
    painter.rotate(-90);
    painter.drawText(QRectF(0, 0, length, fontMetrics().height()), Qt::AlignCenter, beside);
}

} // namespace quorvi
