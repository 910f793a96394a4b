// What the tables ask for at a delete key.

#include "pane/KyvarQuorviPane.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

void KyvarQuorviPane::handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int /*row*/) {
    if (key != kDeleteKeyCharacter && key != kForwardDeleteKeyCharacter &&
        key != kDeleteCharacterKeyCharacter)
        return;
    switch (table->tag()) {
    case kProfilesTable:
        actionButtonProfileRemove();
        break;
    case kMacrosTable:
        actionButtonMacroRemove();
        break;
    case kStepsTable:
        actionButtonStepRemove();
        break;
    case kStagesTable:
        actionButtonStageRemove();
        break;
    default:
        break;
    }
}

} // namespace quorvi
