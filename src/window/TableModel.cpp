#include "window/TableModel.h"

#include <algorithm>
#include <utility>

#include "widgets/MarkedCells.h"
#include "widgets/PopUpCells.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

/// Returns an invalid value for an empty text, which views treat as no data.
QVariant textIfAny(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

} // namespace

TableModel::TableModel(std::span<const TableColumn> columns, PanelText text)
    : m_columns(columns), m_text(std::move(text)) {}

void TableModel::setCellValue(const QVariant& /*value*/, int /*columnIdentifier*/, int /*row*/) {}

CellKind TableModel::cellKind(int /*columnIdentifier*/, int /*row*/) const {
    return CellKind::text;
}

QString TableModel::shownCell(int columnIdentifier, int row) const {
    return shownName(cellValue(columnIdentifier, row).toString());
}

QString TableModel::typedText(int /*columnIdentifier*/, int /*row*/) const {
    return {};
}

void TableModel::takeTypedText(const QString& /*typed*/, int /*columnIdentifier*/, int /*row*/) {}

QString TableModel::spokenText(int /*columnIdentifier*/, const QVariant& /*value*/) const {
    return {};
}

QString TableModel::explanation(int /*columnIdentifier*/, const QVariant& /*value*/) const {
    return {};
}

QVariant TableModel::ownData(int /*columnIdentifier*/, int /*row*/, int /*role*/) const {
    return {};
}

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

void TableModel::setMarks(int columnIdentifier, const RowMarks& marks) {
    m_markedColumn = columnOf(columnIdentifier);
    const RowMarks before = std::exchange(m_marks, marks);
    if (before == marks)
        return;
    const auto textIn = [](const RowMarks& rows, int row) {
        const auto found = rows.find(row);
        return found == rows.end() ? QString() : found->second;
    };
    const int count = rowCount();
    for (int row = 0; row < count; ++row)
        if (textIn(before, row) != textIn(marks, row))
            emit dataChanged(index(row, m_markedColumn), index(row, m_markedColumn));
}

QString TableModel::markText(const QModelIndex& index) const {
    const auto found = m_marks.find(index.row());
    return index.column() == m_markedColumn && found != m_marks.end() ? found->second : QString();
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : numberOfRows();
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
    if (QVariant own = ownData(identifier, index.row(), role); own.isValid())
        return own;
    const auto value = [&] { return cellValue(identifier, index.row()); };
    const bool isCheckBox = cellKind(identifier, index.row()) == CellKind::checkBox;
    switch (role) {
    case MarkedCells::markRole:
        return isMarked(index);
    case PopUpCells::typedRole:
        return textIfAny(typedText(identifier, index.row()));
    case Qt::ToolTipRole:
        return isMarked(index) ? markText(index) : textIfAny(explanation(identifier, value()));
    case Qt::AccessibleTextRole:
        return textIfAny(spokenText(identifier, value()));
    case Qt::CheckStateRole:
        return isCheckBox ? QVariant(value().toBool() ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::EditRole:
        return isCheckBox ? QVariant() : value();
    case Qt::DisplayRole:
        return isCheckBox ? QVariant() : shownCell(identifier, index.row());
    default:
        return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const TableColumn& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return m_text(column.title);
    if (role == Qt::ToolTipRole && *column.explanation != 0)
        return m_text(column.explanation);
    return {};
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) // views still query rows of a disconnected mouse
        return Qt::NoItemFlags;
    const int identifier = identifierOf(index);
    const CellKind kind = cellKind(identifier, index.row());
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (!m_disabledColumns.contains(identifier))
        flags |= Qt::ItemIsEnabled;
    if (kind == CellKind::checkBox)
        flags |= Qt::ItemIsUserCheckable;
    if (kind == CellKind::name || kind == CellKind::typedPopUp)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid())
        return false;
    const int identifier = identifierOf(index);
    const CellKind kind = cellKind(identifier, index.row());
    if (role == PopUpCells::typedRole && kind == CellKind::typedPopUp) {
        takeTypedText(value.toString(), identifier, index.row());
        emit dataChanged(index, index);
        return true;
    }
    const bool isCheckBox = kind == CellKind::checkBox;
    if (role != (isCheckBox ? Qt::CheckStateRole : Qt::EditRole))
        return false;
    setCellValue(isCheckBox ? QVariant(value.toInt() == Qt::Checked) : value, identifier, index.row());
    emit dataChanged(index, index);
    return true;
}

} // namespace quorvi
