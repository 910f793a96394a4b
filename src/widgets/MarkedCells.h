// Cells of a list with a sign before the text, a warning after it, or a muted text.
#pragma once

#include <QStyledItemDelegate>

namespace quorvi {

/// The sign is drawn in the colour of the text, and the warning (WarningSign.h) at the end of the cell.
class MarkedCells : public QStyledItemDelegate {
  public:
    /// True for a cell with the warning.
    static constexpr int markRole = Qt::UserRole;
    /// The number of the Symbol before the text; invalid for none.
    static constexpr int symbolRole = Qt::UserRole + 3;
    /// True for a text that is not the user's own and is therefore muted.
    static constexpr int mutedRole = Qt::UserRole + 4;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Fills a new editor. Later changes of the cell's signs do not overwrite the typed text.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace quorvi
