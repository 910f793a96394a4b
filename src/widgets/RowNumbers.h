// The numbers beside the rows of a table, from 1.
#pragma once

#include <QHeaderView>

namespace quorvi {

class KyvarQuorviTableView;

/// Looks as a narrow first column of the table, and whatever the mouse does on a number it does on its row.
class RowNumbers final : public QHeaderView {
  public:
    explicit RowNumbers(KyvarQuorviTableView& table);

    /// As wide as numbers of two digits need, or of more where there are so many rows.
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rectangle, int row) const override;

  private:
    /// Of the table, whether it has the focus or not.
    [[nodiscard]] QColor colourOf(QPalette::ColorRole role) const;
    /// Where the number stands.
    [[nodiscard]] QRect lineIn(const QRect& section) const;
    [[nodiscard]] QPoint pointInRow(const QPoint& point) const;

    KyvarQuorviTableView& m_table;
};

} // namespace quorvi
