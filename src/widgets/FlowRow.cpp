#include "widgets/FlowRow.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <limits>
#include <memory>

namespace quorvi {

FlowRow::FlowRow(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
}

FlowRow::~FlowRow() {
    while (count() > 0)
        std::unique_ptr<QLayoutItem>(takeAt(0)).reset();
}

void FlowRow::setLastApart(bool apart) {
    m_lastApart = apart;
    invalidate();
}

void FlowRow::addItem(QLayoutItem* item) {
    m_items.push_back(item);
    invalidate();
}

void FlowRow::addLayout(QLayout* layout) {
    addChildLayout(layout);
    addItem(layout);
}

QLayoutItem* FlowRow::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[std::size_t(index)] : nullptr;
}

QLayoutItem* FlowRow::takeAt(int index) {
    QLayoutItem* const item = itemAt(index);
    if (item)
        m_items.erase(m_items.begin() + index);
    invalidate();
    return item;
}

std::vector<FlowRow::Row> FlowRow::rowsIn(int width) const {
    std::vector<Row> rows;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (rows.empty() || rows.back().width + spacing() + size.width() > width)
            rows.emplace_back();
        Row& row = rows.back();
        row.width += size.width() + (row.items.empty() ? 0 : spacing());
        row.height = std::max(row.height, size.height());
        row.items.push_back(item);
    }
    return rows;
}

int FlowRow::heightOf(const std::vector<Row>& rows) const {
    int height = rows.empty() ? 0 : (int(rows.size()) - 1) * spacing();
    for (const Row& row : rows)
        height += row.height;
    return height;
}

int FlowRow::heightForWidth(int width) const {
    return heightOf(rowsIn(width));
}

QSize FlowRow::sizeHint() const {
    const std::vector<Row> one = rowsIn(std::numeric_limits<int>::max() / 2);
    return one.empty() ? QSize(0, 0) : QSize(one.front().width, one.front().height);
}

QSize FlowRow::minimumSize() const {
    QSize least(0, 0);
    for (const QLayoutItem* item : m_items)
        if (!item->isEmpty())
            least = least.expandedTo(item->sizeHint());
    return least;
}

void FlowRow::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    int top = place.top();
    for (const Row& row : rowsIn(place.width())) {
        placeRow(row, QRect(place.left(), top, place.width(), row.height));
        top += row.height + spacing();
    }
}

void FlowRow::placeRow(const Row& row, const QRect& place) const {
    const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
    int left = place.left();
    for (QLayoutItem* item : row.items) {
        const QSize size = item->sizeHint();
        if (m_lastApart && item == m_items.back())
            left = place.right() + 1 - size.width();
        const QRect own(QPoint(left, place.top() + (row.height - size.height()) / 2), size);
        item->setGeometry(QStyle::visualRect(direction, place, own));
        left += size.width() + spacing();
    }
}

} // namespace quorvi
