// The row of the profile that runs now bears a mark: it need not be the selected one.

#include "editors/TableModel.h"
#include "live/LiveHelper.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/TableTags.h"

namespace quorvi {

void KyvarQuorviPane::showRunningRow() {
    const QString why = fHelperLink.live().runningText();
    const int row = why.isEmpty() ? -1 : static_cast<int>(fHelperLink.live().state().runningProfile) - 1;
    fTableModels[kProfilesTable - 1]->setMark(row, why);
}

} // namespace quorvi
