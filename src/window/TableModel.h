// The rows of one of the panel's lists, as its table shows them. Each list derives its own model, which
// supplies the cells' values.
#pragma once

#include <QAbstractTableModel>

#include <cstdint>
#include <map>
#include <set>
#include <span>

#include "widgets/FilledText.h"
#include "widgets/TableColumns.h"

namespace quorvi {

/// How the user can use a cell.
enum class CellKind : std::uint8_t {
    text, ///< read-only, or a pop-up (KyvarQuorviTableView::setPopUpColumn)
    name, ///< can be renamed
    checkBox,
    typedPopUp, ///< a pop-up that also accepts typed text
};

/// The marked rows, each with its reason.
using RowMarks = std::map<int, QString>;

class TableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The columns must outlive the model. The text returns the headers in the user's language.
    TableModel(std::span<const TableColumn> columns, PanelText text);

    // Queried by row, from 0, and by the column's identifier. The row always exists.
    [[nodiscard]] virtual int numberOfRows() const = 0;
    /// A text, a boolean for a check box, the index of an item for a pop-up cell.
    [[nodiscard]] virtual QVariant cellValue(int columnIdentifier, int row) const = 0;
    /// Stores a value set by the user, of the same kind as cellValue(). Does nothing by default.
    virtual void setCellValue(const QVariant& value, int columnIdentifier, int row);

    /// Makes views query all rows again.
    void reload();
    /// Enables the column's cells, or greys them and refuses edits.
    void setColumnEnabled(int columnIdentifier, bool enabled);

    /// The initial text of the field in which a CellKind::typedPopUp cell is typed.
    [[nodiscard]] virtual QString typedText(int columnIdentifier, int row) const;
    /// Handles the text typed there, which may be invalid.
    virtual void takeTypedText(const QString& typed, int columnIdentifier, int row);

    /// Marks only these rows, by a sign in their cells of the column (MarkedCells.h): a warning, unless the
    /// list has its own sign. The reasons become the cells' tool tips, also for screen readers.
    void setMarks(int columnIdentifier, const RowMarks& marks);

    /// The position of the column; -1 if the table has no such column.
    [[nodiscard]] int columnOf(int columnIdentifier) const;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const final;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const final;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const final;
    bool setData(const QModelIndex& index, const QVariant& value, int role) final;

  protected:
    [[nodiscard]] virtual CellKind cellKind(int columnIdentifier, int row) const;
    /// The cell's text; by default its value as a name (shownName()).
    [[nodiscard]] virtual QString shownCell(int columnIdentifier, int row) const;
    /// The cell's text for screen readers; empty if its shown text suffices.
    [[nodiscard]] virtual QString spokenText(int columnIdentifier, const QVariant& value) const;
    /// The cell's tool tip; empty if it has none.
    [[nodiscard]] virtual QString explanation(int columnIdentifier, const QVariant& value) const;
    /// This model's own data for the role, which precede the common data; invalid if it has none.
    [[nodiscard]] virtual QVariant ownData(int columnIdentifier, int row, int role) const;

    /// Returns the string table's text for the key, in the user's language.
    [[nodiscard]] QString text(const char* key) const { return m_text(key); }
    [[nodiscard]] const PanelText& panelText() const { return m_text; }
    /// Whether the cell has a mark of setMarks().
    [[nodiscard]] bool isMarked(int columnIdentifier, int row) const {
        return isMarked(index(row, columnOf(columnIdentifier)));
    }

  private:
    [[nodiscard]] int identifierOf(const QModelIndex& index) const;
    /// The reason for the cell's mark; empty if it has none.
    [[nodiscard]] QString markText(const QModelIndex& index) const;
    [[nodiscard]] bool isMarked(const QModelIndex& index) const { return !markText(index).isEmpty(); }

    std::span<const TableColumn> m_columns;
    PanelText m_text;
    std::set<int> m_disabledColumns;
    int m_markedColumn = -1;
    RowMarks m_marks;
};

} // namespace quorvi
