// The row of the profile that runs now bears a mark: it need not be the selected one.

#include "live/LiveHelper.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "window/TableList.h"

namespace quorvi {

void KyvarQuorviPane::showRunningRow() {
    const QString why = fHelperLink.live().runningText();
    const int row = why.isEmpty() ? -1 : static_cast<int>(fHelperLink.live().state().runningProfile) - 1;
    listOf(fViews->main.quorviTableProfiles).model().setMark(row, why);
}

} // namespace quorvi
