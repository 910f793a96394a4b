#include "widgets/MousePicture.h"

#include <QPainter>
#include <QWidget>

#include "widgets/MouseDrawing.h"

namespace quorvi {

void MousePicture::paint(QPainter& painter, const QWidget& view, bool wheelIsLit, bool batteryIsLit) {
    const QPalette& palette = view.palette();
    const Look look{.size = view.size(),
        .scale = painter.device()->devicePixelRatioF(),
        .palette = palette.cacheKey(),
        .group = int(palette.currentColorGroup()),
        .wheelIsLit = wheelIsLit,
        .batteryIsLit = batteryIsLit};
    if (m_look != look) {
        m_look = look;
        ++m_drawings;
        m_picture = QPixmap((QSizeF(look.size) * look.scale).toSize());
        m_picture.setDevicePixelRatio(look.scale);
        m_picture.fill(Qt::transparent);
        QPainter drawing(&m_picture);
        drawing.setRenderHint(QPainter::Antialiasing);
        drawing.setTransform(sheetOn(look.size), true);
        drawMouse(drawing, palette, wheelIsLit, batteryIsLit);
    }
    painter.drawPixmap(QPoint(), m_picture);
}

} // namespace quorvi
