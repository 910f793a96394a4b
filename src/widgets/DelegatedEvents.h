// The events that a table's delegate handles instead of the table.
#pragma once

#include <Qt>

class QEvent;
class QKeyEvent;
class QMouseEvent;

namespace quorvi {

class KyvarQuorviTableView;
class TableDelegate;

class DelegatedEvents {
  public:
    /// Part of the table, which outlives it.
    explicit DelegatedEvents(KyvarQuorviTableView& table) : m_table(table) {}

    /// Without a delegate, every press and release of a button counts as handled, and no key does.
    void setDelegate(TableDelegate* delegate) { m_delegate = delegate; }

    /// Offers the delegate a press or a release on the table's viewport. Returns true if it, or the press
    /// that caused it (a drag, a context menu), is handled.
    [[nodiscard]] bool takes(QEvent& event);
    /// Passes a delete key to the delegate; returns true if it was one and the table is enabled.
    [[nodiscard]] bool takesKey(const QKeyEvent& event);

  private:
    [[nodiscard]] bool takesButton(const QMouseEvent& event);

    KyvarQuorviTableView& m_table;
    TableDelegate* m_delegate = nullptr;
    bool m_rightPressWasTaken = false;
    Qt::MouseButtons m_takenPresses; ///< the pressed buttons that the table must ignore
};

} // namespace quorvi
