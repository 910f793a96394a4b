// Which items of the tables' gear and context menus can be chosen.

#include <QAction>

#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "resources/MenuTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"

namespace quorvi {

bool KyvarQuorviPane::validateMenuItem(QAction* item) {
    if (!item || !hasDevice())
        return false;
    const bool profileIsCurrent = fDocument.profileIndex() >= 0;
    const bool roomForProfile = fDocument.profiles().size() < limits::profiles;
    const bool stepIsSelected = fViews->main.quorviTableSteps->selectedRow() >= 0;
    switch (tagOfItem(*item).value_or(0)) {
    case kNewProfileItem:
    case kImportProfileItem:
        return roomForProfile;
    case kExportProfileItem:
    case kAssignApplicationItem:
    case kRestoreDefaultsItem:
        return profileIsCurrent;
    case kRemoveProfileItem: // the first one always stays
        return fDocument.profileIndex() > 0;
    case kDuplicateProfileItem:
        return profileIsCurrent && roomForProfile;
    case kRemoveApplicationItem:
        return profileIsCurrent && !fDocument.driverData().string(keys::application).empty();
    case kNewMacroItem:
    case kImportMacroItem:
        return fDocument.macros().size() < limits::macros;
    case kExportMacroItem:
    case kRemoveMacroItem:
        return fViews->main.quorviTableMacros->selectedRow() >= 0;
    case kRecordItem:
        setTitleOfItem(*item, fRecorder.isRecording() ? fStringStop : fStringRecord);
        return true;
    case kRecordStepItem:
        return stepIsSelected && !fRecorder.isRecording();
    case kRemoveStepItem:
    case kUseDelayForAllItem:
        return stepIsSelected;
    case kRemoveAllStepsItem:
    case kRemoveAllDelaysItem:
        return fDocument.macroSteps().size() > 0;
    default:
        return true;
    }
}

} // namespace quorvi
