#include "editors/macros/MacrosModel.h"

#include <utility>

#include "model/Keys.h"
#include "model/NamingRule.h"
#include "model/SettingsDocument.h"
#include "resources/TableTags.h"
#include "window/ActionNames.h"

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

CellKind MacrosModel::cellKind(int /*columnIdentifier*/, int /*row*/) const {
    return CellKind::name;
}

} // namespace quorvi
