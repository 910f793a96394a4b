#include "widgets/MouseDrawing.h"

#include <QPainterPath>

#include <array>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

// From input 1: left, right and wheel button, side buttons rear and front, the two behind the wheel, wheel up
// and down. The first two stand high enough for the lines to the wheel to pass below them.
constexpr std::array kPlaces{
    QPointF(64.0, 54.0),
    QPointF(156.0, 54.0),
    QPointF(110.0, 94.0),
    QPointF(25.0, 199.0),
    QPointF(25.0, 147.0),
    QPointF(110.0, 160.0),
    QPointF(110.0, 194.0),
    QPointF(110.0, 62.0),
    QPointF(110.0, 126.0),
};

constexpr QRectF wheel(94, 42, 32, 104);
constexpr QRectF battery(92, 258, 36, 16);
constexpr int kBatteryBars = 3;
constexpr qreal kPressedRing = 4.5;

QPainterPath bodyPath() {
    QPainterPath path(QPointF(110, 14));
    path.cubicTo(165, 14, 196, 46, 198, 110);
    path.cubicTo(200, 160, 190, 180, 196, 230);
    path.cubicTo(198, 290, 160, 318, 110, 318);
    path.cubicTo(60, 318, 22, 290, 24, 230);
    path.cubicTo(30, 180, 20, 160, 22, 110);
    path.cubicTo(24, 46, 55, 14, 110, 14);
    return path;
}

QColor onWindow(const QPalette& palette, qreal share) {
    return mixed(share, palette.color(QPalette::WindowText), palette.color(QPalette::Window));
}

/// The mouse itself, and its buttons and wheel.
QColor bodyColour(const QPalette& palette) {
    return onWindow(palette, 0.06);
}
QColor partColour(const QPalette& palette) {
    return onWindow(palette, 0.14);
}

/// The lines around and on them.
QColor edgeColour(const QPalette& palette) {
    return lineOnWindow(palette, 0.45, partColour(palette));
}

void drawBody(QPainter& painter, const QPalette& palette) {
    painter.setPen(QPen(edgeColour(palette), 1.6));
    painter.setBrush(bodyColour(palette));
    painter.drawPath(bodyPath());
    QPainterPath seams(QPointF(110, 14));
    seams.lineTo(110, wheel.top());
    seams.moveTo(24, 128);
    seams.cubicTo(60, 140, 80, 142, 94, 140);
    seams.moveTo(196, 128);
    seams.cubicTo(160, 140, 140, 142, 126, 140);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(seams);
}

void drawParts(QPainter& painter, const QPalette& palette) {
    painter.setPen(QPen(edgeColour(palette), 1.4));
    painter.setBrush(partColour(palette));
    painter.drawRoundedRect(wheel, 16, 16);
    painter.drawRoundedRect(QRectF(96, 148, 28, 24), 8, 8);
    painter.drawRoundedRect(QRectF(96, 182, 28, 24), 8, 8);
    painter.drawRoundedRect(QRectF(14, 124, 22, 46), 9, 9);
    painter.drawRoundedRect(QRectF(14, 176, 22, 46), 9, 9);
}

void drawWheelLight(QPainter& painter, const QPalette& palette) {
    QColor glow = markColour(palette);
    painter.setBrush(Qt::NoBrush);
    for (const auto& [width, alpha] : {std::pair(9.0, 0.2), std::pair(6.0, 0.35), std::pair(2.6, 1.0)}) {
        glow.setAlphaF(float(alpha));
        painter.setPen(QPen(glow, width));
        painter.drawRoundedRect(wheel, 16, 16);
    }
}

void drawBattery(QPainter& painter, const QPalette& palette, bool lit) {
    const QColor line = lit ? markColour(palette) : edgeColour(palette);
    painter.setPen(QPen(line, 1.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(battery, 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(line);
    painter.drawRect(QRectF(battery.right() + 1.5, battery.center().y() - 3, 2.5, 6));
    if (!lit)
        return;
    const QRectF inner = battery.adjusted(3, 3, -3, -3);
    const qreal step = (inner.width() + 2) / kBatteryBars;
    for (int bar = 0; bar < kBatteryBars; ++bar)
        painter.drawRect(QRectF(inner.left() + bar * step, inner.top(), step - 2, inner.height()));
}

} // namespace

QTransform sheetOn(const QSizeF& area) {
    const qreal scale = qMin(area.width() / mouseSheet.width(), area.height() / mouseSheet.height());
    QTransform transform;
    transform.translate(area.width() / 2.0, area.height() / 2.0);
    transform.scale(scale, scale);
    transform.translate(-mouseSheet.width() / 2.0, -mouseSheet.height() / 2.0);
    return transform;
}

QPointF placeOfInput(int input) {
    return kPlaces.at(std::size_t(input - 1));
}

QRectF wheelLight() {
    return wheel;
}

QRectF batteryLight() {
    return battery;
}

void drawMouse(QPainter& painter, const QPalette& palette, bool wheelIsLit, bool batteryIsLit) {
    drawBody(painter, palette);
    drawParts(painter, palette);
    if (wheelIsLit)
        drawWheelLight(painter, palette);
    drawBattery(painter, palette, batteryIsLit);
}

namespace {

/// On the edge of the number's circle.
void drawTick(QPainter& painter, const QPalette& palette, const QPointF& middleOfNumber) {
    constexpr qreal tickRadius = 7.0;
    const QPointF middle = middleOfNumber + QPointF(badgeRadius, -badgeRadius) * 0.8;
    painter.setPen(QPen(palette.color(QPalette::Window), 1.0));
    painter.setBrush(markGroundColour(palette));
    painter.drawEllipse(middle, tickRadius, tickRadius);
    painter.setPen(
        QPen(palette.color(QPalette::HighlightedText), 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(
        QPolygonF({middle + QPointF(-3.2, 0.2), middle + QPointF(-0.9, 2.5), middle + QPointF(3.2, -2.5)}));
}

} // namespace

void drawBadge(QPainter& painter, const QPalette& palette, int input, BadgeState state) {
    const QPointF middle = placeOfInput(input);
    if (state == BadgeState::Pressed) {
        QColor ring = markColour(palette);
        ring.setAlphaF(0.45F);
        painter.setPen(QPen(ring, kPressedRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(middle, badgeRadius + kPressedRing / 2, badgeRadius + kPressedRing / 2);
    }
    const bool marked = state == BadgeState::Marked || state == BadgeState::Pressed;
    painter.setPen(Qt::NoPen);
    painter.setBrush(marked ? markGroundColour(palette) : lineOnWindow(palette, 0.75));
    painter.drawEllipse(middle, badgeRadius, badgeRadius);
    painter.setPen(palette.color(marked ? QPalette::HighlightedText : QPalette::Window));
    painter.drawText(
        QRectF(middle.x() - badgeRadius, middle.y() - badgeRadius, 2 * badgeRadius, 2 * badgeRadius),
        Qt::AlignCenter, QString::number(input));
    if (state == BadgeState::Known)
        drawTick(painter, palette, middle);
}

} // namespace quorvi
