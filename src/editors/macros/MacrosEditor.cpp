#include "editors/macros/MacrosEditor.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

#include <algorithm>
#include <memory>
#include <utility>

#include "document/Document.h"
#include "editors/macros/MacrosModel.h"
#include "editors/macros/StepsEditor.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "model/SettingsDocument.h"
#include "resources/MenuTags.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/Metrics.h"
#include "widgets/ViewActivation.h"
#include "window/ActionNames.h"
#include "window/ListButtons.h"
#include "window/Notices.h"
#include "window/RemovalTexts.h"
#include "window/Sheets.h"

namespace quorvi {

namespace {

plist::Dictionary newMacro(std::int32_t macroId, std::u16string name) {
    constexpr std::size_t usualSteps = 8; // four keys, down and up
    auto steps = plist::Array::create();
    steps.reserve(usualSteps);
    auto macro = plist::Dictionary::create();
    macro.set(keys::macroId, macroId);
    macro.set(keys::name, std::move(name));
    macro.set(keys::delay, 0);
    macro.set(keys::steps, steps);
    return macro;
}

} // namespace

MacrosEditor::MacrosEditor(
    const EditorContext& context, const Views& views, Others others, StepsEditor& steps)
    : m_context(context), m_views(views), m_others(std::move(others)), m_steps(steps),
      m_usualHint(views.table.emptyText()), m_usualTitle(views.noMacroTitle.text()),
      m_list(views.table,
          std::make_unique<MacrosModel>(context.document, context.text, m_others.listHasChanged)) {
    m_list.onSelectionChange([this] { switchToSelected(); });
    m_views.table.setTwoLines();
    m_views.table.setRowsNumbered();
    m_views.table.horizontalHeader()->hide();
    m_views.table.setMinimumWidth(metrics::leastListWidth);
}

MacrosModel& MacrosEditor::model() const {
    return static_cast<MacrosModel&>(m_list.model());
}

void MacrosEditor::showTyped() {
    model().showTyped(m_context.document.macroIndex());
}

void MacrosEditor::showKeyNames() {
    model().showTypedAgain();
}

void MacrosEditor::show() {
    const bool hasDevice = m_context.document.hasDevice();
    const bool editable = hasDevice && !m_others.isRecording();
    makeViewActive(&m_views.table, editable);
    enableButtonOf(m_views.table, m_views.addButton, editable && hasRoom());
    enableButtonOf(m_views.table, m_views.removeButton, editable && isSelected());
    m_views.gearButton.setEnabled(editable);
    m_views.steps.setCurrentIndex(hasDevice && isSelected() ? 0 : 1);
    m_views.count.setText(hasDevice ? filledText(m_context.text("^1 of ^2"),
                                          {QString::number(m_context.document.macros().size()),
                                              QString::number(limits::macros)})
                                    : QString());
    showEmpty(hasDevice && m_context.document.macros().size() == 0);
    showHints();
}

void MacrosEditor::showHints() {
    const bool hasDevice = m_context.document.hasDevice();
    // Before it is known which mice there are, what stands below says why there are no macros.
    const QString noMouse = m_others.knowsMice() ? m_context.text("No mouse is connected") : QString();
    m_views.table.setEmptyText(hasDevice ? m_usualHint : noMouse);
    const QString title = m_showsEmpty ? m_usualHint : m_usualTitle;
    m_views.noMacroTitle.setText(hasDevice ? title : noMouse);
    makeViewActive(&m_views.pageNoMacro, true);
}

void MacrosEditor::showEmpty(bool empty) {
    if (std::exchange(m_showsEmpty, empty) == empty)
        return;
    const bool hadFocus = m_views.table.window()->focusWidget() == &m_views.table;
    for (QWidget* shown : {static_cast<QWidget*>(&m_views.heading), static_cast<QWidget*>(&m_views.count),
             static_cast<QWidget*>(&m_views.table), static_cast<QWidget*>(&m_views.noMacro)})
        shown->setVisible(!empty);
    for (QWidget* shown : {&m_views.drawing, static_cast<QWidget*>(&m_views.recordText),
             static_cast<QWidget*>(&m_views.recordButton)})
        shown->setVisible(empty);
    // Above the buttons of the list, which has commands without a macro too.
    m_views.columns.removeWidget(&m_views.steps);
    if (empty)
        m_views.columns.addWidget(&m_views.steps, 0, 0, 2, 2);
    else
        m_views.columns.addWidget(&m_views.steps, 0, 1, 3, 1);
    if (empty && hadFocus)
        m_views.recordButton.setFocus();
}

void MacrosEditor::selectCurrent() {
    m_list.reloadQuietly();
    if (m_context.document.macroIndex() < 0)
        m_views.table.deselectAll();
    else
        m_list.selectQuietly(m_context.document.macroIndex());
}

void MacrosEditor::switchToSelected() {
    if (!m_context.document.hasDevice())
        return;
    m_context.document.editMacroIndex(m_views.table.selectedRow());
    m_steps.showOtherMacro();
    m_context.document.commit({.saving = Saving::never});
}

void MacrosEditor::append(const plist::Dictionary& macro, const std::u16string& action) {
    Document& document = m_context.document;
    appendItem(document.macros(), macro, m_context.text("Untitled Macro").toStdU16String());
    document.editMacroIndex(static_cast<std::int32_t>(document.macros().size()) - 1);
    m_list.reloadQuietly();
    m_views.table.selectRowAlone(document.macroIndex());
    m_others.listHasChanged();
    document.commit({.action = action});
}

bool MacrosEditor::add() {
    const int macroId = KyvarFindUnusedMacroID(m_context.document.macros());
    if (!m_context.document.macros() || macroId < 0)
        return false;
    append(newMacro(macroId, m_context.text("Untitled Macro").toStdU16String()),
        actionName(m_context.text("New Macro")));
    return true;
}

void MacrosEditor::create() {
    if (add())
        m_views.table.editCell(m_list.model().columnOf(kMacroNameColumn), m_context.document.macroIndex());
}

void MacrosEditor::remove() {
    Document& document = m_context.document;
    if (document.macroIndex() < 0)
        return;
    const std::u16string name = document.macro().string(keys::name);
    const bool confirmed = m_context.sheets.confirm(Question{
        "Delete macro: ^1\r\rAre you sure you want to delete this macro?", QString::fromStdU16String(name),
        effectOfRemovingMacro(
            document.tree(), static_cast<std::size_t>(document.macroIndex()), m_context.text),
        "Delete"});
    // The mouse may have been plugged in while the question stood, and the settings read afresh.
    if (!confirmed || document.macroIndex() < 0 || document.macro().string(keys::name) != name)
        return;
    document.macros().remove(static_cast<std::size_t>(document.macroIndex()));
    const auto last = static_cast<std::int32_t>(document.macros().size()) - 1;
    document.editMacroIndex(std::min(document.macroIndex(), last));
    m_list.reloadQuietly();
    if (document.macroIndex() >= 0)
        m_views.table.selectRowAlone(document.macroIndex());
    m_steps.showOtherMacro();
    cleanUpSettings(document.tree());
    m_others.listHasChanged();
    document.commit({.action = actionName(m_context.text("Delete Macro “^1”"), name)});
    m_context.notices.tellUndoable(textWithName(m_context.text("The macro “^1” was deleted."), name));
}

bool MacrosEditor::hasRoom() const {
    return int(m_context.document.macros().size()) < limits::macros;
}

bool MacrosEditor::isSelected() const {
    return m_views.table.selectedRow() >= 0;
}

std::vector<MenuCommand> MacrosEditor::commands() {
    const auto hasPlace = [this] { return hasRoom(); };
    const auto selected = [this] { return isSelected(); };
    return {
        {kNewMacroItem, [this] { create(); }, hasPlace},
        {kImportMacroItem, m_others.importMacro, hasPlace},
        {kExportMacroItem, m_others.exportMacro, selected},
        {kRemoveMacroItem, [this] { remove(); }, selected},
    };
}

} // namespace quorvi
