#include "widgets/RowNumbers.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ThemeColours.h"
#include "widgets/TwoLineCells.h"

namespace quorvi {

namespace {

constexpr int kSidePadding = 6;
constexpr int kLeastRows = 10; // so that the first steps of a macro do not widen it

} // namespace

RowNumbers::RowNumbers(KyvarQuorviTableView& table) : QHeaderView(Qt::Vertical, &table), m_table(table) {}

QSize RowNumbers::sizeHint() const {
    const QString longest(QString::number(std::max(count(), kLeastRows)).size(), QLatin1Char('0'));
    return {fontMetrics().horizontalAdvance(longest) + 2 * kSidePadding, 0};
}

// Below the last row too it is to look as the table does, where styles draw an empty title.
void RowNumbers::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), colourOf(QPalette::Base));
    for (int row = 0; row < count(); ++row) {
        const QRect section(0, sectionViewportPosition(row), viewport()->width(), sectionSize(row));
        if (section.intersects(event->rect()))
            paintSection(&painter, section, row);
    }
}

QColor RowNumbers::colourOf(QPalette::ColorRole role) const {
    QPalette colours = m_table.palette();
    colours.setCurrentColorGroup(m_table.isEnabled() ? QPalette::Active : QPalette::Disabled);
    return role == QPalette::Highlight && m_table.isEnabled() ? markGroundColour(colours)
                                                              : colours.color(role);
}

// Beside the first of two lines.
QRect RowNumbers::lineIn(const QRect& section) const {
    QRect line = section.adjusted(kSidePadding, 0, -kSidePadding, 0);
    if (!m_table.hasTwoLines())
        return line;
    line.setTop(section.top() + (section.height() - TwoLineCells::heightOfLines(m_table.font())) / 2);
    line.setHeight(fontMetrics().height());
    return line;
}

void RowNumbers::paintSection(QPainter* painter, const QRect& rectangle, int row) const {
    const bool selected = std::ranges::binary_search(m_table.selectedRows(), row);
    painter->fillRect(rectangle, colourOf(selected ? QPalette::Highlight : QPalette::Base));
    painter->setPen(colourOf(selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(lineIn(rectangle),
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignRight) | Qt::AlignAbsolute) |
            Qt::AlignVCenter,
        QString::number(row + 1));
}

QPoint RowNumbers::pointInRow(const QPoint& point) const {
    return {m_table.columnViewportPosition(0) + m_table.columnWidth(0) / 2, point.y()};
}

bool RowNumbers::viewportEvent(QEvent* event) {
    QWidget& rows = *m_table.viewport();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        const QPoint point = pointInRow(mouse.pos());
        QMouseEvent there(mouse.type(), QPointF(point), QPointF(rows.mapTo(rows.window(), point)),
            QPointF(rows.mapToGlobal(point)), mouse.button(), mouse.buttons(), mouse.modifiers());
        return QCoreApplication::sendEvent(&rows, &there);
    }
    case QEvent::ContextMenu: {
        const auto& menu = static_cast<const QContextMenuEvent&>(*event);
        QContextMenuEvent there(menu.reason(), pointInRow(menu.pos()), menu.globalPos(), menu.modifiers());
        return QCoreApplication::sendEvent(&rows, &there);
    }
    default:
        return QHeaderView::viewportEvent(event);
    }
}

} // namespace quorvi
