#include "widgets/InputColumns.h"

#include <QWidget>

#include <algorithm>
#include <utility>

#include "widgets/Metrics.h"
#include "widgets/MouseDrawing.h"
#include "widgets/MouseView.h"

namespace quorvi {

namespace {

constexpr int kRows = 5;
// The drawing is at least this share of the rows' height: beside a lower one the lines would be steep.
constexpr qreal kLeastOfRows = 0.85;
// Of a page where fields would not have their usual width, in shares of the room for all three columns.
constexpr qreal kShareOfDrawing = 0.375;

int widthForHeight(qreal height) {
    return int(height * mouseSheet.width() / mouseSheet.height());
}

int heightForDrawing(int width) {
    return int(width * mouseSheet.height() / mouseSheet.width());
}

} // namespace

InputColumns::InputColumns(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
}

InputColumns::~InputColumns() = default;

void InputColumns::addItem(QLayoutItem* item) {
    m_items.emplace_back(item);
    invalidate();
}

void InputColumns::addLayout(QLayout* layout) {
    addChildLayout(layout);
    addItem(layout);
}

QLayoutItem* InputColumns::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[std::size_t(index)].get() : nullptr;
}

QLayoutItem* InputColumns::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* item = m_items[std::size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    invalidate();
    return item;
}

/// Its position; count() where there is none.
std::size_t InputColumns::drawing() const {
    const auto found = std::ranges::find_if(
        m_items, [](const auto& item) { return qobject_cast<MouseView*>(item->widget()) != nullptr; });
    return std::size_t(found - m_items.begin());
}

int InputColumns::leastField() const {
    int least = 0;
    for (std::size_t i = 0; i < m_items.size(); ++i)
        if (i != drawing())
            least = std::max(least, m_items[i]->minimumSize().width());
    return least;
}

/// A wrapped text needs more in a narrower column, so the narrowest one counts.
int InputColumns::leastRow() const {
    int least = 0;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (i == drawing())
            continue;
        const QLayoutItem& item = *m_items[i];
        least = std::max({least, item.minimumSize().height(),
            item.hasHeightForWidth() ? item.heightForWidth(leastField()) : 0});
    }
    return least;
}

int InputColumns::leastRows() const {
    return kRows * leastRow() + (kRows - 1) * metrics::rowGap;
}

int InputColumns::leastDrawing() const {
    return std::max(metrics::leastMouse, widthForHeight(kLeastOfRows * leastRows()));
}

QSize InputColumns::minimumSize() const {
    const int width = 2 * (leastField() + metrics::columnGap) + leastDrawing();
    return {width, std::max(leastRows(), heightForDrawing(leastDrawing()))};
}

QSize InputColumns::sizeHint() const {
    return minimumSize().expandedTo(mouseSheet.size().toSize());
}

QSize InputColumns::drawingIn(const QSize& area) const {
    const int room = area.width() - 2 * metrics::columnGap;
    const int fields = std::max(leastField(), metrics::usualField);
    const int wide = std::max(
        {room - 2 * fields, std::min(int(room * kShareOfDrawing), room - 2 * leastField()), leastDrawing()});
    const int width =
        std::min({wide, widthForHeight(area.height()), int(metrics::mostMouse * mouseSheet.width())});
    return {width, heightForDrawing(width)};
}

void InputColumns::setGeometry(const QRect& area) {
    QLayout::setGeometry(area);
    const std::size_t middle = drawing();
    if (middle == m_items.size())
        return;
    const QSize mouse = drawingIn(area.size());
    const int height = std::min(area.height(), std::max(mouse.height(), leastRows()));
    const int field = (area.width() - mouse.width()) / 2 - metrics::columnGap;
    const int after = area.left() + field + metrics::columnGap;
    place(0, middle, {area.left(), area.top(), field, height});
    m_items[middle]->setGeometry({after, area.top(), mouse.width(), height});
    place(
        middle + 1, m_items.size(), {after + mouse.width() + metrics::columnGap, area.top(), field, height});
}

/// In rows of equal height.
void InputColumns::place(std::size_t first, std::size_t last, const QRect& column) const {
    for (std::size_t i = first; i < last; ++i) {
        QLayoutItem& item = *m_items[i];
        const auto row = int(i - first);
        const int top = column.top() + row * column.height() / kRows;
        const int high = column.height() / kRows;
        const int wanted =
            item.hasHeightForWidth() ? item.heightForWidth(column.width()) : item.minimumSize().height();
        const int height = std::min(high, wanted);
        // Rather low: where the rows are high, the line of 8 would pass too close to the number 2.
        item.setGeometry({column.left(), top + (high - height) * 2 / 3, column.width(), height});
    }
}

} // namespace quorvi
