// The controller's selectors, each forwarded to its part.

#include <QAbstractButton>
#include <QTabWidget>

#include "editors/device/SupportPages.h"
#include "macros/StepCodes.h"
#include "pane/Editors.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/MenuItems.h"

namespace quorvi {

// The helper

Status KyvarQuorviPane::sendMessageToHelper(FourCharCode message, std::int32_t param) {
    return fHelperLink.sendMessage(message, param);
}

Status KyvarQuorviPane::sendControlToKext(
    const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result) {
    return fHelperLink.sendControl(processName, message, param, result);
}

Status KyvarQuorviPane::findProcessByName(const std::string& processName, ProcessSerialNumber* psn) const {
    return fHelperLink.findProcess(processName, psn);
}

// The settings

plist::Dictionary KyvarQuorviPane::getDefaultSettings() const {
    return fSession.defaults();
}

plist::Dictionary KyvarQuorviPane::loadSettings() {
    return fSession.load();
}

bool KyvarQuorviPane::saveSettings(const plist::Dictionary& tree) {
    return fSession.save(tree);
}

void KyvarQuorviPane::dragDidBegin() {
    fSession.beginDrag();
}

void KyvarQuorviPane::dragDidEnd() {
    fSession.endDrag();
    fHelperLink.bringBackAfterDrag();
    updateDpiOnMouse();
}

// The window

void KyvarQuorviPane::showDocument(Shown shown) {
    fEditors->show(shown);
}

void KyvarQuorviPane::undoHasChanged() {
    fEditors->undo.show();
}

void KyvarQuorviPane::updateUI() {
    fEditors->show(Shown::everything);
}

QString KyvarQuorviPane::locString(const QString& key) const {
    return QString::fromStdU16String(fServices.bundle.localizedString(key.toStdU16String(), "Localizable"));
}

int KyvarQuorviPane::modalDialog(QDialog* panel) {
    return fSheets.run(panel);
}

void KyvarQuorviPane::actionButtonModalOK() {
    fSheets.accept();
}

void KyvarQuorviPane::actionButtonModalCancel() {
    fSheets.cancel();
}

bool KyvarQuorviPane::confirmAction(const QString& messageKey, const std::optional<QString>& item) {
    return fSheets.confirm(Question{messageKey.toUtf8().constData(), item});
}

// Button assignment

void KyvarQuorviPane::updateMenu(PopUpButton* popUp, int assignment) {
    fEditors->assignment.showInput(*popUp, assignment);
}

void KyvarQuorviPane::updateMacrosSubmenu() {
    fEditors->assignment.listMacros();
}

void KyvarQuorviPane::updateProfilesSubmenu() {
    fEditors->assignment.listProfiles();
}

QString KyvarQuorviPane::explanationOfInput(int input) const {
    return fEditors->assignment.explanationOfInput(input);
}

void KyvarQuorviPane::actionMenuButtonAssignment(PopUpButton* popUp) {
    fEditors->assignment.chooseFunction(*popUp);
}

void KyvarQuorviPane::actionSubmenuButtonMacro(QAction* item) {
    fEditors->assignment.chooseMacro(*item);
}

void KyvarQuorviPane::actionSubmenuButtonProfile(QAction* item) {
    fEditors->assignment.chooseProfile(*item);
}

// Sensitivity

void KyvarQuorviPane::actionSliderSensitivityX(KyvarQuorviSlider* slider) {
    fEditors->sensitivity.setX(slider->value());
}

void KyvarQuorviPane::actionSliderSensitivityY(KyvarQuorviSlider* slider) {
    fEditors->sensitivity.setY(slider->value());
}

void KyvarQuorviPane::actionBoxIndependentXY(QAbstractButton* box) {
    fEditors->sensitivity.setIndependentAxes(box->isChecked());
}

void KyvarQuorviPane::actionSliderAcceleration() {
    fEditors->sensitivity.storeAcceleration();
}

void KyvarQuorviPane::actionBoxAcceleration() {
    fEditors->sensitivity.storeAccelerated();
}

void KyvarQuorviPane::actionBoxSensitivityOSD() {
    fEditors->sensitivity.storeDisplay();
}

void KyvarQuorviPane::actionButtonEditStages() {
    editSensitivityStages();
}

void KyvarQuorviPane::updateDpiText() {
    fEditors->sensitivity.showResolution();
}

void KyvarQuorviPane::updateStagesView() {
    fEditors->sensitivity.showStages();
}

void KyvarQuorviPane::updateAccelerationView() {
    fEditors->sensitivity.showAcceleration();
}

// Stages

void KyvarQuorviPane::editSensitivityStages() {
    fEditors->stages.edit();
}

void KyvarQuorviPane::editSensitivityStagesAt(std::int32_t stage) {
    fEditors->stages.editAt(stage);
}

void KyvarQuorviPane::editStageIndex(std::int32_t index) {
    fEditors->stages.select(index);
}

void KyvarQuorviPane::actionButtonStageAdd() {
    fEditors->stages.add();
}

void KyvarQuorviPane::actionButtonStageRemove() {
    fEditors->stages.remove();
}

void KyvarQuorviPane::actionSliderStagesSensitivityX(KyvarQuorviSlider* slider) {
    fEditors->stages.setX(slider->value());
}

void KyvarQuorviPane::actionSliderStagesSensitivityY(KyvarQuorviSlider* slider) {
    fEditors->stages.setY(slider->value());
}

void KyvarQuorviPane::actionBoxStagesIndependentXY(QAbstractButton* box) {
    fEditors->stages.setIndependentAxes(box->isChecked());
}

void KyvarQuorviPane::updateSensitivityStagesUI() {
    fEditors->stages.show();
}

// The device

void KyvarQuorviPane::actionMenuPollingRate() {
    fEditors->device.storePollingRate();
}

void KyvarQuorviPane::actionBoxLightOnWheel() {
    fEditors->device.storeLightOnWheel();
}

void KyvarQuorviPane::actionBoxLightOnBattery() {
    fEditors->device.storeLightOnBattery();
}

void KyvarQuorviPane::actionButtonRestoreDefaults() {
    fEditors->device.restoreDefaults();
}

void KyvarQuorviPane::actionButtonCheckUpdates() {
    openUpdates(*fServices.workspace);
}

void KyvarQuorviPane::actionButtonHelp() {
    openHelp(fServices.bundle, *fServices.workspace, fViews->main.quorviTabsMain->currentIndex());
}

// Keys and recordings

void KyvarQuorviPane::startStopRecording(bool start, bool oneStep) {
    fEditors->recording.startOrStop(start, oneStep);
}

void KyvarQuorviPane::setMacroStep(
    std::uint32_t code, std::uint8_t argument, std::uint16_t /*modifiers*/, std::int32_t index) {
    fEditors->recording.setStep(code, argument, index);
}

void KyvarQuorviPane::appendMacroStep(
    std::uint32_t code, std::uint8_t argument, std::uint16_t /*modifiers*/) {
    fEditors->recording.appendStep(code, argument);
}

std::uint32_t KyvarQuorviPane::matchingCommand(std::uint32_t code, bool* isDown) {
    return quorvi::matchingCommand(code, isDown);
}

bool KyvarQuorviPane::isRecordingMacro() const {
    return fEditors->recording.isRunning();
}

bool KyvarQuorviPane::awaitsOneStep() const {
    return fEditors->recording.awaitsOneKey();
}

bool KyvarQuorviPane::overrideSingleKeys() const {
    return fEditors->capture.isActive();
}

bool KyvarQuorviPane::overrideMouseEvents() const {
    return fEditors->recording.isRunning();
}

bool KyvarQuorviPane::receiveSingleKey(std::uint8_t key, char16_t /*character*/, std::uint16_t modifiers,
    bool goingDown, const KeyEvent& /*event*/) {
    return fEditors->capture.receive({.key = key, .modifiers = modifiers, .goingDown = goingDown});
}

void KyvarQuorviPane::followModifiers(std::uint16_t modifiers) {
    fEditors->singleKey.followModifiers(modifiers);
}

void KyvarQuorviPane::updateKeyboardGrab() {
    fEditors->capture.updateKeyboardGrab();
}

std::uint8_t KyvarQuorviPane::singleKeyCode() const {
    return fEditors->singleKey.keyCode();
}

KeyCapture& KyvarQuorviPane::keyCapture() {
    return fEditors->capture;
}

// Lists with their menus

int KyvarQuorviPane::numberOfRowsInTableView(int tableTag) const {
    const TableList* list = fEditors->listWithTag(tableTag);
    return list ? list->model().numberOfRows() : 0;
}

QVariant KyvarQuorviPane::objectValueForTableColumn(int columnIdentifier, int row) const {
    const TableList* list = fEditors->listWithColumn(columnIdentifier);
    return list ? list->model().cellValue(columnIdentifier, row) : QString();
}

QString KyvarQuorviPane::titleOfDelay(const QVariant& value) const {
    return fEditors->steps.titleOfDelay(value);
}

void KyvarQuorviPane::setObjectValue(const QVariant& value, int columnIdentifier, int row) {
    if (const TableList* list = fEditors->listWithColumn(columnIdentifier))
        list->model().setCellValue(value, columnIdentifier, row);
}

void KyvarQuorviPane::tableViewSelectionDidChange(const KyvarQuorviTableView* table) {
    if (const TableList* list = fEditors->listWithTag(table->tag()))
        list->selectionDidChange();
}

void KyvarQuorviPane::reloadTableViewDataQuietly(const KyvarQuorviTableView* table) {
    if (TableList* list = fEditors->listWithTag(table->tag()))
        list->reloadQuietly();
}

bool KyvarQuorviPane::handleMouseEvent(const QMouseEvent& event, int type, KyvarQuorviTableView* /*table*/) {
    return fEditors->recording.receiveMouseEvent(event, type);
}

void KyvarQuorviPane::handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int /*row*/) {
    if (key == kDeleteKeyCharacter || key == kForwardDeleteKeyCharacter ||
        key == kDeleteCharacterKeyCharacter)
        fEditors->removeSelected(table->tag());
}

