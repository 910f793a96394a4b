#include "editors/macros/StepsModel.h"

#include <QFont>
#include <QMenu>

#include <algorithm>
#include <utility>

#include "macros/StepCodes.h"
#include "model/Keys.h"
#include "resources/TableTags.h"
#include "widgets/MarkedCells.h"
#include "widgets/MenuItems.h"
#include "widgets/SymbolIcon.h"
#include "window/ActionNames.h"
#include "window/ShownStep.h"

namespace quorvi {

namespace {

/// The position of the item for the delay: its own or, when it has none, that of the longest shorter one;
/// never "none" for a delay that there is. -1 when no item will do.
int indexOfDelay(const QMenu& menu, std::int32_t delay) {
    const int own = indexOfItemWithTag(menu, delay);
    if (own >= 0)
        return own;
    const QList<QAction*> items = menu.actions();
    for (int index = int(items.size()) - 1; index >= 0; --index) {
        const int tag = tagOfItem(*items.at(index)).value_or(0);
        if (tag > 0 && tag < delay)
            return index;
    }
    return -1;
}

/// The item that the value of a pop-up cell stands for; null for none.
QAction* itemAt(const QMenu& menu, const QVariant& value) {
    return value.userType() == QMetaType::Int ? menu.actions().value(value.toInt()) : nullptr;
}

} // namespace

StepsModel::StepsModel(
    const EditorContext& context, const QMenu& delays, std::function<std::vector<int>()> selectedRows)
    : TableModel(stepColumns, context.text), m_document(context.document),
      m_selectedRows(std::move(selectedRows)), m_typed(context.text, context.notices), m_delays(delays) {}

int StepsModel::numberOfRows() const {
    return m_document.hasDevice() ? static_cast<int>(m_document.macroSteps().size()) : 0;
}

QVariant StepsModel::cellValue(int columnIdentifier, int row) const {
    const plist::Dictionary step = m_document.macroSteps().dictionary(static_cast<std::size_t>(row));
    const bool exists = row >= 0 && row < static_cast<int>(m_document.macroSteps().size());
    if (columnIdentifier == kStepActionColumn)
        return shownStep(step, panelText());
    if (columnIdentifier == kStepDelayColumn && exists)
        return indexOfDelay(m_delays, step.integer(keys::delay));
    return QString();
}

void StepsModel::setCellValue(const QVariant& value, int columnIdentifier, int row) {
    if (columnIdentifier != kStepDelayColumn)
        return;
    if (const QAction* item = itemAt(m_delays, value); item && row >= 0)
        setDelay(tagOfItem(*item).value_or(0), row);
}

std::int32_t StepsModel::delayOf(int row) const {
    return m_document.macroSteps().dictionary(static_cast<std::size_t>(row)).integer(keys::delay);
}

std::vector<int> StepsModel::rowsWith(int row) const {
    std::vector<int> rows = m_selectedRows();
    return std::ranges::binary_search(rows, row) ? rows : std::vector{row};
}

void StepsModel::setDelay(std::int32_t milliseconds, int row) {
    const std::vector<int> rows = rowsWith(row);
    for (const int each : rows)
        m_document.macroSteps().dictionary(static_cast<std::size_t>(each)).set(keys::delay, milliseconds);
    const bool several = rows.size() > 1;
    if (several)
        showColumn(kStepDelayColumn);
    m_document.commit({.shown = Shown::nothing,
        .saving = Saving::withNextAction,
        .action = actionName(text(several ? "Change Delays" : "Change Delay"))});
}

void StepsModel::showPlayed(int row) {
    const int before = std::exchange(m_played, row);
    for (const int changed : {before, row})
        if (changed >= 0 && changed < rowCount())
            emit dataChanged(index(changed, 0), index(changed, columnCount() - 1), {Qt::FontRole});
}

int StepsModel::symbolOf(int row) const {
    const auto code = static_cast<std::uint32_t>(
        m_document.macroSteps().dictionary(static_cast<std::size_t>(row)).integer(keys::command));
    if (stepcodes::isButton(code))
        return static_cast<int>(Symbol::Mouse);
    return static_cast<int>(code == stepcodes::keyUp ? Symbol::KeyUp : Symbol::KeyDown);
}

QVariant StepsModel::ownData(int columnIdentifier, int row, int role) const {
    if (role == MarkedCells::symbolRole && columnIdentifier == kStepActionColumn && row < numberOfRows())
        return symbolOf(row);
    if (role != Qt::FontRole || row != m_played)
        return {};
    QFont font; // of which only the weight is set, and counts
    font.setBold(true);
    return font;
}

void StepsModel::showActions() {
    showColumn(kStepActionColumn);
}

void StepsModel::showColumn(int columnIdentifier) {
    const int column = columnOf(columnIdentifier);
    if (rowCount() > 0)
        emit dataChanged(index(0, column), index(rowCount() - 1, column));
}

CellKind StepsModel::cellKind(int columnIdentifier, int /*row*/) const {
    return columnIdentifier == kStepDelayColumn ? CellKind::typedPopUp : CellKind::text;
}

QString StepsModel::typedText(int columnIdentifier, int row) const {
    return columnIdentifier == kStepDelayColumn ? m_typed.text(delayOf(row)) : QString();
}

void StepsModel::takeTypedText(const QString& typed, int columnIdentifier, int row) {
    if (columnIdentifier != kStepDelayColumn)
        return;
    const auto delay = m_typed.read(typed);
    const std::vector<int> rows = rowsWith(row);
    if (delay && std::ranges::any_of(rows, [&](int each) { return *delay != delayOf(each); }))
        setDelay(*delay, row);
}

QString StepsModel::titleOfDelay(const QVariant& value) const {
    const QAction* item = itemAt(m_delays, value);
    return item ? shownTitleOfItem(*item) : QString();
}

QString StepsModel::shownCell(int columnIdentifier, int row) const {
    if (columnIdentifier != kStepDelayColumn)
        return TableModel::shownCell(columnIdentifier, row);
    const std::int32_t delay = delayOf(row);
    const bool isOfMenu = delay <= 0 || indexOfItemWithTag(m_delays, delay) >= 0;
    return isOfMenu ? titleOfDelay(cellValue(columnIdentifier, row)) : m_typed.text(delay);
}

QString StepsModel::explanation(int columnIdentifier, const QVariant& /*value*/) const {
    return columnIdentifier == kStepDelayColumn ? m_typed.explanation() : QString();
}

} // namespace quorvi
