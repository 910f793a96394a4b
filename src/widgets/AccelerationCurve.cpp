#include "widgets/AccelerationCurve.h"

#include <QPainter>
#include <QPainterPath>

#include "widgets/FilledText.h"
#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kPoints = 48; ///< enough for a smooth curve at this size
constexpr qreal kMargin = 4.0;
constexpr qreal kCurveWidth = 2.4;
constexpr qreal kLabelGap = 2.0;
constexpr qreal kPointRadius = 4.0;
constexpr int kParts = 4; ///< of each axis
constexpr qreal kGridShare = 0.2;
constexpr int kPercent = 100;

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

void AccelerationCurve::setNowLabel(const QString& label) {
    m_nowLabel = label;
    update();
}

QString AccelerationCurve::nowText() const {
    return filledText(m_nowLabel, {QString::number(qRound(double(m_factor) * kPercent))});
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
    return {12 * fontMetrics().height(), qMax(metrics::curveHeight, 8 * fontMetrics().height())};
}

QSize AccelerationCurve::minimumSizeHint() const {
    const QFontMetrics font = fontMetrics();
    const int label = font.height() + int(kLabelGap + 2 * kMargin);
    return {qMax(metrics::curveWidth, font.horizontalAdvance(m_handLabel) + label),
        qMax(metrics::curveHeight, font.horizontalAdvance(m_pointerLabel) + int(kMargin))};
}

void AccelerationCurve::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = plot();
    painter.fillRect(area, palette().color(QPalette::Base));
    paintGrid(painter, area);
    paintCurve(painter);
    paintNow(painter, area);
    paintAxes(painter, area);
}

void AccelerationCurve::paintGrid(QPainter& painter, const QRectF& area) const {
    painter.setPen(
        QPen(mixed(kGridShare, palette().color(QPalette::Text), palette().color(QPalette::Base)), 1));
    for (int part = 1; part <= kParts; ++part) {
        const qreal x = area.left() + area.width() * part / kParts;
        const qreal y = area.bottom() - area.height() * part / kParts;
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    }
    painter.setPen(QPen(outlineColour(palette()), 1));
    painter.drawLine(area.topLeft(), area.bottomLeft());
    painter.drawLine(area.bottomLeft(), area.bottomRight());
}

void AccelerationCurve::paintCurve(QPainter& painter) const {
    painter.setPen(QPen(mutedTextColour(palette()), 1.2, Qt::DashLine));
    painter.drawLine(pointAt(0, double(neutralAcceleration)), pointAt(1, double(neutralAcceleration)));

    QPainterPath curve(pointAt(0, double(m_factor)));
    for (int point = 1; point <= kPoints; ++point)
        curve.lineTo(pointAt(double(point) / kPoints, double(m_factor)));
    const QColor mark = markColour(palette());
    painter.setPen(QPen(mark, kCurveWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(curve);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    painter.drawEllipse(pointAt(1, double(m_factor)), kPointRadius, kPointRadius);
    painter.setBrush(Qt::NoBrush);
}

/// Beside the point, on the side of the curve that is free: above it where it bends up, and below it where it
/// bends down and there is room.
void AccelerationCurve::paintNow(QPainter& painter, const QRectF& area) const {
    const QPointF point = pointAt(1, double(m_factor));
    const int height = fontMetrics().height();
    const bool above = m_factor >= neutralAcceleration || point.y() + kPointRadius + height > area.bottom();
    const qreal top = above ? qMax(area.top(), point.y() - kPointRadius - height) : point.y() + kPointRadius;
    const QRectF place(area.left() + kMargin, top, area.width() - 2 * kMargin - kPointRadius, height);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(place, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter, nowText());
}

void AccelerationCurve::paintAxes(QPainter& painter, const QRectF& area) const {
    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF below(area.left(), area.bottom() + kLabelGap, area.width(), fontMetrics().height());
    painter.drawText(
        below, Qt::AlignCenter, fontMetrics().elidedText(m_handLabel, Qt::ElideRight, int(area.width())));
    const QString beside = fontMetrics().elidedText(m_pointerLabel, Qt::ElideRight, height());
    const qreal length = fontMetrics().horizontalAdvance(beside);
    // Next to the middle of the axis; a longer label extends down next to the other one.
    painter.translate(0, qMax(0.0, area.center().y() - length / 2) + length);
    painter.rotate(-90);
    painter.drawText(QRectF(0, 0, length, fontMetrics().height()), Qt::AlignCenter, beside);
}

} // namespace quorvi