void KyvarQuorviPane::actionMenuTableContext(QAction* item) {
    const QPointer<KyvarQuorviPane> guard(this);
    const bool saves = fEditors->commands.perform(tagOfItem(*item).value_or(0));
    if (guard && saves) // the pane may be destroyed during a question
        fDocument.commit({.shown = Shown::nothing});
}

bool KyvarQuorviPane::validateMenuItem(QAction* item) {
    return fEditors->commands.validate(item);
}

void KyvarQuorviPane::createNewProfile(bool duplicate) {
    fEditors->profiles.create(duplicate);
}

void KyvarQuorviPane::actionButtonProfileAdd() {
    fEditors->profiles.create(false);
}

void KyvarQuorviPane::actionButtonProfileRemove() {
    fEditors->profiles.remove();
}

void KyvarQuorviPane::actionButtonProfileApplication() {
    fEditors->profiles.application().showPanel();
}

void KyvarQuorviPane::actionBoxProfileOSD() {
    fEditors->profiles.storeDisplay();
}

void KyvarQuorviPane::assignApplication(const QString& path) {
    fEditors->profiles.application().assign(path);
}

void KyvarQuorviPane::assignApplication(const ApplicationPanel* panel, int returnCode) {
    fEditors->profiles.application().assign(*panel, returnCode);
}

