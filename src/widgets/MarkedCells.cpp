#include "widgets/MarkedCells.h"

#include <QPainter>

#include <array>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

/// As high as a small letter.
QRectF markIn(const QStyleOptionViewItem& option) {
    const int side = option.fontMetrics.height() / 2;
    const QRect cell = option.rect.adjusted(side / 2, 0, -side / 2, 0);
    return QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter, QSize(side, side), cell);
}

} // namespace

void MarkedCells::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.data(markRole).toBool())
        return;
    const QRectF mark = markIn(option);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(cellTextColour(option));
    const bool mirrored = option.direction == Qt::RightToLeft;
    const qreal base = mirrored ? mark.right() : mark.left();
    const qreal point = mirrored ? mark.left() : mark.right();
    const std::array corners{
        QPointF(base, mark.top()), QPointF(point, mark.center().y()), QPointF(base, mark.bottom())};
    painter->drawPolygon(corners.data(), int(corners.size()));
    painter->restore();
}

} // namespace quorvi
