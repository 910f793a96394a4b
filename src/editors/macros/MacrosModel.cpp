#include "editors/macros/MacrosModel.h"

#include <utility>

#include "macros/TypedKeys.h"
#include "model/Keys.h"
#include "model/NamingRule.h"
#include "model/SettingsDocument.h"
#include "plist/DeepCopy.h"
#include "resources/TableTags.h"
#include "widgets/ShownText.h"
#include "widgets/TwoLineCells.h"
#include "window/ActionNames.h"
#include "window/ShownStep.h"

namespace quorvi {

MacrosModel::MacrosModel(Document& document, const PanelText& text, std::function<void()> hasChanged)
    : TableModel(macroColumns, text), m_document(document), m_hasChanged(std::move(hasChanged)) {}

int MacrosModel::numberOfRows() const {
    return m_document.hasDevice() ? static_cast<int>(m_document.macros().size()) : 0;
}

QVariant MacrosModel::cellValue(int columnIdentifier, int row) const {
    if (columnIdentifier != kMacroNameColumn)
        return QString();
    const plist::Dictionary macro = m_document.macros().dictionary(static_cast<std::size_t>(row));
    return QString::fromStdU16String(macro.string(keys::name));
}

void MacrosModel::setCellValue(const QVariant& value, int columnIdentifier, int row) {
    if (columnIdentifier != kMacroNameColumn)
        return;
    if (value.userType() == QMetaType::QString)
        rename(value, row);
    cleanUpSettings(m_document.tree());
    m_hasChanged();
    const plist::Dictionary macro = m_document.macros().dictionary(static_cast<std::size_t>(row));
    m_document.commit({.saving = Saving::withNextAction,
        .action = actionName(text("Rename Macro “^1”"), macro.string(keys::name))});
}

void MacrosModel::rename(const QVariant& value, int row) {
    const std::u16string name = makeNameUnique(value.toString().toStdU16String(),
        text("Untitled Macro").toStdU16String(), m_document.macros(), keys::name, row);
    if (row != m_document.macroIndex())
        m_document.editMacroIndex(row);
    m_document.macro().set(keys::name, name);
}

QString MacrosModel::typedLineOf(int row) const {
    const plist::Array steps =
        m_document.macros().dictionary(static_cast<std::size_t>(row)).array(keys::steps);
    Typed& typed = m_typed[row];
    if (typed.line.isNull() || typed.steps != plist::Value(steps)) {
        const TextLookup lookup = lookupIn(panelText());
        const auto line = typedLine(typedBySteps(steps, layoutInUse(), lookup), lookup);
        typed = {
            .steps = plist::deepCopy(steps), .line = QLatin1String("") + QString::fromStdU16String(line)};
    }
    return typed.line;
}

QString MacrosModel::secondLine(int row) const {
    const QString line = typedLineOf(row);
    return line.isEmpty() ? text("Nothing yet") : nameWithin(text("Types: ^1"), line);
}

QString MacrosModel::explanationOf(int row) const {
    const QString line = typedLineOf(row);
    const QString pattern = text("Types: ^1");
    return line.isEmpty() ? text("It types nothing yet.")
                          : withoutMarkup(filledText(pattern, {nameWithin(pattern, line)}));
}

QVariant MacrosModel::ownData(int /*columnIdentifier*/, int row, int role) const {
    if (row >= numberOfRows())
        return {};
    if (role == TwoLineCells::secondLineRole)
        return secondLine(row);
    return role == Qt::ToolTipRole ? QVariant(explanationOf(row)) : QVariant();
}

void MacrosModel::showTyped(int row) {
    if (row >= 0 && row < rowCount())
        emit dataChanged(index(row, 0), index(row, 0), {TwoLineCells::secondLineRole, Qt::ToolTipRole});
}

void MacrosModel::showTypedAgain() {
    m_typed.clear();
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

CellKind MacrosModel::cellKind(int /*columnIdentifier*/, int /*row*/) const {
    return CellKind::name;
}

} // namespace quorvi
