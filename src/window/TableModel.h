// The rows of one of the panel's lists, as its table shows them. Each list derives its own from this and says
// what its cells hold.
#pragma once

#include <QAbstractTableModel>

#include <cstdint>
#include <map>
#include <set>
#include <span>

#include "widgets/FilledText.h"
#include "widgets/TableColumns.h"

namespace quorvi {

/// What the user can do with a cell.
enum class CellKind : std::uint8_t {
    text, ///< read it; a pop-up cell is one of these (KyvarQuorviTableView::setPopUpColumn)
    name, ///< type another one
    checkBox,
    typedPopUp, ///< a pop-up cell that takes what is typed too
};

/// Rows that bear a mark, and why each does.
using RowMarks = std::map<int, QString>;

class TableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The columns must outlive it. The text gives the headers in the user's language.
    TableModel(std::span<const TableColumn> columns, PanelText text);

    // What a list says of its rows, from 0, and of its columns, by their identifiers. The row exists.
    [[nodiscard]] virtual int numberOfRows() const = 0;
    /// A text, a boolean for a check box, the index of an item for a pop-up cell.
    [[nodiscard]] virtual QVariant cellValue(int columnIdentifier, int row) const = 0;
    /// Takes what the user has set, of the same kind. Does nothing where nothing can be set.
    virtual void setCellValue(const QVariant& value, int columnIdentifier, int row);

    /// Asks for everything anew.
    void reload();
    /// Greys the column's cells and refuses edits of them, or takes that back.
    void setColumnEnabled(int columnIdentifier, bool enabled);

    /// The text to begin with when one types into a pop-up cell of that kind.
    [[nodiscard]] virtual QString typedText(int columnIdentifier, int row) const;
    /// Takes what the user has typed there, which may be anything.
    virtual void takeTypedText(const QString& typed, int columnIdentifier, int row);

    /// Marks these rows and no others, by a sign in their cells of the column (MarkedCells.h): a warning
    /// unless the list has another. The texts say why, to the pointer that rests there and to screen readers.
    void setMarks(int columnIdentifier, const RowMarks& marks);

    /// The position of the column; -1 when the table has none like that.
    [[nodiscard]] int columnOf(int columnIdentifier) const;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const final;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const final;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const final;
    bool setData(const QModelIndex& index, const QVariant& value, int role) final;

  protected:
    [[nodiscard]] virtual CellKind cellKind(int columnIdentifier, int row) const;
    /// What the cell shows; its value as a name is shown when the list says nothing else.
    [[nodiscard]] virtual QString shownCell(int columnIdentifier, int row) const;
    /// What screen readers say of a cell whose text does not say it; empty where it does.
    [[nodiscard]] virtual QString spokenText(int columnIdentifier, const QVariant& value) const;
    /// What the cell says to the pointer that rests there; empty for nothing.
    [[nodiscard]] virtual QString explanation(int columnIdentifier, const QVariant& value) const;
    /// What this model alone has for the cell in the role, which goes before all others; nothing for what all
    /// models have.
    [[nodiscard]] virtual QVariant ownData(int columnIdentifier, int row, int role) const;

    /// The text of the string table for the key, in the user's language.
    [[nodiscard]] QString text(const char* key) const { return m_text(key); }
    [[nodiscard]] const PanelText& panelText() const { return m_text; }
    /// Whether the row is one of setMarks(), and the column that of the marks.
    [[nodiscard]] bool isMarked(int columnIdentifier, int row) const {
        return isMarked(index(row, columnOf(columnIdentifier)));
    }

  private:
    [[nodiscard]] int identifierOf(const QModelIndex& index) const;
    /// Why the cell is marked; empty for one that is not.
    [[nodiscard]] QString markText(const QModelIndex& index) const;
    [[nodiscard]] bool isMarked(const QModelIndex& index) const { return !markText(index).isEmpty(); }

    std::span<const TableColumn> m_columns;
    PanelText m_text;
    std::set<int> m_disabledColumns;
    int m_markedColumn = -1;
    RowMarks m_marks;
};

} // namespace quorvi
