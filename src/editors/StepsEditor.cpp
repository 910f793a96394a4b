// The steps of the current macro: removed ones, and the delays of all of them.

#include <QMenu>

#include "macros/MacroRecorder.h"
#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"
#include "window/ShownStep.h"

namespace quorvi {

namespace {

/// The position of the item for the delay: its own or, when it has none, that of the longest shorter one;
/// never "none" for a delay that there is. -1 when no item will do.
int indexOfDelay(const QMenu& menu, std::int32_t delay) {
    const int own = indexOfItemWithTag(menu, delay);
    if (own >= 0)
        return own;
    const QList<QAction*> items = menu.actions();
    for (int index = int(items.size()) - 1; index >= 0; --index) {
        const int tag = tagOfItem(*items.at(index)).value_or(0);
        if (tag > 0 && tag < delay)
            return index;
    }
    return -1;
}

/// The item that the value of a pop-up cell stands for; null for none.
QAction* itemAt(const QMenu& menu, const QVariant& value) {
    return value.userType() == QMetaType::Int ? menu.actions().value(value.toInt()) : nullptr;
}

} // namespace

QString KyvarQuorviPane::textOfStep(int row) const {
    return textOfStep(fDocument.macroSteps().dictionary(static_cast<std::size_t>(row)));
}

QString KyvarQuorviPane::textOfStep(const plist::Dictionary& step) const {
    return shownStep(step, panelText());
}

QVariant KyvarQuorviPane::delayOfStep(int row) const {
    if (row < 0 || row >= static_cast<int>(fDocument.macroSteps().size()))
        return QString();
    const auto step = fDocument.macroSteps().dictionary(static_cast<std::size_t>(row));
    return indexOfDelay(*fViews->menus.quorviMenuStepDelay, step.integer(keys::delay));
}

QString KyvarQuorviPane::titleOfDelay(const QVariant& value) const {
    const QAction* item = itemAt(*fViews->menus.quorviMenuStepDelay, value);
    return item ? shownTitleOfItem(*item) : QString();
}

void KyvarQuorviPane::setDelayOfStep(const QVariant& value, int row) {
    const QAction* item = itemAt(*fViews->menus.quorviMenuStepDelay, value);
    if (item && row >= 0)
        fDocument.macroSteps()
            .dictionary(static_cast<std::size_t>(row))
            .set(keys::delay, tagOfItem(*item).value_or(0));
}

void KyvarQuorviPane::actionButtonStepAdd() {
    startStopRecording(true, false);
}

void KyvarQuorviPane::actionButtonStepRecord() {
    startStopRecording(!isRecordingMacro(), false);
}

void KyvarQuorviPane::actionButtonStepRemove() {
    KyvarQuorviTableView* table = fViews->main.quorviTableSteps;
    const int row = table->selectedRow();
    if (row < 0 || row >= static_cast<int>(fDocument.macroSteps().size()))
        return;
    fDocument.macroSteps().remove(static_cast<std::size_t>(row));
    reloadData(table);
    const int last = static_cast<int>(fDocument.macroSteps().size()) - 1;
    if (last >= 0) {
        const int next = row < last ? row : last;
        table->selectRowAlone(next);
    }
    fDocument.commit({.saving = Saving::withNextAction});
}

void KyvarQuorviPane::removeAllSteps() {
    fDocument.macroSteps().removeAll();
    reloadData(fViews->main.quorviTableSteps);
}

void KyvarQuorviPane::useDelayOfStepForAll() {
    const int row = fViews->main.quorviTableSteps->selectedRow();
    if (row >= 0 && row < static_cast<int>(fDocument.macroSteps().size()))
        setDelayForAllSteps(
            fDocument.macroSteps().dictionary(static_cast<std::size_t>(row)).integer(keys::delay));
}

void KyvarQuorviPane::setDelayForAllSteps(std::int32_t milliseconds) {
    quorvi::setDelayForAllSteps(fDocument.macroSteps(), milliseconds);
    reloadData(fViews->main.quorviTableSteps);
}

} // namespace quorvi
