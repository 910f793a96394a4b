// The panel's table: whole rows, one at a time unless it is told otherwise. The dynamic property "tag" tells
// the tables apart: 1 profiles, 2 macros, 3 steps, 4 stages.
#pragma once

#include <QHeaderView>
#include <QMenu>
#include <QPointer>
#include <QTableView>

#include <vector>

#include "widgets/AccessibleWidgets.h"
#include "widgets/DelegatedEvents.h"
#include "widgets/EmptyText.h"
#include "widgets/RowDrag.h"
#include "widgets/TableDelegate.h"
#include "widgets/TableKeys.h"

namespace quorvi {

class FocusRing;
class PopUpCells;

class KyvarQuorviTableView : public QTableView {
    Q_OBJECT

  public:
    explicit KyvarQuorviTableView(QWidget* parent = nullptr);

    /// The table's tag; 0 when it has none.
    [[nodiscard]] int tag() const;

    /// Lets several rows be selected, by the mouse and the keyboard as in other lists.
    void setSeveralSelectable();
    [[nodiscard]] bool isSeveralSelectable() const { return selectionMode() == ExtendedSelection; }

    /// The selected row; -1 when none is. Of several it is the current one, from which the keys move, or the
    /// first when the current one is not selected.
    [[nodiscard]] int selectedRow() const;
    /// All selected rows, from above.
    [[nodiscard]] std::vector<int> selectedRows() const;
    /// Selects the row and no other, and brings it into view; a row that does not exist selects none.
    void selectRowAlone(int row) { selectRows({row}); }
    /// Selects the rows and no others, of which one becomes the current one: the given one or, when that is
    /// none of them, the last. Rows that do not exist are left out; without others nothing is selected.
    void selectRows(const std::vector<int>& rows, int current = -1);
    void deselectAll();
    using QTableView::edit;
    /// Starts an edit where the trigger is one of those that do, and names the field that a name is typed
    /// into; false where it is not, or where the cell cannot be edited.
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    /// Starts an edit of the cell, with its text selected; does nothing where the cell cannot be edited.
    void editCell(int column, int row);
    /// Whether the user is typing into a cell.
    [[nodiscard]] bool isEditing() const { return state() == EditingState; }
    /// Calls an edit of a cell off that is under way: what was typed is dropped.
    void abortEditing();

    /// Makes the cells of the column pop-ups of the menu, which belongs to the panel. The value of a cell is
    /// the index of an item of the menu; choosing one sets it. A click opens the menu, and so do the keys
    /// that open other pop-ups, for the selected row. A double click, F2 and a digit open a field in a cell
    /// that is editable; its text is PopUpCells::typedRole.
    void setPopUpColumn(int column, QMenu* menu);

    /// Gives the rows a second line (TwoLineCells.h) and the height for it.
    void setTwoLines();
    [[nodiscard]] bool hasTwoLines() const { return m_hasTwoLines; }
    /// Gives the rows room for icons of listIconSize.
    void setTallRows();
    /// Makes the table so many rows high, and at the least so many, with its titles. Nothing else makes it
    /// higher.
    void setRowsShown(int rows, int least);
    /// The least height that shows so many rows.
    void setLeastRows(int rows);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Whether the cell is such a pop-up.
    [[nodiscard]] bool isPopUp(const QModelIndex& cell) const;
    /// Opens the menu of such a cell; one that is not enabled opens nothing.
    void openMenuOf(const QModelIndex& cell);
    /// Clicks the check box of the cell and makes the cell current; false when it has none that can be.
    bool toggleCell(const QModelIndex& cell);

    /// Numbers the rows, from 1. What shows the numbers is made when the table is shown first.
    void setRowsNumbered();
    [[nodiscard]] bool areRowsNumbered() const { return m_areRowsNumbered; }
    /// Has the mouse move rows to other places.
    void setRowMoves(RowMoves moves);

