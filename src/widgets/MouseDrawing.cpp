#include "widgets/MouseDrawing.h"

#include <QPainterPath>

#include <algorithm>
#include <array>

#include "widgets/Metrics.h"
#include "widgets/MouseBody.h"
#include "widgets/NumberBadge.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

// From input 1: left, right and wheel button, side buttons rear and front, the two behind the wheel, wheel up
// and down. The first two are high enough for the lines to the wheel to pass below them.
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

constexpr QRectF kBattery(92, 258, 36, 16);
constexpr qreal kBatteryCorner = 4;
constexpr QRectF kNub(129.5, 263, 2.5, 6); // at the battery's end
constexpr qreal kPressedRing = 4.5;
constexpr qreal kLightPen = 2.6;
constexpr qreal kFlatLightPen = 3.0; // without a glow around it
constexpr int kGlowSteps = 7;
constexpr qreal kGlowStep = 2.6; // of the width, from one outline to the next wider one

/// Outlines, each wider and fainter than the one before.
void drawGlow(QPainter& painter, const QPainterPath& outline, QColor colour) {
    colour.setAlphaF(0.09F);
    painter.setBrush(Qt::NoBrush);
    for (int step = 1; step <= kGlowSteps; ++step) {
        painter.setPen(QPen(colour, kLightPen + step * kGlowStep));
        painter.drawPath(outline);
    }
}

void drawLight(QPainter& painter, const QPainterPath& outline, const QPalette& palette) {
    const bool flat = isHighContrast(palette);
    const QColor colour = markColour(palette);
    if (!flat)
        drawGlow(painter, outline, colour);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, flat ? kFlatLightPen : kLightPen));
    painter.drawPath(outline);
}

/// The glow is around the outline alone: within it would look like a level.
void drawBattery(QPainter& painter, const QPalette& palette, bool lit) {
    const QPainterPath outline = roundedPath(kBattery, kBatteryCorner);
    painter.save();
    QPainterPath around;
    around.addRect(mouseSheet);
    around.addPath(roundedPath(kBattery.adjusted(0.8, 0.8, -0.8, -0.8), kBatteryCorner - 0.8));
    painter.setClipPath(around, Qt::IntersectClip);
    if (lit) {
        drawLight(painter, outline, palette);
    } else {
        painter.setPen(QPen(mouseEdgeColour(palette), 1.6));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(outline);
    }
    painter.restore();
    painter.fillPath(roundedPath(kNub, 1), lit ? markColour(palette) : mouseEdgeColour(palette));
}

} // namespace

QTransform sheetOn(const QSizeF& area) {
    const qreal scale = std::min(
        {area.width() / mouseSheet.width(), area.height() / mouseSheet.height(), metrics::mostMouse});
    QTransform transform;
    transform.translate(area.width() / 2.0, area.height() / 2.0);
    transform.scale(scale, scale);
    transform.translate(-mouseSheet.center().x(), -mouseSheet.center().y());
    return transform;
}

QPointF placeOfInput(int input) {
    return kPlaces.at(std::size_t(input - 1));
}

QRectF wheelLight() {
    return mouseWheel;
}

QRectF batteryLight() {
    return kBattery;
}

void drawMouse(QPainter& painter, const QPalette& palette, bool wheelIsLit, bool batteryIsLit) {
    drawMouseBody(painter, palette);
    if (wheelIsLit)
        drawLight(painter, roundedPath(mouseWheel, mouseWheelCorner), palette);
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

void drawBadge(QPainter& painter, const QPalette& palette, int input, BadgeState state, qreal pressed) {
    const QPointF middle = placeOfInput(input);
    const qreal ringed = state == BadgeState::Pressed ? 1.0 : pressed;
    if (ringed > 0) {
        QColor ring = markColour(palette);
        ring.setAlphaF(float(0.45 * ringed));
        painter.setPen(QPen(ring, kPressedRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(middle, badgeRadius + kPressedRing / 2, badgeRadius + kPressedRing / 2);
    }
    const bool marked = state == BadgeState::Marked || state == BadgeState::Pressed;
    paintBadge(painter, palette, middle, badgeRadius, input, marked ? 1.0 : pressed);
    if (state == BadgeState::Known)
        drawTick(painter, palette, middle);
}

} // namespace quorvi
