#include "widgets/NumberBadge.h"

#include <QPainter>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kPlainShare = 0.75; // of the text colour in the disc
constexpr qreal kDigit = 1.2;       // height of its letters in radii

QFont digitFont(QFont font, qreal radius) {
    font.setPixelSize(qMax(1, qRound(kDigit * radius)));
    font.setBold(true);
    return font;
}

} // namespace

void paintBadge(QPainter& painter, const QPalette& palette, const QPointF& middle, qreal radius, int number,
    qreal marked) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(marked, markGroundColour(palette), lineOnWindow(palette, kPlainShare)));
    painter.drawEllipse(middle, radius, radius);
    painter.setFont(digitFont(painter.font(), radius));
    painter.setPen(mixed(marked, palette.color(QPalette::HighlightedText), palette.color(QPalette::Window)));
    painter.drawText(QRectF(middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius),
        Qt::AlignCenter, QString::number(number));
}

} // namespace quorvi
