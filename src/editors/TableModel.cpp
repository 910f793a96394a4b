#include "editors/TableModel.h"

#include <algorithm>
#include <utility>

#include "pane/KyvarQuorviPane.h"
#include "resources/TableTags.h"
#include "widgets/MarkedCells.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

bool isCheckBox(int columnIdentifier) {
    return columnIdentifier == kProfileAutoswitchColumn;
}

bool isPopUp(int columnIdentifier) {
    return columnIdentifier == kStepDelayColumn;
}

/// The first profile is the one that always exists, and keeps its name.
bool isEditableName(int columnIdentifier, int row) {
    return columnIdentifier == kMacroNameColumn || (columnIdentifier == kProfileNameColumn && row > 0);
}

} // namespace

TableModel::TableModel(KyvarQuorviPane* pane, int tableTag)
    : m_pane(pane), m_tableTag(tableTag), m_columns(tableColumns(tableTag)) {}

void TableModel::reload() {
    beginResetModel();
    endResetModel();
}

void TableModel::setColumnEnabled(int columnIdentifier, bool enabled) {
    const bool changed = enabled ? m_disabledColumns.erase(columnIdentifier) > 0
                                 : m_disabledColumns.insert(columnIdentifier).second;
    if (changed && rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void TableModel::setMark(int row, const QString& why) {
    const int before = std::exchange(m_markedRow, row);
    if (std::exchange(m_markText, why) == why && before == row)
        return;
    for (const int changed : {before, row})
        if (changed >= 0 && changed < rowCount())
            emit dataChanged(index(changed, 0), index(changed, 0));
}

bool TableModel::isMarked(const QModelIndex& index) const {
    return index.row() == m_markedRow && index.column() == 0;
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_pane->numberOfRowsInTableView(m_tableTag);
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

int TableModel::columnOf(int columnIdentifier) const {
    const auto found = std::ranges::find(m_columns, columnIdentifier, &TableColumn::identifier);
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

int TableModel::identifierOf(const QModelIndex& index) const {
    return m_columns[static_cast<std::size_t>(index.column())].identifier;
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const int identifier = identifierOf(index);
    const auto value = [&] { return m_pane->objectValueForTableColumn(identifier, index.row()); };
    if (role == MarkedCells::markRole)
        return isMarked(index);
    if (role == Qt::ToolTipRole && isMarked(index))
        return m_markText;
    if (role == Qt::ToolTipRole)
        return explanation(identifier, value());
    if (role == Qt::AccessibleTextRole)
        return spokenText(identifier, value());
    if (isCheckBox(identifier))
        return role == Qt::CheckStateRole ? QVariant(value().toBool() ? Qt::Checked : Qt::Unchecked)
                                          : QVariant();
    if (isPopUp(identifier) && role == Qt::DisplayRole)
        return m_pane->titleOfDelay(value());
    if (role == Qt::EditRole)
        return value();
    return role == Qt::DisplayRole ? QVariant(shownName(value().toString())) : QVariant();
}

// What stands in a cell without a text; the text itself is read out without that.
QVariant TableModel::spokenText(int columnIdentifier, const QVariant& value) const {
    if (columnIdentifier == kProfileAutoswitchColumn)
        return m_pane->locString(value.toBool() ? QStringLiteral("Switches automatically")
                                                : QStringLiteral("Does not switch automatically"));
    if (columnIdentifier == kProfileApplicationColumn && value.toString().isEmpty())
        return m_pane->locString(QStringLiteral("No application"));
    return {};
}

// What to do where there is nothing. Plain text, whatever an application is called.
QVariant TableModel::explanation(int columnIdentifier, const QVariant& value) const {
    if (columnIdentifier == kProfileApplicationColumn && value.toString().isEmpty())
        return m_pane->locString(QStringLiteral("No application: assign one with the gear button."));
    return {};
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const TableColumn& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return m_pane->locString(QString::fromUtf8(column.title));
    if (role == Qt::ToolTipRole && *column.explanation != 0)
        return m_pane->locString(QString::fromUtf8(column.explanation));
    return {};
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) // views ask of rows that went with the mouse
        return Qt::NoItemFlags;
    const int identifier = identifierOf(index);
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (!m_disabledColumns.contains(identifier))
        flags |= Qt::ItemIsEnabled;
    if (isCheckBox(identifier))
        flags |= Qt::ItemIsUserCheckable;
    if (isEditableName(identifier, index.row()))
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid())
        return false;
    const int identifier = identifierOf(index);
    if (role != (isCheckBox(identifier) ? Qt::CheckStateRole : Qt::EditRole))
        return false;
    m_pane->setObjectValue(
        isCheckBox(identifier) ? QVariant(value.toInt() == Qt::Checked) : value, identifier, index.row());
    emit dataChanged(index, index);
    return true;
}

} // namespace quorvi