    /// What the table says while it has no rows.
    [[nodiscard]] QString emptyText() const { return m_emptyText->text(); }
    void setEmptyText(const QString& text) { m_emptyText->setText(text); }

    /// The context menu, which belongs to the panel; nullptr when there is none.
    [[nodiscard]] QMenu* menu() const { return m_menu; }
    void setMenu(QMenu* menu);
    /// The menu to open on the event; nullptr for none, and always while the table is disabled. A click picks
    /// the row under it first, unless that is selected already, or none where there is no row; the menu key
    /// leaves the selection.
    [[nodiscard]] QMenu* menuForEvent(const QContextMenuEvent& event);

    /// Without a delegate the table does nothing on mouse buttons.
    void setDelegate(TableDelegate* delegate) { m_delegated.setDelegate(delegate); }

    /// Lays the columns of the new model out as tableColumns() of this tag says; a table that has not been
    /// shown yet does so when it is.
    void setModel(QAbstractItemModel* model) override;
    /// Has setModel() called when there is need of the model, which must live until then. That saves 1.6 ms
    /// of the start where no mouse's list comes before the first drawing. Until then there is no row and no
    /// selection. The first showing needs it; a table that has been shown gets it now.
    void setModelLater(QAbstractItemModel* model);
    /// For whoever else is to know of rows, of columns or of changes of them. Does nothing once that is done.
    void completeModel();

  signals:
    /// Other rows are selected, or none.
    void selectedRowChanged();
    /// The left button has come up again from a double click on the cell. What opens a sheet, or begins to
    /// record clicks, waits for that: it would get the release.
    void doubleClickEnded(const QModelIndex& cell);

  protected:
    /// Measures nothing before the first showing: titles need a font that nothing else has. That saves 1.7 ms
    /// of the start where the mouse's list comes before the first drawing.
    void updateGeometries() override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Tells assistive programs which cell the keys are for, which the focus of the table alone does not say.
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// Tells assistive programs of the current cell only while the table has the focus: the lists are filled
    /// again and again behind other tabs.
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    /// The cells keep their colours when something else has the focus.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    void initViewItemOption(QStyleOptionViewItem* option) const override;
#else
    [[nodiscard]] QStyleOptionViewItem viewOptions() const override;
#endif

  private:
    /// Whether the trigger begins an edit of the pop-up cell.
    [[nodiscard]] bool editsPopUp(const QModelIndex& cell, EditTrigger trigger, const QEvent* event) const;
    /// With the titles and the frame.
    [[nodiscard]] int heightOfRows(int rows) const;
    void showFocus(bool focused);
    void makeNumbers();
    void followDoubleClick(const QMouseEvent& event);
    /// Whether the point, of the viewport, is on the cell's check box.
    [[nodiscard]] bool isOnCheckBox(const QModelIndex& cell, const QPoint& point) const;

    std::shared_ptr<void> m_accessibleWidgets = accessibleWidgets();
    QPointer<QMenu> m_menu;
    QPointer<QAbstractItemModel> m_awaitedModel; ///< null once it is the table's
    DelegatedEvents m_delegated{*this};
    TableKeys m_keys{*this};
    QPersistentModelIndex m_doubleClickedCell; ///< while the button is held from the second press on
    PopUpCells* m_popUpCells = nullptr;        ///< null while no cell is a pop-up
    RowDrag* m_rowDrag = nullptr;              ///< null while rows cannot be moved
    EmptyText* m_emptyText;
    FocusRing* m_focusRing = nullptr; ///< null until the focus has come for the first time
    int m_rowsShown = 0;              ///< 0 for as many as there is room for
    int m_leastRows = 0;              ///< 0 for what every list has
    bool m_hasTwoLines = false;
    bool m_areRowsNumbered = false;
    bool m_hasBeenShown = false;
    bool m_keepsSelection = false; ///< another row becomes the current one, and no other is selected by that
};

} // namespace quorvi
