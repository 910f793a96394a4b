#include "widgets/LightLine.h"

#include <QPainter>

#include "widgets/ThemeColours.h"

namespace quorvi {

LightLine::LightLine(QWidget* parent) : QWidget(parent) {
    setFixedHeight(1);
}

void LightLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), lightLineColour(palette()));
}

} // namespace quorvi