void KyvarQuorviPane::actionButtonMacroAdd() {
    fEditors->macros.create();
}

void KyvarQuorviPane::actionButtonMacroRecord() {
    if (fEditors->macros.add())
        fEditors->recording.start(false);
}

void KyvarQuorviPane::actionButtonMacroRemove() {
    fEditors->macros.remove();
}

void KyvarQuorviPane::actionButtonStepAdd() {
    fEditors->recording.start(false);
}

void KyvarQuorviPane::actionButtonStepRecord() {
    fEditors->recording.startOrStop(!isRecordingMacro(), false);
}

void KyvarQuorviPane::actionButtonMacroPlay() {
    fEditors->trial.startOrStop();
}

void KyvarQuorviPane::stopTrial() {
    fEditors->trial.stop();
}

bool KyvarQuorviPane::isTryingMacro() const {
    return fEditors->trial.isRunning();
}

void KyvarQuorviPane::actionButtonStepRemove() {
    fEditors->steps.remove();
}

void KyvarQuorviPane::setDelayForAllSteps(std::int32_t milliseconds) {
    fEditors->steps.setDelayForAll(milliseconds);
}

// Undo

void KyvarQuorviPane::actionButtonUndo() {
    fEditors->undo.undo();
}

void KyvarQuorviPane::actionButtonRedo() {
    fEditors->undo.redo();
}

// Backups and earlier settings

void KyvarQuorviPane::actionButtonBackUp() {
    fEditors->backups.showBackUpPanel();
}

void KyvarQuorviPane::actionButtonRestoreBackup() {
    fEditors->backups.showRestorePanel();
}

void KyvarQuorviPane::actionButtonEarlierSettings() {
    fEditors->backups.showEarlier();
}

// Files of single profiles and macros

void KyvarQuorviPane::exportProfile(const QFileDialog* panel, int returnCode) {
    fEditors->files.exportChosen(ItemKind::profile, *panel, returnCode);
}

void KyvarQuorviPane::exportMacro(const QFileDialog* panel, int returnCode) {
    fEditors->files.exportChosen(ItemKind::macro, *panel, returnCode);
}

void KyvarQuorviPane::importProfile(const QFileDialog* panel, int returnCode) {
    fEditors->files.importChosen(ItemKind::profile, *panel, returnCode);
}

void KyvarQuorviPane::importMacro(const QFileDialog* panel, int returnCode) {
    fEditors->files.importChosen(ItemKind::macro, *panel, returnCode);
}

void KyvarQuorviPane::importProfileCompletion(const QString& path) {
    fEditors->files.importFile(ItemKind::profile, path);
}

void KyvarQuorviPane::importMacroCompletion(const QString& path) {
    fEditors->files.importFile(ItemKind::macro, path);
}

} // namespace quorvi
