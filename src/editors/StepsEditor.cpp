// The steps of the current macro: removed ones, and the delays of all of them.

#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/widgets/KyvarQuorviTableView.h"
#include "resources/Interface.h"

namespace quorvi {

void KyvarQuorviPane::actionButtonStepRemove() {
    KyvarQuorviTableView* table = fViews->main.quorviTableSteps;
    const int row = table->selectedRow();
    if (row < 0 || row >= static_cast<int>(fMacroSteps.size()))
        return;
    fMacroSteps.remove(static_cast<std::size_t>(row));
    reloadData(table);
    const int last = static_cast<int>(fMacroSteps.size()) - 1;
    if (last >= 0)
        table->selectRowAlone(std::min(row, last));
    updateUI();
}

void KyvarQuorviPane::removeAllSteps() {
    fMacroSteps.removeAll();
    reloadData(fViews->main.quorviTableSteps);
}

void KyvarQuorviPane::useDelayOfStepForAll() {
    const int row = fViews->main.quorviTableSteps->selectedRow();
    if (row >= 0 && row < static_cast<int>(fMacroSteps.size()))
        setDelayForAllSteps(fMacroSteps.dictionary(static_cast<std::size_t>(row)).integer(keys::delay));
}

void KyvarQuorviPane::setDelayForAllSteps(std::int32_t milliseconds) {
    const std::size_t count = fMacroSteps.size();
    for (std::size_t index = 0; index < count; ++index)
        fMacroSteps.dictionary(index).set(keys::delay, index + 1 < count ? milliseconds : 0);
    reloadData(fViews->main.quorviTableSteps);
}

} // namespace quorvi
