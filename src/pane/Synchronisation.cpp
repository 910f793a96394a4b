// What follows the mouse and the settings: lists and menus of names, and what stands beside the title.

#include <QLabel>
#include <QScopedValueRollback>

#include <utility>

#include "editors/TableModel.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"

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
    const QScopedValueRollback quiet(fIgnoreTableViewSelectionChange, true);
    reloadTableViewDataQuietly(fViews->main.quorviTableProfiles);
    fViews->main.quorviTableProfiles->selectRowAlone(fDocument.profileIndex());
}

void KyvarQuorviPane::selectCurrentMacroQuietly() {
    KyvarQuorviTableView* table = fViews->main.quorviTableMacros;
    reloadTableViewDataQuietly(table);
    if (fDocument.macroIndex() < 0) {
        table->deselectAll();
        return;
    }
    const QScopedValueRollback quiet(fIgnoreTableViewSelectionChange, true);
    table->selectRowAlone(fDocument.macroIndex());
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
