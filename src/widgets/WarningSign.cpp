#include "widgets/WarningSign.h"

#include <QPainter>
#include <QPainterPath>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

// The sign is drawn in a square of this side around its middle.
constexpr qreal kSignSide = 16.0;
constexpr qreal kSignOutline = 1.2;

QPainterPath trianglePath() {
    QPainterPath path;
    path.moveTo(0.0, -6.2);
    path.lineTo(7.0, 6.2);
    path.lineTo(-7.0, 6.2);
    path.closeSubpath();
    return path;
}

QPainterPath exclamationPath() {
    QPainterPath path;
    path.addRect(-0.9, -2.2, 1.8, 4.6);
    path.addRect(-0.9, 3.2, 1.8, 1.7);
    return path;
}

} // namespace

void drawWarningSign(QPainter& painter, const QRectF& place, const QColor& outline) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center());
    const qreal scale = qMin(place.width(), place.height()) / kSignSide;
    painter.scale(scale, scale);
    painter.setPen(QPen(outline, kSignOutline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(warningGroundColour());
    painter.drawPath(trianglePath());
    painter.fillPath(exclamationPath(), warningTextColour());
    painter.restore();
}

} // namespace quorvi
