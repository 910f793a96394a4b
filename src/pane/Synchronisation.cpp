// A device list has arrived: the settings are read afresh and everything is rebuilt from them.

#include "model/Keys.h"
#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "resources/Interface.h"

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
        fSheets.run(fViews->quorviPanelNoDevice);
}

void KyvarQuorviPane::showSettingsOfFile(Repairs repairs) {
    fDocument.setTree(loadSettings());
    fUnsavedEdits = fSaveHasFailed = false;
    cleanUpSettings(fDocument.tree());
    showSettings(repairs, -1);
}

void KyvarQuorviPane::showSettings(Repairs repairs, std::int32_t macroIndex) {
    fMergedUnshown = false;
    fDocument.editProfileIndex(fDocument.profileIndexOfSettings());
    fDocument.editMacroIndex(macroIndex);

    fListEditors->profiles.selectCurrentQuietly();
    fListEditors->macros.selectCurrent();
    fListEditors->steps.list().reloadQuietly();

    updateProfilesSubmenu();
    updateMacrosSubmenu();
    alignIndependentAxes();
    const bool repaired = alignStageWithSettings();
    fDocument.commit({.saving = repaired && repairs == Repairs::saved ? Saving::now : Saving::never});
    updateSensitivityStagesUI();
}

void KyvarQuorviPane::alignIndependentAxes() {
    const bool independent =
        fDocument.settings().integer(keys::dpiX) != fDocument.settings().integer(keys::dpiY);
    for (const plist::Dictionary& holder : {fDocument.settings(), fDocument.stage()})
        if (holder.boolean(keys::independentXY) != independent)
            holder.set(keys::independentXY, independent);
}

bool KyvarQuorviPane::alignStageWithSettings() {
    const std::int32_t x = fDocument.settings().integer(keys::dpiX);
    const std::int32_t y = fDocument.settings().integer(keys::dpiY);
    if (fDocument.stage().integer(keys::dpiX) == x && fDocument.stage().integer(keys::dpiY) == y)
        return false;
    fDocument.stage().set(keys::dpiX, x);
    fDocument.stage().set(keys::dpiY, y);
    return true;
}

} // namespace quorvi
