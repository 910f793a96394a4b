// The shortcut keys of a table's menu items.
#pragma once

#include <QObject>

#include <functional>

class QAction;
class QKeyEvent;
class QMenu;

namespace quorvi {

class KyvarQuorviTableView;

/// While the table has the focus and no cell is edited, such a key triggers its item if it can be chosen, and
/// otherwise does nothing. Either way neither the table nor the host receives it; they would copy a cell's
/// text, for instance.
class MenuKeys : public QObject {
  public:
    using IsPossible = std::function<bool(QAction* item)>;

    /// The table owns it. Only the menu's own items count, not its submenus; the menu must outlive it.
    MenuKeys(KyvarQuorviTableView& table, const QMenu& menu, IsPossible isPossible);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] QAction* itemOf(const QKeyEvent& key) const;

    const KyvarQuorviTableView& m_table;
    const QMenu& m_menu;
    IsPossible m_isPossible;
};

} // namespace quorvi
