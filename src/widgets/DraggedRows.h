// What is seen of rows that the mouse drags through their table.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <vector>

namespace quorvi {

class KyvarQuorviTableView;

/// Lies over the table's rows: a picture of the rows at the pointer, and a line where they would come to.
class DraggedRows final : public QWidget {
  public:
    /// The grip is where the pointer has the first of the rows, from its left upper corner.
    DraggedRows(KyvarQuorviTableView& table, const QPoint& grip);

    /// Shows the rows at the point of the viewport, and the line before the row, none for -1.
    void showAt(const QPoint& point, const std::vector<int>& rows, int before);
    /// Where the line is, of the viewport; -1 without one.
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
