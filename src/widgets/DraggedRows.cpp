#include "widgets/DraggedRows.h"

#include <QPainter>

#include <algorithm>
#include <utility>

#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

constexpr qreal kPictureOpacity = 0.65;
constexpr int kLineWidth = 2;
constexpr int kKnob = 3; // the radius of the line's ends

} // namespace

DraggedRows::DraggedRows(KyvarQuorviTableView& table, const QPoint& grip)
    : QWidget(&table), m_table(table), m_grip(grip) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(table.viewport()->geometry());
}

QPixmap DraggedRows::pictureOf(const std::vector<int>& rows) const {
    QWidget& viewport = *m_table.viewport();
    const int height = m_table.rowHeight(rows.front());
    const qreal scale = devicePixelRatioF();
    QPixmap picture(QSize(viewport.width(), height * int(rows.size())) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(m_table.palette().color(QPalette::Base));
    QPainter painter(&picture);
    int top = 0;
    for (const int row : rows) {
        const QRect place(0, m_table.rowViewportPosition(row), viewport.width(), height);
        if (viewport.rect().intersects(place))
            painter.drawPixmap(QPoint(0, top), viewport.grab(place));
        top += height;
    }
    return picture;
}

void DraggedRows::showAt(const QPoint& point, const std::vector<int>& rows, int before) {
    // The picture is of the rows as they were when they came along.
    if (std::exchange(m_rows, rows) != rows)
        m_picture = pictureOf(rows);
    m_point = point;
    const int count = m_table.model()->rowCount();
    if (before < 0)
        m_line = -1;
    else
        m_line = before < count ? m_table.rowViewportPosition(before)
                                : m_table.rowViewportPosition(count - 1) + m_table.rowHeight(count - 1);
    raise();
    setVisible(true);
    update();
}

void DraggedRows::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect place(m_point - m_grip, m_picture.size() / m_picture.devicePixelRatio());
    painter.setOpacity(kPictureOpacity);
    painter.drawPixmap(place.topLeft(), m_picture);
    painter.setOpacity(1);
    painter.setPen(m_table.palette().color(QPalette::Mid));
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    if (m_line < 0)
        return;
    const QColor colour = m_table.palette().color(QPalette::Text);
    const int y = std::clamp(m_line, kKnob, height() - kKnob);
    painter.setPen(QPen(colour, kLineWidth));
    painter.drawLine(2 * kKnob, y, width() - 2 * kKnob, y);
    painter.setBrush(colour);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPoint(2 * kKnob, y), kKnob, kKnob);
    painter.drawEllipse(QPoint(width() - 2 * kKnob, y), kKnob, kKnob);
}

} // namespace quorvi
