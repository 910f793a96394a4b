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
inline constexpr const char* table = "quorvi::KyvarQuorviTableView";
inline constexpr const char* assignment = "actionMenuButtonAssignment:";
inline constexpr const char* ok = "actionButtonModalOK:";
inline constexpr const char* cancel = "actionButtonModalCancel:";

inline constexpr Outlet outlets[] = {
    {"quorviTabsMain", "quorvi::TabView"},
    {"quorviTextProfile", "quorvi::LineLabel"},
    {"quorviTextConnection", "quorvi::WrappedLabel"},
    {"quorviButtonUndo", "QPushButton", "actionButtonUndo:"},
    {"quorviButtonRedo", "QPushButton", "actionButtonRedo:"},
    {"quorviButtonHelp", "QPushButton", "actionButtonHelp:"},
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
    {"quorviBoxIndependentXY", "quorvi::CheckBox", "actionBoxIndependentXY:"},
    {"quorviViewStages", "quorvi::StageBar"},
    {"quorviButtonEditStages", "QPushButton", "actionButtonEditStages:"},
    {"quorviViewAcceleration", "quorvi::AccelerationCurve"},
    {"quorviBoxAcceleration", "quorvi::CheckBox", "actionBoxAcceleration:"},
    {"quorviSliderAcceleration", slider, "actionSliderAcceleration:"},
    {"quorviBoxSensitivityOSD", "quorvi::CheckBox", "actionBoxSensitivityOSD:"},

    {"quorviButtonGnomeExtension", "QPushButton"},
    {"quorviTableProfiles", table, nullptr, 1},
    {"quorviButtonProfileAdd", "QPushButton", "actionButtonProfileAdd:"},
    {"quorviButtonProfileRemove", "QPushButton", "actionButtonProfileRemove:"},
    {"quorviButtonProfileGear", "quorvi::MenuButton", "actionButtonProfileGear:"},
    {"quorviBoxProfileOSD", "quorvi::CheckBox", "actionBoxProfileOSD:"},

    {"quorviTableMacros", table, nullptr, 2},
    {"quorviButtonMacroAdd", "QPushButton", "actionButtonMacroAdd:"},
    {"quorviButtonMacroRemove", "QPushButton", "actionButtonMacroRemove:"},
    {"quorviButtonMacroGear", "quorvi::MenuButton", "actionButtonMacroGear:"},
    {"quorviTabsShowHideSteps", "QStackedWidget"},
    {"quorviTableSteps", table, nullptr, 3},
    {"quorviButtonStepAdd", "QPushButton", "actionButtonStepAdd:"},
    {"quorviButtonStepRemove", "QPushButton", "actionButtonStepRemove:"},
    {"quorviButtonStepGear", "quorvi::MenuButton", "actionButtonStepGear:"},
    {"quorviButtonStepRecord", "quorvi::ToggleButton", "actionButtonStepRecord:"},

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
    {"quorviTextConfirm", "QLabel"},
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
    {"quorviStageButtonAdd", "QPushButton", "actionButtonStageAdd:"},
    {"quorviStageButtonRemove", "QPushButton", "actionButtonStageRemove:"},
    {"quorviStageGroupSettings", "QGroupBox"},
    {"quorviStageSliderX", slider, "actionSliderStagesSensitivityX:"},
    {"quorviStageSliderY", slider, "actionSliderStagesSensitivityY:"},
    {"quorviStageBoxIndepXY", "quorvi::CheckBox", "actionBoxStagesIndependentXY:"},
    {"quorviStagesButtonOK", "QPushButton", ok},
    {"quorviStagesButtonCancel", "QPushButton", cancel},
};

} // namespace quorvi::test
