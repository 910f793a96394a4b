#include "widgets/EmptyDrawing.h"

#include <QPainter>

#include <array>

#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kKey = 22; // side
constexpr qreal kCap = 12; // of the part that a finger touches
constexpr qreal kBar = 10; // height
constexpr qreal kOutline = 1.5;
constexpr qreal kOutlineShare = 0.5; // of the text's colour

/// When a key is down, from the left.
struct Press {
    qreal begin;
    qreal end;
};
constexpr std::array kPresses{Press{38, 84}, Press{62, 98}, Press{104, 130}};

} // namespace

EmptyDrawing::EmptyDrawing(QWidget* parent) : QWidget(parent) {
    setFixedSize(metrics::emptyDrawingWidth, metrics::emptyDrawingHeight);
}

void EmptyDrawing::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (layoutDirection() == Qt::RightToLeft) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }
    const QColor outline = lineOnWindow(palette(), kOutlineShare);
    const QColor mark = markColour(palette());
    const qreal lane = qreal(height()) / qreal(kPresses.size());
    qreal middle = lane / 2;
    for (const Press& press : kPresses) {
        QRectF key(1, 0, kKey, kKey);
        key.moveTop(middle - kKey / 2);
        painter.setPen(QPen(outline, kOutline));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRoundedRect(key, metrics::corner, metrics::corner);
        QRectF cap(0, 0, kCap, kCap);
        cap.moveCenter(key.center() - QPointF(0, 2));
        painter.drawRoundedRect(cap, 2, 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(mark);
        painter.drawRoundedRect(QRectF(press.begin, middle - kBar / 2, press.end - press.begin, kBar), 3, 3);
        middle += lane;
    }
}

} // namespace quorvi
