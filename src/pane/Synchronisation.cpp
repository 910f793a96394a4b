// What follows the mouse and the settings: lists and menus of names, and what stands beside the title.

#include <QLabel>

#include <utility>

#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "resources/Interface.h"

namespace quorvi {

void KyvarQuorviPane::syncUIWithDeviceConfig() {
    startStopRecording(false, false);
    fSession.readAfresh();
    updateSensitivityStagesUI();
    if (!std::exchange(fBluetoothWarningDone, true) && !hasDevice())
        fSheets.run(fViews->quorviPanelNoDevice);
}

void KyvarQuorviPane::showLists() {
    fListEditors->profiles.selectCurrentQuietly();
    fListEditors->macros.selectCurrent();
    fListEditors->steps.list().reloadQuietly();
    updateProfilesSubmenu();
    updateMacrosSubmenu();
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
    fListEditors->macros.showConnection(text);
}

} // namespace quorvi
