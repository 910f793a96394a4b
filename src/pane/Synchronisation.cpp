// What follows the mouse and the settings: lists and menus of names, and what stands beside the title.

#include <QLabel>

#include <utility>

#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/TableList.h"

namespace quorvi {

void KyvarQuorviPane::syncUIWithDeviceConfig() {
    startStopRecording(false, false);
    fSession.readAfresh();
    updateSensitivityStagesUI();
    if (!std::exchange(fBluetoothWarningDone, true) && !hasDevice())
        fSheets.run(fViews->quorviPanelNoDevice);
}

void KyvarQuorviPane::showLists() {
    selectCurrentProfileQuietly();
    selectCurrentMacroQuietly();
    reloadTableViewDataQuietly(fViews->main.quorviTableSteps);
    updateProfilesSubmenu();
    updateMacrosSubmenu();
}

void KyvarQuorviPane::selectCurrentProfileQuietly() {
    // The row that the file names becomes current; it is not a choice of the user, who would get the
    // profile's default stage with it.
    TableList& list = listOf(fViews->main.quorviTableProfiles);
    list.reloadQuietly();
    list.selectQuietly(fDocument.profileIndex());
}

void KyvarQuorviPane::selectCurrentMacroQuietly() {
    TableList& list = listOf(fViews->main.quorviTableMacros);
    list.reloadQuietly();
    if (fDocument.macroIndex() < 0)
        list.table().deselectAll();
    else
        list.selectQuietly(fDocument.macroIndex());
}

void KyvarQuorviPane::dragDidEnd() {
    fSession.endDrag();
    if (fHelperLink.isGone())
        fHelperLink.bringBack();
    updateDpiOnMouse();
}

void KyvarQuorviPane::updateConnectionUI() {
    const QString text = fHelperLink.connectionText();
    fViews->main.quorviTextConnection->setText(text);
    fViews->main.textNoMacro->setText(hasDevice() ? fStringNoMacro : text);
}

} // namespace quorvi
