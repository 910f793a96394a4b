// Rows of a table that the mouse moves to another place of it.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>

#include <functional>
#include <vector>

class QMouseEvent;

namespace quorvi {

class DraggedRows;
class KyvarQuorviTableView;

/// What a table asks about rows that are dragged, and tells of ones that are dropped. The row before which
/// they are dropped may be the one past the end. Alone, they are to leave behind whatever goes along else.
struct RowMoves {
    /// All rows that would go there, in order; none when nothing would.
    std::function<std::vector<int>(const std::vector<int>& rows, int before, bool alone)> carried;
    std::function<void(const std::vector<int>& rows, int before, bool alone)> drop;
};

/// A press on a row and a move begin it; all selected rows are dragged when that row is one of them. Alt has
/// them go alone. Escape calls it off, and so does whatever changes the rows.
class RowDrag final : public QObject {
  public:
    /// Part of the table.
    RowDrag(KyvarQuorviTableView& table, RowMoves moves);
    ~RowDrag() override;

    /// For events of the viewport that the table acts on. True when this one is none of its business.
    [[nodiscard]] bool takes(const QEvent& event);
    [[nodiscard]] bool isRunning() const { return m_shown; }

    /// The keys of the table while rows are dragged.
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    /// Scrolls while the pointer is at the edge.
    void timerEvent(QTimerEvent* event) override;

  private:
    [[nodiscard]] bool begins(const QMouseEvent& press) const;
    void begin();
    void follow(const QPoint& point, bool alone);
    void drop();
    void end();
    /// Nothing more comes of the press until the button is up.
    void cancel();
    /// The row before which the point is.
    [[nodiscard]] int rowBehind(int y) const;

    KyvarQuorviTableView& m_table;
    RowMoves m_moves;
    DraggedRows* m_shown = nullptr; ///< the table's; null while no rows are dragged
    QBasicTimer m_scrolling;
    std::vector<int> m_rows;
    int m_pressedRow = -1; ///< while the button is down on it
    QPoint m_pressed;
    QPoint m_point;
    int m_before = -1; ///< where they would be dropped; -1 for nowhere
    bool m_alone = false;
    bool m_isCancelled = false; ///< and the button is still down
};

} // namespace quorvi
