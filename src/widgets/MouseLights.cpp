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
    return mouseSheet.size().toSize();
}

QSize MouseLights::minimumSizeHint() const {
    return {120, 180};
}

void MouseLights::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    m_picture.paint(painter, *this, isEnabled() && m_wheelIsLit, isEnabled() && m_batteryIsLit);
}

} // namespace quorvi
