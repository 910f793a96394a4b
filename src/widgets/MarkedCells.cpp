#include "widgets/MarkedCells.h"

#include <QApplication>
#include <QPainter>

#include "widgets/Metrics.h"
#include "widgets/NewEditor.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ThemeColours.h"
#include "widgets/WarningSign.h"

namespace quorvi {

namespace {

/// As high as a line of text.
QRectF warningIn(const QStyleOptionViewItem& option) {
    const int side = option.fontMetrics.height();
    const QRect cell = option.rect.adjusted(side / 2, 0, -side / 2, 0);
    return QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter, QSize(side, side), cell);
}

/// In place of a style's frame, which can be a veil over the text.
void drawFocus(QPainter& painter, const QStyleOptionViewItem& option) {
    painter.setPen(QPen(cellTextColour(option), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(1, 1, -2, -2));
}

/// On the list's own ground: styles draw the box of a selected row with the frame or the tick of another one,
/// which the row's colour hides.
void drawSelectedBox(QPainter& painter, const QStyleOptionViewItem& cell) {
    const QStyle* style = cell.widget ? cell.widget->style() : QApplication::style();
    QStyleOptionViewItem box = cell;
    box.rect = style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &cell, cell.widget);
    box.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    box.state |= cell.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(cell.palette.color(QPalette::Base));
    constexpr int corner = 2; // no rounder than the box itself
    painter.drawRoundedRect(box.rect.adjusted(-1, -1, 1, 1), corner, corner);
    painter.restore();
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, cell.widget);
}

} // namespace

void MarkedCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const QVariant symbol = index.data(symbolRole); symbol.isValid()) {
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = symbolIcon(Symbol(symbol.toInt()));
        option->decorationSize = QSize(metrics::iconSize, metrics::iconSize);
    }
    if (index.data(mutedRole).toBool() && !(option->state & QStyle::State_Selected))
        option->palette.setColor(QPalette::Text, secondLineColour(*option));
}

void MarkedCells::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    cell.state &= ~QStyle::State_HasFocus;
    QStyledItemDelegate::paint(painter, cell, index);
    initStyleOption(&cell, index);
    if ((cell.features & QStyleOptionViewItem::HasCheckIndicator) && (cell.state & QStyle::State_Selected))
        drawSelectedBox(*painter, cell);
    if (index.data(markRole).toBool())
        drawWarningSign(*painter, warningIn(option), cellTextColour(option));
    if ((option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_KeyboardFocusChange))
        drawFocus(*painter, option);
}

void MarkedCells::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (isNewEditor(*editor))
        QStyledItemDelegate::setEditorData(editor, index);
}

} // namespace quorvi
