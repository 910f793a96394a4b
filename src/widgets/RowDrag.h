// Lets the user drag rows of a table to another place in it.
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

/// The table's callbacks for dragged and dropped rows. "before" is the row at the place of the drop; it may
/// be one past the end. With "alone", rows that would otherwise move along stay.
struct RowMoves {
    /// Returns all rows that would move there, in order; empty if none would.
    std::function<std::vector<int>(const std::vector<int>& rows, int before, bool alone)> carried;
    std::function<void(const std::vector<int>& rows, int before, bool alone)> drop;
};

/// A press on a row and a move start a drag. If the row is selected, all selected rows are dragged. Alt drags
/// them alone. Escape and any change of the rows cancel the drag.
class RowDrag final : public QObject {
  public:
    /// Part of the table.
    RowDrag(KyvarQuorviTableView& table, RowMoves moves);
    ~RowDrag() override;

    /// Handles an event of the table's viewport. Returns true if the table must ignore it.
    [[nodiscard]] bool takes(const QEvent& event);
    [[nodiscard]] bool isRunning() const { return m_shown; }

    /// Handles the table's keys during a drag.
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    /// Scrolls the table while the pointer is at an edge.
    void timerEvent(QTimerEvent* event) override;

  private:
    [[nodiscard]] bool begins(const QMouseEvent& press) const;
    void begin();
    void follow(const QPoint& point, bool alone);
    void drop();
    void end();
    /// Cancels the drag and ignores the pointer until the button is released.
    void cancel();
    /// The row above which the rows would be dropped.
    [[nodiscard]] int rowBehind(int y) const;

    KyvarQuorviTableView& m_table;
    RowMoves m_moves;
    DraggedRows* m_shown = nullptr; ///< owned by the table; null while there is no drag
    QBasicTimer m_scrolling;
    std::vector<int> m_rows;
    int m_pressedRow = -1; ///< valid while the button is held
    QPoint m_pressed;
    QPoint m_point;
    int m_before = -1; ///< the place of the drop; -1 if there is none
    bool m_alone = false;
    bool m_isCancelled = false; ///< while the button is still held
};

} // namespace quorvi
