// The commands of the tables' context and gear menus, told apart by their tags.

#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "resources/MenuTags.h"
#include "widgets/MenuItems.h"

namespace quorvi {

void KyvarQuorviPane::actionMenuTableContext(QAction* item) {
    const int tag = tagOfItem(*item).value_or(0);
    const QPointer<KyvarQuorviPane> guard(this);
    performTableCommand(tag);
    // A question may outlive the pane. A recording saves when it ends.
    if (guard && tag != kRecordItem && tag != kRecordStepItem)
        fDocument.commit({.shown = Shown::nothing});
}

void KyvarQuorviPane::performTableCommand(int tag) {
    switch (tag) {
    case kNewProfileItem:
        actionButtonProfileAdd();
        break;
    case kImportProfileItem:
        fListEditors->files.showImportPanel(ItemKind::profile);
        break;
    case kExportProfileItem:
        fListEditors->files.showExportPanel(ItemKind::profile);
        break;
    case kRemoveProfileItem:
        actionButtonProfileRemove();
        break;
    case kDuplicateProfileItem:
        createNewProfile(true);
        break;
    case kAssignApplicationItem:
        showApplicationPanel();
        break;
    case kRemoveApplicationItem:
        removeApplication();
        break;
    case kRestoreDefaultsItem:
        actionButtonRestoreDefaults();
        break;
    case kNewMacroItem:
        actionButtonMacroAdd();
        break;
    case kImportMacroItem:
        fListEditors->files.showImportPanel(ItemKind::macro);
        break;
    case kExportMacroItem:
        fListEditors->files.showExportPanel(ItemKind::macro);
        break;
    case kRemoveMacroItem:
        actionButtonMacroRemove();
        break;
    case kRecordItem:
        startStopRecording(!fRecorder.isRecording(), false);
        break;
    case kRecordStepItem:
        startStopRecording(true, true);
        break;
    case kRemoveStepItem:
        actionButtonStepRemove();
        break;
    case kRemoveAllStepsItem:
        removeAllSteps();
        break;
    case kUseDelayForAllItem:
        useDelayOfStepForAll();
        break;
    case kRemoveAllDelaysItem:
        setDelayForAllSteps(0);
        break;
    default:
        break;
    }
}

} // namespace quorvi
