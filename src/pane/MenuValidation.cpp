// Which items of the tables' gear and context menus can be chosen.

#include <QAction>

#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/widgets/KyvarQuorviTableView.h"
#include "platform/widgets/MenuItems.h"
#include "resources/Interface.h"

namespace quorvi {

bool KyvarQuorviPane::validateMenuItem(QAction* item) {
    if (!item || !hasDevice())
        return false;
    const bool profileIsCurrent = fProfileIndex >= 0;
    const bool roomForProfile = fProfiles.size() < limits::profiles;
    const bool stepIsSelected = fViews->main.quorviTableSteps->selectedRow() >= 0;
    switch (tagOfItem(*item).value_or(0)) {
    case 11: // new profile
    case 12: // import profile
        return roomForProfile;
    case 13: // export profile
    case 16: // assign application
    case 18: // restore defaults
        return profileIsCurrent;
    case 14: // remove profile: the first one always stays
        return fProfileIndex > 0;
    case 15: // duplicate profile
        return profileIsCurrent && roomForProfile;
    case 17: // remove application
        return profileIsCurrent && !fDriverData.string(keys::application).empty();
    case 21: // new macro
    case 22: // import macro
        return fMacros.size() < limits::macros;
    case 23: // export macro
    case 24: // remove macro
        return fViews->main.quorviTableMacros->selectedRow() >= 0;
    case 31: // record or stop
        setTitleOfItem(*item, fRecordingMacro ? fStringStop : fStringRecord);
        return true;
    case 32: // record the step again
        return stepIsSelected && !fRecordingMacro;
    case 33: // remove step
    case 35: // delay of the step for all
        return stepIsSelected;
    case 34: // remove all steps
    case 36: // remove all delays
        return fMacroSteps.size() > 0;
    default:
        return true;
    }
}

} // namespace quorvi
