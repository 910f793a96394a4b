// Cells of a list with a second, smaller line under their text.
#pragma once

#include <QFont>
#include <QStyledItemDelegate>

namespace quorvi {

/// A line that is too long ends in an ellipsis. Editing works as in any other cell.
class TwoLineCells : public QStyledItemDelegate {
  public:
    /// The text of the second line.
    static constexpr int secondLineRole = Qt::UserRole + 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    /// The font of the second line for that of the first.
    [[nodiscard]] static QFont smallFont(QFont font);
    /// The height of both lines.
    [[nodiscard]] static int heightOfLines(const QFont& font);

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Fills a new editor with the cell's text. Later changes of the cell, such as of its second line, do not
    /// overwrite the typed text.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
};

} // namespace quorvi
