#include "widgets/ConnectionSign.h"

#include <QPainter>

#include <utility>

#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr QColor kConnected(0x27, 0xae, 0x60);
constexpr qreal kPen = 1.5;

} // namespace

ConnectionSign::ConnectionSign(QWidget* parent) : QWidget(parent) {
    setFixedSize(metrics::stateSign, metrics::stateSign);
}

void ConnectionSign::set(Connection connection) {
    if (std::exchange(m_connection, connection) != connection)
        update();
}

void ConnectionSign::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal half = kPen / 2;
    const QRectF place = QRectF(rect()).adjusted(half, half, -half, -half);
    if (m_connection == Connection::mouse) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(signOnWindow(palette(), kConnected));
        painter.drawEllipse(place);
        return;
    }
    painter.setPen(QPen(mutedTextOnWindow(palette()), kPen));
    painter.drawEllipse(place);
    if (m_connection == Connection::none)
        painter.drawLine(place.bottomLeft(), place.topRight());
}

} // namespace quorvi
