#include "pane/EditorViews.h"

#include "resources/Interface.h"

namespace quorvi {

std::array<KyvarQuorviTableView*, 4> tablesOf(const Interface& views) {
    return {views.main.quorviTableProfiles, views.main.quorviTableMacros, views.main.quorviTableSteps,
        views.stages.quorviStageTableStages};
}

std::vector<QWidget*> tablesThatTakeFocus(const Interface& views) {
    const auto tables = tablesOf(views);
    return {tables.begin(), tables.end()};
}

WindowHead::Views headViews(const Interface& views) {
    const Ui::KyvarQuorviPane& main = views.main;
    return {.button = *main.quorviMenuProfile,
        .menu = *views.menus.quorviMenuProfiles,
        .profile = *main.quorviTextProfile,
        .sign = *main.viewConnection,
        .connection = *main.quorviTextConnection,
        .noMacro = *main.textNoMacro,
        .tabs = *main.quorviTabsMain,
        .profiles = *main.quorviTableProfiles,
        .checkForUpdates = *main.quorviButtonCheckForUpdates};
}

UndoControls::Views undoViews(const Interface& views) {
    return {.undo = views.main.quorviButtonUndo,
        .redo = views.main.quorviButtonRedo,
        .tabs = *views.main.quorviTabsMain,
        .steps = *views.main.quorviTableSteps};
}

RecordingView::Views recordingViews(const Interface& views) {
    return {.steps = views.main.quorviTableSteps,
        .button = views.main.quorviButtonStepRecord,
        .text = views.main.textRecording};
}

TrialView::Views trialViews(const Interface& views) {
    return {.button = views.main.quorviButtonMacroPlay,
        .field = views.main.quorviFieldTrial,
        .keys = views.main.textTrialKeys};
}

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

SensitivityEditor::Views sensitivityViews(const Interface& views) {
    const Ui::KyvarQuorviPane& main = views.main;
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
        .accelerationField = *main.quorviFieldAcceleration,
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

DeviceEditor::Views deviceViews(const Interface& views) {
    const Ui::KyvarQuorviPane& main = views.main;
    return {.pollingRate = *main.quorviMenuPollingRate,
        .lightOnWheel = *main.quorviBoxLightOnWheel,
        .lightOnBattery = *main.quorviBoxLightOnBattery,
        .mouse = *main.viewMouse,
        .lights = *main.viewLights,
        .firmware = *main.quorviTextFirmwareVersion};
}

ProfilesEditor::Views profilesViews(QWidget& mainView, const Interface& views) {
    const Ui::KyvarQuorviPane& main = views.main;
    return {.mainView = mainView,
        .table = *main.quorviTableProfiles,
        .addButton = *main.quorviButtonProfileAdd,
        .removeButton = *main.quorviButtonProfileRemove,
        .applicationButton = *main.quorviButtonProfileApplication,
        .displayBox = *main.quorviBoxProfileOSD,
        .count = *main.textProfileCount,
        .hint = *main.textProfilesHint};
}

MacrosEditor::Views macrosViews(const Interface& views) {
    const Ui::KyvarQuorviPane& main = views.main;
    return {.table = *main.quorviTableMacros,
        .addButton = *main.quorviButtonMacroAdd,
        .removeButton = *main.quorviButtonMacroRemove,
        .gearButton = *main.quorviButtonMacroGear,
        .steps = *main.quorviTabsShowHideSteps,
        .pageNoMacro = *main.pageNoMacro,
        .noMacroTitle = *main.textNoMacroTitle,
        .noMacro = *main.textNoMacro,
        .drawing = *main.viewNoMacro,
        .recordText = *main.textRecordMacro,
        .recordButton = *main.quorviButtonMacroRecord,
        .columns = *main.layoutMacros,
        .heading = *main.labelMacros,
        .count = *main.textMacroCount};
}

StepsEditor::Views stepsViews(const Interface& views) {
    const Ui::KyvarQuorviPane& main = views.main;
    return {.table = *main.quorviTableSteps,
        .macros = *main.quorviTableMacros,
        .addButton = *main.quorviButtonStepAdd,
        .removeButton = *main.quorviButtonStepRemove,
        .gearButton = *main.quorviButtonStepGear,
        .delays = *views.menus.quorviMenuStepDelay,
        .faults = *main.viewStepFault,
        .heading = *main.labelSteps,
        .count = *main.textStepCount};
}

TimelineEditor::Views timelineViews(const Interface& views) {
    return {.timeline = *views.main.quorviTimelineSteps,
        .commands = *views.menus.quorviMenuStepGear,
        .delays = *views.menus.quorviMenuStepDelay};
}

} // namespace quorvi
