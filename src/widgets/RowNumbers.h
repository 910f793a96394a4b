// The numbers of a table's rows, from 1.
#pragma once

#include <QHeaderView>

namespace quorvi {

class KyvarQuorviTableView;

/// Looks like a narrow first column of the table. Mouse events on a number act on its row.
class RowNumbers final : public QHeaderView {
  public:
    explicit RowNumbers(KyvarQuorviTableView& table);

    /// Wide enough for numbers of two digits, or of more if there are more rows.
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rectangle, int row) const override;

  private:
    /// The table's colour, whether the table has the focus or not.
    [[nodiscard]] QColor colourOf(QPalette::ColorRole role) const;
    /// The rectangle of the number.
    [[nodiscard]] QRect lineIn(const QRect& section) const;
    [[nodiscard]] QPoint pointInRow(const QPoint& point) const;

    KyvarQuorviTableView& m_table;
};

} // namespace quorvi
