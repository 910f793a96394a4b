// The rows of one of the panel's tables, asked of the controller cell by cell.
#pragma once

#include <QAbstractTableModel>

#include <set>
#include <span>

#include "widgets/TableColumns.h"

namespace quorvi {

class KyvarQuorviPane;

class TableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The columns are those of tableColumns() for the tag.
    TableModel(KyvarQuorviPane* pane, int tableTag);

    /// Asks for everything anew.
    void reload();
    /// Greys the column's cells and refuses edits of them, or takes that back.
    void setColumnEnabled(int columnIdentifier, bool enabled);

    /// Marks the row, -1 for none, by a sign beside its number. The text says why, to the pointer that rests
    /// there and to screen readers.
    void setMark(int row, const QString& why);

    /// The position of the column; -1 when the table has none like that.
    [[nodiscard]] int columnOf(int columnIdentifier) const;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  private:
    [[nodiscard]] int identifierOf(const QModelIndex& index) const;
    [[nodiscard]] QVariant spokenText(int columnIdentifier, const QVariant& value) const;
    [[nodiscard]] QVariant explanation(int columnIdentifier, const QVariant& value) const;
    [[nodiscard]] bool isMarked(const QModelIndex& index) const;

    KyvarQuorviPane* m_pane;
    int m_tableTag;
    std::span<const TableColumn> m_columns;
    std::set<int> m_disabledColumns;
    int m_markedRow = -1;
    QString m_markText;
};

} // namespace quorvi
