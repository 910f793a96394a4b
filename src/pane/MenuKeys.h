// The keys that the items of a table's menu show.
#pragma once

#include <QObject>

#include <functional>

class QAction;
class QKeyEvent;
class QMenu;

namespace quorvi {

class KyvarQuorviTableView;

/// While the table has the focus and no cell is edited, such a key does what its item does, if that can be
/// chosen; if not, the key does nothing. Either way it is neither the table's own nor the host's, which would
/// copy the text of a cell, for instance.
class MenuKeys : public QObject {
  public:
    using IsPossible = std::function<bool(QAction* item)>;

    /// For the life of the table, which owns it. Of the menu the items themselves count, not its submenus; it
    /// must live as long.
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
