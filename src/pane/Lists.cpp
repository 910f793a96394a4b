// What the window asks of the lists and has them do, handed to the editor of each.

#include "editors/recording/Recording.h"
#include "editors/stages/StagesEditor.h"
#include "live/LiveHelper.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"

namespace quorvi {

void KyvarQuorviPane::makeListEditors() {
    ListEditors::Others others{
        .homeFolder = fServices.homeFolder,
        .defaultSettings = [this] { return getDefaultSettings(); },
        .restoreDefaults = [this] { actionButtonRestoreDefaults(); },
        .running = [this] { return runningRow(); },
        .knowsMice = [this] { return fHelperLink.listHasCome(); },
        .recording = {.isRunning = [this] { return isRecordingMacro(); },
            .startOrStop = [this](bool start, bool oneStep) { startStopRecording(start, oneStep); },
            .title = [this] { return fRecording->commandTitle(); }},
        .profilesHaveChanged = [this] { updateProfilesSubmenu(); },
        .macrosHaveChanged = [this] { updateMacrosSubmenu(); },
    };
    fListEditors = std::make_unique<ListEditors>(editorContext(), *fMainView, *fViews, others);
}

RunningRow KyvarQuorviPane::runningRow() const {
    const LiveHelper& live = fHelperLink.live();
    const QString why = live.runningText();
    return {.row = why.isEmpty() ? -1 : static_cast<int>(live.state().runningProfile) - 1, .why = why};
}

void KyvarQuorviPane::showRunningRow() {
    fListEditors->profiles.showRunningRow();
}

TableList* KyvarQuorviPane::listWithTag(int tag) const {
    switch (tag) {
    case kProfilesTable:
        return &fListEditors->profiles.list();
    case kMacrosTable:
        return &fListEditors->macros.list();
    case kStepsTable:
        return &fListEditors->steps.list();
    case kStagesTable:
        return &fStages->list();
    default:
        return nullptr;
    }
}

// The identifier of a column begins with the tag of its table.
TableList* KyvarQuorviPane::listWithColumn(int columnIdentifier) const {
    return listWithTag(columnIdentifier / 10);
}

int KyvarQuorviPane::numberOfRowsInTableView(int tableTag) const {
    const TableList* list = listWithTag(tableTag);
    return list ? list->model().numberOfRows() : 0;
}

QVariant KyvarQuorviPane::objectValueForTableColumn(int columnIdentifier, int row) const {
    const TableList* list = listWithColumn(columnIdentifier);
    return list ? list->model().cellValue(columnIdentifier, row) : QString();
}

void KyvarQuorviPane::setObjectValue(const QVariant& value, int columnIdentifier, int row) {
    if (const TableList* list = listWithColumn(columnIdentifier))
        list->model().setCellValue(value, columnIdentifier, row);
}

QString KyvarQuorviPane::titleOfDelay(const QVariant& value) const {
    return fListEditors->steps.titleOfDelay(value);
}

void KyvarQuorviPane::tableViewSelectionDidChange(const KyvarQuorviTableView* table) {
    if (const TableList* list = listWithTag(table->tag()))
        list->selectionDidChange();
}

void KyvarQuorviPane::reloadTableViewDataQuietly(const KyvarQuorviTableView* table) {
    if (TableList* list = listWithTag(table->tag()))
        list->reloadQuietly();
}

void KyvarQuorviPane::handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int /*row*/) {
    if (key != kDeleteKeyCharacter && key != kForwardDeleteKeyCharacter &&
        key != kDeleteCharacterKeyCharacter)
        return;
    switch (table->tag()) {
    case kProfilesTable:
        return fListEditors->profiles.remove();
    case kMacrosTable:
        return fListEditors->macros.remove();
    case kStepsTable:
        return fListEditors->steps.remove();
    case kStagesTable:
        return actionButtonStageRemove();
    default:
        return;
    }
}

bool KyvarQuorviPane::validateMenuItem(QAction* item) {
    return fListEditors->commands.validate(item);
}

void KyvarQuorviPane::actionMenuTableContext(QAction* item) {
    const QPointer<KyvarQuorviPane> guard(this);
    const bool saves = fListEditors->commands.perform(tagOfItem(*item).value_or(0));
    if (guard && saves) // a question may outlive the pane
        fDocument.commit({.shown = Shown::nothing});
}

void KyvarQuorviPane::createNewProfile(bool duplicate) {
    fListEditors->profiles.create(duplicate);
}

void KyvarQuorviPane::actionButtonProfileRemove() {
    fListEditors->profiles.remove();
}

void KyvarQuorviPane::actionBoxProfileOSD() {
    fListEditors->profiles.storeDisplay();
}

void KyvarQuorviPane::assignApplication(const QString& path) {
    fListEditors->profiles.application().assign(path);
}

void KyvarQuorviPane::assignApplication(const ApplicationPanel* panel, int returnCode) {
    fListEditors->profiles.application().assign(*panel, returnCode);
}

void KyvarQuorviPane::actionButtonMacroAdd() {
    fListEditors->macros.create();
}

void KyvarQuorviPane::actionButtonMacroRemove() {
    fListEditors->macros.remove();
}

void KyvarQuorviPane::actionButtonStepRemove() {
    fListEditors->steps.remove();
}

void KyvarQuorviPane::setDelayForAllSteps(std::int32_t milliseconds) {
    fListEditors->steps.setDelayForAll(milliseconds);
}

void KyvarQuorviPane::importProfile(const QFileDialog* panel, int returnCode) {
    fListEditors->files.importChosen(ItemKind::profile, *panel, returnCode);
}

void KyvarQuorviPane::importMacro(const QFileDialog* panel, int returnCode) {
    fListEditors->files.importChosen(ItemKind::macro, *panel, returnCode);
}

void KyvarQuorviPane::exportProfile(const QFileDialog* panel, int returnCode) {
    fListEditors->files.exportChosen(ItemKind::profile, *panel, returnCode);
}

void KyvarQuorviPane::exportMacro(const QFileDialog* panel, int returnCode) {
    fListEditors->files.exportChosen(ItemKind::macro, *panel, returnCode);
}

void KyvarQuorviPane::importProfileCompletion(const QString& path) {
    fListEditors->files.importFile(ItemKind::profile, path);
}

void KyvarQuorviPane::importMacroCompletion(const QString& path) {
    fListEditors->files.importFile(ItemKind::macro, path);
}

} // namespace quorvi
