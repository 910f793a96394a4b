// Every outlet of the panel that is a widget: its name, its class, the action that it sends and its tag.
#pragma once

namespace quorvi::test {

struct Outlet {
    const char* name;
    const char* className;
    const char* action = nullptr;
    int tag = 0;
};

inline constexpr const char* popUp = "quorvi::PopUpButton";
inline constexpr const char* slider = "quorvi::KyvarQuorviSlider";
inline constexpr const char* number = "quorvi::NumberField";
inline constexpr const char* table = "quorvi::KyvarQuorviTableView";
inline constexpr const char* assignment = "actionMenuButtonAssignment:";
inline constexpr const char* ok = "actionButtonModalOK:";
inline constexpr const char* cancel = "actionButtonModalCancel:";

inline constexpr Outlet outlets[] = {
    {"quorviTabsMain", "quorvi::TabView"},
    {"quorviMenuProfile", "quorvi::ProfileButton"},
    {"quorviTextProfile", "quorvi::LineLabel"},
    {"quorviTextConnection", "quorvi::WrappedLabel"},
    {"quorviButtonUndo", "quorvi::FlatButton", "actionButtonUndo:"},
    {"quorviButtonRedo", "quorvi::FlatButton", "actionButtonRedo:"},
    {"quorviButtonHelp", "quorvi::FlatButton", "actionButtonHelp:"},
    {"quorviButtonCheckForUpdates", "QPushButton", "actionButtonCheckUpdates:"},

    {"quorviMenuTop1", popUp, assignment},
    {"quorviMenuTop2", popUp, assignment},
    {"quorviMenuTop3", popUp, assignment},
    {"quorviMenuTop4", popUp, assignment},
    {"quorviMenuTop5", popUp, assignment},
    {"quorviMenuTop6", popUp, assignment},
    {"quorviMenuTop7", popUp, assignment},
    {"quorviMenuTop8", popUp, assignment},
    {"quorviMenuTop9", popUp, assignment},

    {"quorviTextDPI", "quorvi::LineLabel"},
    {"quorviTextXLabel", "quorvi::LineLabel"},
    {"quorviTextYLabel", "quorvi::LineLabel"},
    {"quorviSliderSensitivityX", slider, "actionSliderSensitivityX:"},
    {"quorviSliderSensitivityY", slider, "actionSliderSensitivityY:"},
    {"quorviFieldSensitivityX", number},
    {"quorviFieldSensitivityY", number},
    {"quorviBoxIndependentXY", "quorvi::CheckBox", "actionBoxIndependentXY:"},
    {"quorviViewStages", "quorvi::StageBar"},
    {"quorviButtonEditStages", "QPushButton", "actionButtonEditStages:"},
    {"quorviViewAcceleration", "quorvi::AccelerationCurve"},
    {"quorviBoxAcceleration", "quorvi::CheckBox", "actionBoxAcceleration:"},
    {"quorviSliderAcceleration", slider, "actionSliderAcceleration:"},
    {"quorviFieldAcceleration", number},
    {"quorviBoxSensitivityOSD", "quorvi::CheckBox", "actionBoxSensitivityOSD:"},

    {"quorviButtonGnomeExtension", "QPushButton"},
    {"quorviTableProfiles", table, nullptr, 1},
    {"quorviButtonProfileAdd", "quorvi::FlatButton", "actionButtonProfileAdd:"},
    {"quorviButtonProfileRemove", "quorvi::FlatButton", "actionButtonProfileRemove:"},
    {"quorviButtonProfileApplication", "quorvi::FlatButton", "actionButtonProfileApplication:"},
    {"quorviButtonProfileGear", "quorvi::MenuButton", "actionButtonProfileGear:"},
    {"quorviBoxProfileOSD", "quorvi::CheckBox", "actionBoxProfileOSD:"},

    {"quorviTableMacros", table, nullptr, 2},
    {"quorviButtonMacroAdd", "quorvi::FlatButton", "actionButtonMacroAdd:"},
    {"quorviButtonMacroRemove", "quorvi::FlatButton", "actionButtonMacroRemove:"},
    {"quorviButtonMacroRecord", "QPushButton", "actionButtonMacroRecord:"},
    {"quorviButtonMacroGear", "quorvi::MenuButton", "actionButtonMacroGear:"},
    {"quorviTabsShowHideSteps", "QStackedWidget"},
    {"quorviTimelineSteps", "quorvi::StepsTimeline"},
    {"quorviTableSteps", table, nullptr, 3},
    {"quorviButtonMend", "QPushButton"},
    {"quorviButtonStepAdd", "quorvi::FlatButton", "actionButtonStepAdd:"},
    {"quorviButtonStepRemove", "quorvi::FlatButton", "actionButtonStepRemove:"},
    {"quorviButtonStepGear", "quorvi::MenuButton", "actionButtonStepGear:"},
    {"quorviButtonStepRecord", "quorvi::ToggleButton", "actionButtonStepRecord:"},
    {"quorviButtonMacroPlay", "quorvi::ToggleButton", "actionButtonMacroPlay:"},
    {"quorviFieldTrial", "quorvi::TrialField"},

    {"quorviMenuPollingRate", popUp, "actionMenuPollingRate:"},
    {"quorviBoxLightOnWheel", "quorvi::CheckBox", "actionBoxLightOnWheel:"},
    {"quorviBoxLightOnBattery", "quorvi::CheckBox", "actionBoxLightOnBattery:"},
    {"quorviTextFirmwareVersion", "QLabel"},
    {"quorviTextDriverVersion", "QLabel"},
    {"quorviButtonBackUp", "QPushButton", "actionButtonBackUp:"},
    {"quorviButtonRestoreBackup", "QPushButton", "actionButtonRestoreBackup:"},
    {"quorviButtonEarlierSettings", "QPushButton", "actionButtonEarlierSettings:"},
    {"quorviButtonRestoreDefaults", "QPushButton", "actionButtonRestoreDefaults:"},

    {"quorviPanelConfirm", "QDialog"},
    {"quorviTextConfirm", "quorvi::QuestionText"},
    {"quorviConfirmButtonOK", "QPushButton", ok},
    {"quorviConfirmButtonCancel", "QPushButton", cancel},
    {"quorviPanelNoDevice", "QDialog"},
    {"quorviTextNoDevice", "QLabel"},
    {"quorviNoDeviceButtonOK", "QPushButton", ok},
    {"quorviPanelRestore", "QDialog"},
    {"quorviProgressMain", "QProgressBar"},
    {"quorviRestoreButtonCancel", "QPushButton", cancel},
    {"quorviPanelSetUp", "QDialog"},
    {"quorviFieldSetUpDpi", "QLineEdit"},
    {"quorviSetUpButtonBack", "QPushButton"},
    {"quorviSetUpButtonSkip", "QPushButton"},
    {"quorviSetUpButtonDone", "QPushButton"},
    {"quorviSetUpButtonCancel", "QPushButton", cancel},
    {"quorviPanelSingleKey", "QDialog"},
    {"quorviFieldSingleKey", "QLineEdit"},
    {"quorviSingleKeyButtonOK", "QPushButton", ok},
    {"quorviSingleKeyButtonCancel", "QPushButton", cancel},
    {"quorviPanelStages", "QDialog"},
    {"quorviStageTableStages", table, nullptr, 4},
    {"quorviStageButtonAdd", "quorvi::FlatButton", "actionButtonStageAdd:"},
    {"quorviStageButtonRemove", "quorvi::FlatButton", "actionButtonStageRemove:"},
    {"quorviStageGroupSettings", "quorvi::Section"},
    {"quorviStageSliderX", slider, "actionSliderStagesSensitivityX:"},
    {"quorviStageSliderY", slider, "actionSliderStagesSensitivityY:"},
    {"quorviStageFieldX", number},
    {"quorviStageFieldY", number},
    {"quorviStageBoxIndepXY", "quorvi::CheckBox", "actionBoxStagesIndependentXY:"},
    {"quorviStagesButtonOK", "QPushButton", ok},
    {"quorviStagesButtonCancel", "QPushButton", cancel},
};

} // namespace quorvi::test
