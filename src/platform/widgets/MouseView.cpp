#include "platform/widgets/MouseView.h"

#include <QPainter>
#include <QPainterPath>
#include <array>

namespace quorvi {

namespace {

// The drawing is made on this sheet and scaled to fit the widget.
constexpr QSizeF sheet(220.0, 330.0);
constexpr qreal badgeRadius = 11.0;

struct Input {
    QPointF middle; // of the number, on the sheet
};

// From input 1: left, right and wheel button, side buttons rear and front, the two behind the wheel, wheel up
// and down.
constexpr std::array inputs{
    Input{{66.0, 80.0}},
    Input{{154.0, 80.0}},
    Input{{110.0, 92.0}},
    Input{{26.0, 198.0}},
    Input{{26.0, 146.0}},
    Input{{110.0, 158.0}},
    Input{{110.0, 194.0}},
    Input{{110.0, 58.0}},
    Input{{110.0, 126.0}},
};

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

QPainterPath roundedBox(const QRectF& box, qreal radius) {
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    return path;
}

QColor mixed(const QColor& a, const QColor& b, qreal share) {
    return QColor::fromRgbF(a.redF() * (1 - share) + b.redF() * share,
        a.greenF() * (1 - share) + b.greenF() * share, a.blueF() * (1 - share) + b.blueF() * share);
}

void drawBody(QPainter& painter, const QColor& fill, const QColor& line) {
    painter.setPen(QPen(line, 1.6));
    painter.setBrush(fill);
    painter.drawPath(bodyPath());
    QPainterPath seams(QPointF(110, 14));
    seams.lineTo(110, 40);
    seams.moveTo(24, 128);
    seams.cubicTo(60, 140, 80, 142, 96, 140);
    seams.moveTo(196, 128);
    seams.cubicTo(160, 140, 140, 142, 124, 140);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(seams);
}

void drawParts(QPainter& painter, const QColor& fill, const QColor& line) {
    painter.setPen(QPen(line, 1.4));
    painter.setBrush(fill);
    painter.drawPath(roundedBox({94, 40, 32, 104}, 16));
    painter.drawPath(roundedBox({96, 146, 28, 24}, 8));
    painter.drawPath(roundedBox({96, 182, 28, 24}, 8));
    painter.drawPath(roundedBox({14, 124, 22, 46}, 9));
    painter.drawPath(roundedBox({14, 176, 22, 46}, 9));
}

void drawBadge(QPainter& painter, int input, const QColor& fill, const QColor& text) {
    const QPointF middle = inputs.at(std::size_t(input - 1)).middle;
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawEllipse(middle, badgeRadius, badgeRadius);
    painter.setPen(text);
    painter.drawText(
        QRectF(middle.x() - badgeRadius, middle.y() - badgeRadius, 2 * badgeRadius, 2 * badgeRadius),
        Qt::AlignCenter, QString::number(input));
}

} // namespace

MouseView::MouseView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void MouseView::setMarkedInput(int input) {
    m_marked = input >= 1 && input <= int(inputs.size()) ? input : 0;
    update();
}

QSize MouseView::sizeHint() const {
    return sheet.toSize();
}

QSize MouseView::minimumSizeHint() const {
    return {160, 240};
}

void MouseView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal scale = qMin(width() / sheet.width(), height() / sheet.height());
    painter.translate(width() / 2.0, height() / 2.0);
    painter.scale(scale, scale);
    painter.translate(-sheet.width() / 2.0, -sheet.height() / 2.0);

    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor window = palette().color(group, QPalette::Window);
    const QColor text = palette().color(group, QPalette::WindowText);
    const QColor line = mixed(window, text, 0.45);
    drawBody(painter, mixed(window, text, 0.06), line);
    drawParts(painter, mixed(window, text, 0.14), line);

    QFont numbers = font();
    numbers.setPixelSize(13);
    numbers.setBold(true);
    painter.setFont(numbers);
    for (int input = 1; input <= int(inputs.size()); ++input) {
        const bool marked = input == m_marked;
        drawBadge(painter, input, marked ? palette().color(QPalette::Highlight) : mixed(window, text, 0.75),
            marked ? palette().color(QPalette::HighlightedText) : window);
    }
}

} // namespace quorvi
