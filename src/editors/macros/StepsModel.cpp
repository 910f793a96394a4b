#include "editors/macros/StepsModel.h"

#include <QMenu>

#include "model/Keys.h"
#include "resources/TableTags.h"
#include "widgets/MenuItems.h"
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

StepsModel::StepsModel(const EditorContext& context, const QMenu& delays)
    : TableModel(stepColumns, context.text), m_document(context.document),
      m_typed(context.text, context.notices), m_delays(delays) {}

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

void StepsModel::setDelay(std::int32_t milliseconds, int row) {
    m_document.macroSteps().dictionary(static_cast<std::size_t>(row)).set(keys::delay, milliseconds);
    m_document.commit({.shown = Shown::nothing,
        .saving = Saving::withNextAction,
        .action = actionName(text("Change Delay"))});
}

void StepsModel::showActions() {
    const int column = columnOf(kStepActionColumn);
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
    if (delay && *delay != delayOf(row))
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
