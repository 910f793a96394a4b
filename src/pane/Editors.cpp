// The editors of the buttons, of the sensitivity with its stages and of the device: what each is given of the
// window and of the others. The controller's selectors for them are forwards.

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QTabWidget>

#include "editors/assignment/AssignmentEditor.h"
#include "editors/device/DeviceEditor.h"
#include "editors/device/SupportPages.h"
#include "editors/keys/SingleKeyPanel.h"
#include "editors/sensitivity/SensitivityEditor.h"
#include "editors/stages/StagesEditor.h"
#include "live/LiveHelper.h"
#include "pane/EventPatch.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/ShownText.h"
#include "window/EditorContext.h"

namespace quorvi {

namespace {

constexpr int kProfilesTab = 2;
constexpr int kMacrosTab = 3;

AssignmentEditor::Views assignmentViews(const Interface& views) {
    const Ui::KyvarQuorviPane& main = views.main;
    return {.popUps = {main.quorviMenuTop1, main.quorviMenuTop2, main.quorviMenuTop3, main.quorviMenuTop4,
                main.quorviMenuTop5, main.quorviMenuTop6, main.quorviMenuTop7, main.quorviMenuTop8,
                main.quorviMenuTop9},
        .labels = {main.labelInput1, main.labelInput2, main.labelInput3, main.labelInput4, main.labelInput5,
            main.labelInput6, main.labelInput7, main.labelInput8, main.labelInput9},
        .mouse = *main.viewMouse,
        .commands = *views.menus.quorviMenuCommands,
        .wheelCommands = *views.menus.quorviMenuWheelCommands};
}

SensitivityEditor::Views sensitivityViews(const Ui::KyvarQuorviPane& main) {
    return {.sliderX = *main.quorviSliderSensitivityX,
        .sliderY = *main.quorviSliderSensitivityY,
        .labelX = *main.quorviTextXLabel,
        .labelY = *main.quorviTextYLabel,
        .independentAxes = *main.quorviBoxIndependentXY,
        .resolution = *main.quorviTextDPI,
        .stages = *main.quorviViewStages,
        .display = *main.quorviBoxSensitivityOSD,
        .acceleration = *main.quorviBoxAcceleration,
        .accelerationSlider = *main.quorviSliderAcceleration,
        .accelerationCurve = *main.quorviViewAcceleration};
}

StagesEditor::Views stagesViews(const Interface& views) {
    const Ui::StagesPanel& panel = views.stages;
    return {.sheet = *views.quorviPanelStages,
        .table = *panel.quorviStageTableStages,
        .add = *panel.quorviStageButtonAdd,
        .remove = *panel.quorviStageButtonRemove,
        .settings = *panel.quorviStageGroupSettings,
        .sliderX = *panel.quorviStageSliderX,
        .sliderY = *panel.quorviStageSliderY,
        .independentAxes = *panel.quorviStageBoxIndepXY};
}

DeviceEditor::Views deviceViews(const Ui::KyvarQuorviPane& main) {
    return {.pollingRate = *main.quorviMenuPollingRate,
        .lightOnWheel = *main.quorviBoxLightOnWheel,
        .lightOnBattery = *main.quorviBoxLightOnBattery,
        .mouse = *main.viewMouse,
        .lights = *main.viewLights,
        .firmware = *main.quorviTextFirmwareVersion};
}

} // namespace

void KyvarQuorviPane::makeEditors() {
    const EditorContext context = editorContext();
    QTabWidget* tabs = fViews->main.quorviTabsMain;
    fAssignment = std::make_unique<AssignmentEditor>(context, assignmentViews(*fViews),
        AssignmentEditor::Others{.isPanelShown = [this] { return gPatchedPane == this; },
            .askForKey = [this](const KeyChoice& shown) { return fSingleKeyPanel->ask(shown); },
            .showProfilesTab = [tabs] { tabs->setCurrentIndex(kProfilesTab); },
            .showMacrosTab = [tabs] { tabs->setCurrentIndex(kMacrosTab); },
            .profileInUse = [this] { return profileInUse(); }});
    fSensitivity = std::make_unique<SensitivityEditor>(context, sensitivityViews(fViews->main));
    fStages = std::make_unique<StagesEditor>(context, stagesViews(*fViews));
    fDevice = std::make_unique<DeviceEditor>(
        context, deviceViews(fViews->main), [this] { return getDefaultSettings(); });
}

// The buttons

QString KyvarQuorviPane::profileInUse() const {
    const LiveHelper& live = fHelperLink.live();
    if (live.state().runningProfile == static_cast<std::uint32_t>(fDocument.profileIndex() + 1))
        return live.runningText();
    const QString title = locString(QStringLiteral("Profile:"));
    return title + QLatin1Char(' ') + nameWithin(title, fViews->main.quorviTextProfile->text());
}

void KyvarQuorviPane::updateMenu(PopUpButton* popUp, int assignment) {
    fAssignment->showInput(*popUp, assignment);
}

void KyvarQuorviPane::updateMacrosSubmenu() {
    fAssignment->listMacros();
}

void KyvarQuorviPane::updateProfilesSubmenu() {
    fAssignment->listProfiles();
}

QString KyvarQuorviPane::explanationOfInput(int input) const {
    return fAssignment->explanationOfInput(input);
}

void KyvarQuorviPane::actionMenuButtonAssignment(PopUpButton* popUp) {
    fAssignment->chooseFunction(*popUp);
}

void KyvarQuorviPane::actionSubmenuButtonMacro(QAction* item) {
    fAssignment->chooseMacro(*item);
}

void KyvarQuorviPane::actionSubmenuButtonProfile(QAction* item) {
    fAssignment->chooseProfile(*item);
}

// The sensitivity

void KyvarQuorviPane::actionSliderSensitivityX(KyvarQuorviSlider* slider) {
    fSensitivity->setX(slider->value());
}

void KyvarQuorviPane::actionSliderSensitivityY(KyvarQuorviSlider* slider) {
    fSensitivity->setY(slider->value());
}

void KyvarQuorviPane::actionBoxIndependentXY(QAbstractButton* box) {
    fSensitivity->setIndependentAxes(box->isChecked());
}

void KyvarQuorviPane::actionSliderAcceleration() {
    fSensitivity->storeAcceleration();
}

void KyvarQuorviPane::actionBoxAcceleration() {
    fSensitivity->storeAccelerated();
}

void KyvarQuorviPane::actionBoxSensitivityOSD() {
    fSensitivity->storeDisplay();
}

void KyvarQuorviPane::actionButtonEditStages() {
    editSensitivityStages();
}

void KyvarQuorviPane::updateDpiText() {
    fSensitivity->showResolution();
}

void KyvarQuorviPane::updateStagesView() {
    fSensitivity->showStages();
}

void KyvarQuorviPane::updateAccelerationView() {
    fSensitivity->showAcceleration();
}

void KyvarQuorviPane::followRunningStage() {
    const HelperNews& helper = fHelperLink.live().state();
    if (!fSession.isDragging())
        fSensitivity->followRunningStage(helper.runningProfile, helper.runningStage);
}

// The stages

void KyvarQuorviPane::editSensitivityStages() {
    fStages->edit();
}

void KyvarQuorviPane::editStageIndex(std::int32_t index) {
    fStages->select(index);
}

void KyvarQuorviPane::actionButtonStageAdd() {
    fStages->add();
}

void KyvarQuorviPane::actionButtonStageRemove() {
    fStages->remove();
}

void KyvarQuorviPane::actionSliderStagesSensitivityX(KyvarQuorviSlider* slider) {
    fStages->setX(slider->value());
}

void KyvarQuorviPane::actionSliderStagesSensitivityY(KyvarQuorviSlider* slider) {
    fStages->setY(slider->value());
}

void KyvarQuorviPane::actionBoxStagesIndependentXY(QAbstractButton* box) {
    fStages->setIndependentAxes(box->isChecked());
}

void KyvarQuorviPane::updateSensitivityStagesUI() {
    fStages->show();
}

// The device

void KyvarQuorviPane::actionMenuPollingRate() {
    fDevice->storePollingRate();
}

void KyvarQuorviPane::actionBoxLightOnWheel() {
    fDevice->storeLightOnWheel();
}

void KyvarQuorviPane::actionBoxLightOnBattery() {
    fDevice->storeLightOnBattery();
}

void KyvarQuorviPane::actionButtonRestoreDefaults() {
    fDevice->restoreDefaults();
}

void KyvarQuorviPane::actionButtonCheckUpdates() {
    openUpdates(*fServices.workspace);
}

void KyvarQuorviPane::actionButtonHelp() {
    openHelp(fServices.bundle, *fServices.workspace, fViews->main.quorviTabsMain->currentIndex());
}

} // namespace quorvi
