#include "editors/macros/StepsEditor.h"

#include <QPushButton>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "macros/MacroRecorder.h"
#include "model/Keys.h"
#include "resources/MenuTags.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/ActionNames.h"
#include "window/ListButtons.h"
#include "window/Notices.h"

namespace quorvi {

StepsEditor::StepsEditor(const EditorContext& context, const Views& views, RecordingCommands recording)
    : m_context(context), m_views(views), m_recording(std::move(recording)),
      m_list(views.table, std::make_unique<StepsModel>(context, views.delays)),
      m_edits(context, m_list, [this] { return m_recording.isRunning(); }) {
    m_list.onSelectionChange([this] { m_context.document.commit({.saving = Saving::never}); });
    m_views.table.setPopUpColumn(m_list.model().columnOf(kStepDelayColumn), &m_views.delays);
}

void StepsEditor::show() {
    const bool editable = m_context.document.hasDevice() && !m_recording.isRunning();
    m_list.model().setColumnEnabled(kStepDelayColumn, editable);
    m_views.addButton.setEnabled(editable);
    enableButtonOf(
        m_views.table, m_views.removeButton, editable && m_views.macros.selectedRow() >= 0 && isSelected());
    m_views.gearButton.setEnabled(editable);
}

void StepsEditor::showOtherMacro() {
    m_list.reload();
    m_views.table.deselectAll();
}

void StepsEditor::showKeyNames() {
    model().showActions();
}

void StepsEditor::remove() {
    const plist::Array& steps = m_context.document.macroSteps();
    const int row = m_views.table.selectedRow();
    if (row < 0 || row >= static_cast<int>(steps.size()))
        return;
    steps.remove(static_cast<std::size_t>(row));
    m_list.reload();
    const int last = static_cast<int>(steps.size()) - 1;
    if (last >= 0)
        m_views.table.selectRowAlone(row < last ? row : last);
    m_context.document.commit(
        {.saving = Saving::withNextAction, .action = actionName(m_context.text("Remove Step"))});
}

// The list shows it already, and the command that asked for it saves.
void StepsEditor::commit(const QString& action) {
    m_context.document.commit(
        {.shown = Shown::nothing, .saving = Saving::never, .action = actionName(action)});
}

void StepsEditor::removeAll() {
    m_context.document.macroSteps().removeAll();
    m_list.reload();
    commit(m_context.text("Remove All Steps"));
    m_context.notices.tellUndoable(textWithName(m_context.text("All steps of the macro “^1” were removed."),
        m_context.document.macro().string(keys::name)));
}

void StepsEditor::useDelayOfSelectedForAll() {
    const plist::Array& steps = m_context.document.macroSteps();
    const int row = m_views.table.selectedRow();
    if (row >= 0 && row < static_cast<int>(steps.size()))
        setDelayForAll(steps.dictionary(static_cast<std::size_t>(row)).integer(keys::delay));
}

void StepsEditor::setDelayForAll(std::int32_t milliseconds) {
    setDelayForAllSteps(m_context.document.macroSteps(), milliseconds);
    m_list.reload();
    commit(m_context.text(milliseconds == 0 ? "Remove All Delays" : "Use Delay of Step for All"));
}

bool StepsEditor::isSelected() const {
    return m_views.table.selectedRow() >= 0;
}

bool StepsEditor::hasSteps() const {
    return m_context.document.macroSteps().size() > 0;
}

QString StepsEditor::titleOfDelay(const QVariant& value) const {
    return model().titleOfDelay(value);
}

StepsModel& StepsEditor::model() const {
    return static_cast<StepsModel&>(m_list.model());
}

std::vector<MenuCommand> StepsEditor::commands() {
    const auto selected = [this] { return isSelected(); };
    const auto any = [this] { return hasSteps(); };
    std::vector<MenuCommand> commands{
        {kRecordItem, [this] { m_recording.startOrStop(!m_recording.isRunning(), false); },
            [] { return true; }, m_recording.title, true},
        {kRecordStepItem, [this] { m_recording.startOrStop(true, true); },
            [this] { return isSelected() && !m_recording.isRunning(); }, {}, true},
        {kRemoveStepItem, [this] { remove(); }, selected},
        {kRemoveAllStepsItem, [this] { removeAll(); }, any},
        {kUseDelayForAllItem, [this] { useDelayOfSelectedForAll(); }, selected},
        {kRemoveAllDelaysItem, [this] { setDelayForAll(0); }, any},
    };
    std::ranges::move(m_edits.commands(), std::back_inserter(commands));
    return commands;
}

} // namespace quorvi
