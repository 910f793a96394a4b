// The panel's table. It selects whole rows, one at a time by default. The dynamic property "tag" identifies
// the table: 1 profiles, 2 macros, 3 steps, 4 stages.
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

    /// The table's tag; 0 if it has none.
    [[nodiscard]] int tag() const;

    /// Allows the selection of several rows, by the mouse and the keyboard as in other lists.
    void setSeveralSelectable();
    [[nodiscard]] bool isSeveralSelectable() const { return selectionMode() == ExtendedSelection; }

    /// The selected row; -1 if there is none. Of several rows, the current one, from which the keys move, or
    /// the first if the current one is not selected.
    [[nodiscard]] int selectedRow() const;
    /// All selected rows, from the top.
    [[nodiscard]] std::vector<int> selectedRows() const;
    /// Selects only this row and scrolls to it. Clears the selection if the row does not exist.
    void selectRowAlone(int row) { selectRows({row}); }
    /// Selects only these rows and makes one of them current: the given one, or the last if the given one is
    /// not among them. Ignores rows that do not exist; if none exists, clears the selection.
    void selectRows(const std::vector<int>& rows, int current = -1);
    void deselectAll();
    using QTableView::edit;
    /// Starts an edit if the trigger does so for this cell, and gives its field an accessible name. Returns
    /// false if the trigger does not, or if the cell is read-only.
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    /// Starts an edit of the cell, with its text selected. Does nothing if the cell is read-only.
    void editCell(int column, int row);
    /// Whether the user is typing into a cell.
    [[nodiscard]] bool isEditing() const { return state() == EditingState; }
    /// Cancels a cell edit in progress and discards the typed text.
    void abortEditing();

    /// Makes the column's cells pop-ups of the menu, which the panel owns. A cell's value is the index of a
    /// menu item; choosing an item sets it. A click opens the menu, and so do the keys that open other
    /// pop-ups, for the selected row. A double click, F2 and a digit open a text field in an editable cell;
    /// its text is PopUpCells::typedRole.
    void setPopUpColumn(int column, QMenu* menu);

    /// Gives the rows a second line (TwoLineCells.h) and makes them higher.
    void setTwoLines();
    [[nodiscard]] bool hasTwoLines() const { return m_hasTwoLines; }
    /// Makes the rows high enough for icons of listIconSize.
    void setTallRows();
    /// Sets the table's height, with its titles, in rows: the preferred height, which is also the maximum,
    /// and the minimum.
    void setRowsShown(int rows, int least);
    /// Sets the minimum height, in rows.
    void setLeastRows(int rows);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Whether the cell is a pop-up of setPopUpColumn().
    [[nodiscard]] bool isPopUp(const QModelIndex& cell) const;
    /// Opens the menu of a pop-up cell. Does nothing if the cell is disabled.
    void openMenuOf(const QModelIndex& cell);
    /// Clicks the cell's check box and makes the cell current. Returns false if it has no enabled check box.
    bool toggleCell(const QModelIndex& cell);

    /// Numbers the rows, from 1. The header with the numbers is created when the table is first shown.
    void setRowsNumbered();
    [[nodiscard]] bool areRowsNumbered() const { return m_areRowsNumbered; }
    /// Lets the user drag rows to other places.
    void setRowMoves(RowMoves moves);

    /// The text shown while the table has no rows.
    [[nodiscard]] QString emptyText() const { return m_emptyText->text(); }
    void setEmptyText(const QString& text) { m_emptyText->setText(text); }

    /// The context menu, owned by the panel; nullptr if there is none.
    [[nodiscard]] QMenu* menu() const { return m_menu; }
    void setMenu(QMenu* menu);
    /// Returns the menu to open on the event; nullptr if there is none or the table is disabled. A click
    /// first selects the row under it unless it is already selected, or clears the selection if there is no
    /// row there. The menu key keeps the selection.
    [[nodiscard]] QMenu* menuForEvent(const QContextMenuEvent& event);

    /// Without a delegate, the table ignores mouse buttons.
    void setDelegate(TableDelegate* delegate) { m_delegated.setDelegate(delegate); }

    /// Lays out the new model's columns according to tableColumns() of this tag; a table that was never shown
    /// does so when first shown.
    void setModel(QAbstractItemModel* model) override;
    /// Defers setModel() until the table is first shown or completeModel() is called; a table that was
    /// already shown sets the model at once. The model must live until then. Until then the table has no rows
    /// and no selection. This saves 1.6 ms of the start if no list of a mouse comes before the first paint.
    void setModelLater(QAbstractItemModel* model);
    /// Sets the deferred model now, for callers that need rows, columns or notification of their changes.
    /// Does nothing if no model is deferred.
    void completeModel();

  signals:
    /// The selection has changed.
    void selectedRowChanged();
    /// The left button was released after a double click on the cell. Open a sheet or start recording clicks
    /// only then: they would receive the release.
    void doubleClickEnded(const QModelIndex& cell);

  protected:
    /// Does nothing before the table is first shown: measuring the titles needs a font that no other control
    /// has. This saves 1.7 ms of the start if the mouse's list comes before the first paint.
    void updateGeometries() override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Notifies assistive programs of the current cell, which the table's focus alone does not identify.
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// Notifies assistive programs of the current cell only while the table has the focus: lists behind other
    /// tabs are often refilled.
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    /// Keeps the cells' colours while another control has the focus.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    void initViewItemOption(QStyleOptionViewItem* option) const override;
#else
    [[nodiscard]] QStyleOptionViewItem viewOptions() const override;
#endif

  private:
    /// Whether the trigger starts an edit of the pop-up cell.
    [[nodiscard]] bool editsPopUp(const QModelIndex& cell, EditTrigger trigger, const QEvent* event) const;
    /// The height of that many rows with the titles and the frame.
    [[nodiscard]] int heightOfRows(int rows) const;
    void showFocus(bool focused);
    void makeNumbers();
    void followDoubleClick(const QMouseEvent& event);
    /// Whether the point, in viewport coordinates, is on the cell's check box.
    [[nodiscard]] bool isOnCheckBox(const QModelIndex& cell, const QPoint& point) const;

    std::shared_ptr<void> m_accessibleWidgets = accessibleWidgets();
    QPointer<QMenu> m_menu;
    QPointer<QAbstractItemModel> m_awaitedModel; ///< null once it is set
    DelegatedEvents m_delegated{*this};
    TableKeys m_keys{*this};
    QPersistentModelIndex m_doubleClickedCell; ///< while the button is held after the second press
    PopUpCells* m_popUpCells = nullptr;        ///< null while no cell is a pop-up
    RowDrag* m_rowDrag = nullptr;              ///< null while rows cannot be moved
    EmptyText* m_emptyText;
    FocusRing* m_focusRing = nullptr; ///< null until the table first gets the focus
    int m_rowsShown = 0;              ///< 0 for no preference
    int m_leastRows = 0;              ///< 0 for the default minimum
    bool m_hasTwoLines = false;
    bool m_areRowsNumbered = false;
    bool m_hasBeenShown = false;
    bool m_keepsSelection = false; ///< changing the current row does not change the selection
};

} // namespace quorvi
