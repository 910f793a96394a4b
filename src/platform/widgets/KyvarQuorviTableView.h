// The panel's table: whole rows, one at a time. The dynamic property "tag" tells the tables apart: 1
// profiles, 2 macros, 3 steps, 4 stages.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QTableView>

namespace quorvi {

class KyvarQuorviTableView : public QTableView {
    Q_OBJECT

  public:
    explicit KyvarQuorviTableView(QWidget* parent = nullptr);

    /// The table's tag; 0 when it has none.
    [[nodiscard]] int tag() const;

    /// The selected row; -1 when none is.
    [[nodiscard]] int selectedRow() const;
    /// Selects the row and no other, and brings it into view; a row that does not exist selects none.
    void selectRowAlone(int row);
    void deselectAll();
    /// Calls an edit of a cell off that is under way: what was typed is dropped.
    void abortEditing();

    /// The context menu, which belongs to the panel; nullptr when there is none.
    [[nodiscard]] QMenu* menu() const { return m_menu; }
    void setMenu(QMenu* menu);

    /// Lays the columns of the new model out as tableColumns() of this tag says.
    void setModel(QAbstractItemModel* model) override;

  private:
    void layOutColumns();

    QPointer<QMenu> m_menu;
};

} // namespace quorvi
