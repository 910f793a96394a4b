#include "widgets/TwoLineCells.h"

#include <QApplication>
#include <QPainter>

#include <utility>

#include "widgets/NewEditor.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kSmall = 0.9; // as the panel's notes are

void drawLine(QPainter& painter, const QStyleOptionViewItem& cell, const QRect& line, const QFont& font,
    const QColor& colour, const QString& text) {
    painter.setFont(font);
    painter.setPen(colour);
    const auto alignment = QStyle::visualAlignment(cell.direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawText(line, int(alignment | Qt::AlignAbsolute) | Qt::TextSingleLine,
        QFontMetrics(font).elidedText(text, Qt::ElideRight, line.width()));
}

} // namespace

QFont TwoLineCells::smallFont(QFont font) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * kSmall);
    else // the desktop gives its font in pixels
        font.setPixelSize(qRound(font.pixelSize() * kSmall));
    return font;
}

int TwoLineCells::heightOfLines(const QFont& font) {
    return QFontMetrics(font).height() + QFontMetrics(smallFont(font)).height();
}

void TwoLineCells::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QStyle* style = cell.widget ? cell.widget->style() : QApplication::style();
    const QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    const QString name = std::exchange(cell.text, QString());
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

    QRect lines = room.adjusted(margin, 0, -margin, 0);
    lines.setTop(cell.rect.top() + (cell.rect.height() - heightOfLines(cell.font)) / 2);
    painter->save();
    painter->setLayoutDirection(cell.direction);
    lines.setHeight(QFontMetrics(cell.font).height());
    drawLine(*painter, cell, lines, cell.font, cellTextColour(cell), name);
    const QFont small = smallFont(cell.font);
    lines.setTop(lines.bottom() + 1);
    lines.setHeight(QFontMetrics(small).height());
    drawLine(*painter, cell, lines, small, secondLineColour(cell), index.data(secondLineRole).toString());
    painter->restore();
}

void TwoLineCells::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (isNewEditor(*editor))
        QStyledItemDelegate::setEditorData(editor, index);
}

} // namespace quorvi
