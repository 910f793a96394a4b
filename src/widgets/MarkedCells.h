// Cells of a list with a sign before their text, a warning behind it, or a text that stands back.
#pragma once

#include <QStyledItemDelegate>

namespace quorvi {

/// The sign is drawn in the colour of the text, and the warning (WarningSign.h) at the end of the cell.
class MarkedCells : public QStyledItemDelegate {
  public:
    /// True for a cell with the warning.
    static constexpr int markRole = Qt::UserRole;
    /// The number of the Symbol before the text; nothing for none.
    static constexpr int symbolRole = Qt::UserRole + 3;
    /// True for a text that is none of the user's own, which is muted.
    static constexpr int mutedRole = Qt::UserRole + 4;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Fills a new editor. What the user has typed since stays when the cell's signs change.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace quorvi
