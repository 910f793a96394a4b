#include "widgets/MessageFrame.h"

#include <QPainter>

#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kGroundShare = 0.14; // of the mark's colour

} // namespace

void paintMessageGround(QWidget& widget) {
    const QPalette& palette = widget.palette();
    const QColor mark = markColour(palette);
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(mark);
    painter.setBrush(mixed(kGroundShare, mark, palette.color(QPalette::Window)));
    constexpr qreal halfPen = 0.5;
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(halfPen, halfPen, -halfPen, -halfPen),
        metrics::corner, metrics::corner);
}

void MessageFrame::paintEvent(QPaintEvent* /*event*/) {
    paintMessageGround(*this);
}

} // namespace quorvi
