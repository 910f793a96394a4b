// Cells of a list with a second, smaller line under their text.
#pragma once

#include <QFont>
#include <QStyledItemDelegate>

namespace quorvi {

/// Each line is left out at its end when it is too long. A cell is edited as any other.
class TwoLineCells : public QStyledItemDelegate {
  public:
    /// The text of the second line.
    static constexpr int secondLineRole = Qt::UserRole + 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    /// The font of the second line beside that of the first.
    [[nodiscard]] static QFont smallFont(QFont font);
    /// What both lines need.
    [[nodiscard]] static int heightOfLines(const QFont& font);

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Gives a new editor the cell's text. What the user has typed since stays when the cell changes, which
    /// it does with its second line.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
};

} // namespace quorvi
