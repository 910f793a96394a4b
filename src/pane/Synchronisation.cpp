// A device list has arrived: the settings are read afresh and everything is rebuilt from them.

#include <QScopedValueRollback>

#include "editors/TableModel.h"
#include "model/Keys.h"
#include "model/Numbering.h"
#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

void KyvarQuorviPane::syncUIWithDeviceConfig() {
    startStopRecording(false, false);
    // What no file has yet is not read away.
    if (saveUnsavedEdits())
        showSettingsOfFile(Repairs::saved);
    else
        showSettings(Repairs::inMemoryAlone, -1);
    watchSettingsFile();
    if (!std::exchange(fBluetoothWarningDone, true) && !hasDevice())
        modalDialog(fViews->quorviPanelNoDevice);
}

void KyvarQuorviPane::showSettingsOfFile(Repairs repairs) {
    fDeviceConfig = loadSettings();
    fUnsavedEdits = fSaveHasFailed = false;
    cleanUpSettings(fDeviceConfig);
    showSettings(repairs, -1);
}

void KyvarQuorviPane::showSettings(Repairs repairs, std::int32_t macroIndex) {
    fMergedUnshown = false;
    editProfileIndex(indexOfNumber(fDeviceConfig.dictionary(keys::settings).integer(keys::profileId)));
    editMacroIndex(macroIndex);

    selectCurrentProfileQuietly();
    selectCurrentMacroQuietly();
    reloadTableViewDataQuietly(fViews->main.quorviTableSteps);

    updateProfilesSubmenu();
    updateMacrosSubmenu();
    alignIndependentAxes();
    if (alignStageWithSettings() && repairs == Repairs::saved)
        saveSettings(fDeviceConfig);
    updateUI();
    updateSensitivityStagesUI();
}

void KyvarQuorviPane::selectCurrentProfileQuietly() {
    // The row that the file names becomes current; it is not a choice of the user, who would get the
    // profile's default stage with it.
    const QScopedValueRollback quiet(fIgnoreTableViewSelectionChange, true);
    reloadTableViewDataQuietly(fViews->main.quorviTableProfiles);
    fViews->main.quorviTableProfiles->selectRowAlone(fProfileIndex);
}

void KyvarQuorviPane::selectCurrentMacroQuietly() {
    KyvarQuorviTableView* table = fViews->main.quorviTableMacros;
    reloadTableViewDataQuietly(table);
    if (fMacroIndex < 0) {
        table->deselectAll();
        return;
    }
    const QScopedValueRollback quiet(fIgnoreTableViewSelectionChange, true);
    table->selectRowAlone(fMacroIndex);
}

void KyvarQuorviPane::alignIndependentAxes() {
    const bool independent = fSettings.integer(keys::dpiX) != fSettings.integer(keys::dpiY);
    for (const plist::Dictionary& holder : {fSettings, fStage})
        if (holder.boolean(keys::independentXY) != independent)
            holder.set(keys::independentXY, independent);
}

bool KyvarQuorviPane::alignStageWithSettings() {
    const std::int32_t x = fSettings.integer(keys::dpiX);
    const std::int32_t y = fSettings.integer(keys::dpiY);
    if (fStage.integer(keys::dpiX) == x && fStage.integer(keys::dpiY) == y)
        return false;
    fStage.set(keys::dpiX, x);
    fStage.set(keys::dpiY, y);
    return true;
}

} // namespace quorvi
