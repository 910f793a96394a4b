// The cells of a table's column of which one bears a mark beside its text.
#pragma once

#include <QStyledItemDelegate>

namespace quorvi {

/// A small triangle at the end of the cell, which points at the rest of the row: to the left in one that is
/// read from the right.
class MarkedCells : public QStyledItemDelegate {
  public:
    /// True for a cell with the mark.
    static constexpr int markRole = Qt::UserRole;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace quorvi
