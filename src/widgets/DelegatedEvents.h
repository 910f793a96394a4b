// The events of a table that its delegate deals with, so that the table does not.
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

    /// Without a delegate every press and release of a button is dealt with, and no key is.
    void setDelegate(TableDelegate* delegate) { m_delegate = delegate; }

    /// Asks the delegate about a press or a release on the table's viewport. True when that, or the press
    /// that the event comes from (a drag, a context menu), is dealt with.
    [[nodiscard]] bool takes(QEvent& event);
    /// Hands the delegate a delete key; true when it was one, and the table is not disabled.
    [[nodiscard]] bool takesKey(const QKeyEvent& event);

  private:
    [[nodiscard]] bool takesButton(const QMouseEvent& event);

    KyvarQuorviTableView& m_table;
    TableDelegate* m_delegate = nullptr;
    bool m_rightPressWasTaken = false;
    Qt::MouseButtons m_takenPresses; ///< the buttons that are down and none of the table's business
};

} // namespace quorvi
