// The picture of rows that the user drags within their table.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <vector>

namespace quorvi {

class KyvarQuorviTableView;

/// Covers the table's rows. Shows the dragged rows at the pointer, and a line where they would be dropped.
class DraggedRows final : public QWidget {
  public:
    /// The grip is the pointer's offset from the upper left corner of the first row.
    DraggedRows(KyvarQuorviTableView& table, const QPoint& grip);

    /// Shows the rows at the point, in viewport coordinates, and the line above the row "before"; no line for
    /// -1.
    void showAt(const QPoint& point, const std::vector<int>& rows, int before);
    /// The line's y in the viewport; -1 if there is no line.
    [[nodiscard]] int line() const { return m_line; }
    [[nodiscard]] const std::vector<int>& rows() const { return m_rows; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QPixmap pictureOf(const std::vector<int>& rows) const;

    KyvarQuorviTableView& m_table;
    QPoint m_grip;
    std::vector<int> m_rows;
    QPixmap m_picture;
    QPoint m_point;
    int m_line = -1;
};

} // namespace quorvi
