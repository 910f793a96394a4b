#include "widgets/MouseLights.h"

#include <QPainter>

#include "widgets/MouseDrawing.h"

namespace quorvi {

MouseLights::MouseLights(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void MouseLights::setLights(bool wheel, bool battery) {
    m_wheelIsLit = wheel;
    m_batteryIsLit = battery;
    update();
}

QSize MouseLights::sizeHint() const {
    return mouseSheet.toSize();
}

QSize MouseLights::minimumSizeHint() const {
    return {120, 180};
}

void MouseLights::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(sheetOn(size()), true);
    drawMouse(painter, palette(), isEnabled() && m_wheelIsLit, isEnabled() && m_batteryIsLit);
}

} // namespace quorvi
