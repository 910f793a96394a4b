#include "widgets/FlatButton.h"

#include <QPainter>

#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

void FlatButton::paintEvent(QPaintEvent* event) {
    SignButton::paintEvent(event);
    paintFocusFrame(*this, rect());
}

void paintFocusFrame(QWidget& widget, const QRect& around) {
    if (!widget.hasFocus() || !widget.window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(markColour(widget.palette()), metrics::focusFrame));
    constexpr qreal half = metrics::focusFrame / 2.0;
    painter.drawRoundedRect(
        QRectF(around).adjusted(half, half, -half, -half), metrics::corner, metrics::corner);
}

} // namespace quorvi
