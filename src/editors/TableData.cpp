// The data and the selection of the four tables, told apart by table tag and column identifier.

#include "editors/stages/StagesEditor.h"
#include "model/Keys.h"
#include "model/NamingRule.h"
#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/TableList.h"

namespace quorvi {

namespace {

QString text(const plist::Dictionary& dictionary, std::string_view key) {
    return QString::fromStdU16String(dictionary.string(key));
}

bool isText(const QVariant& value) {
    return value.userType() == QMetaType::QString;
}

} // namespace

int KyvarQuorviPane::numberOfRowsInTableView(int tableTag) const {
    if (!hasDevice())
        return 0;
    switch (tableTag) {
    case kProfilesTable:
        return static_cast<int>(fDocument.profiles().size());
    case kMacrosTable:
        return static_cast<int>(fDocument.macros().size());
    case kStepsTable:
        return static_cast<int>(fDocument.macroSteps().size());
    case kStagesTable:
        return fStages->list().model().numberOfRows();
    default:
        return 0;
    }
}

QVariant KyvarQuorviPane::objectValueForTableColumn(int columnIdentifier, int row) const {
    const auto index = static_cast<std::size_t>(row);
    switch (columnIdentifier) {
    case kProfileNumberColumn:
        return QString::number(row + 1);
    case kProfileNameColumn:
        return text(fDocument.profiles().dictionary(index), keys::name);
    case kProfileApplicationColumn:
        return text(fDocument.profiles().dictionary(index).dictionary(keys::driver), keys::application);
    case kProfileAutoswitchColumn:
        return fDocument.profiles().dictionary(index).dictionary(keys::driver).boolean(keys::autoSwitch);
    case kMacroNameColumn:
        return text(fDocument.macros().dictionary(index), keys::name);
    case kStepActionColumn:
        return textOfStep(row);
    case kStepDelayColumn:
        return delayOfStep(row);
    case kStageNumberColumn:
    case kStageResolutionColumn:
        return fStages->list().model().cellValue(columnIdentifier, row);
    default:
        return QString();
    }
}

void KyvarQuorviPane::setObjectValue(const QVariant& value, int columnIdentifier, int row) {
    Shown shown = Shown::nothing; // the cell shows what was typed
    switch (columnIdentifier) {
    case kProfileNameColumn:
        renameProfile(value, row);
        shown = Shown::everything;
        break;
    case kProfileAutoswitchColumn:
        if (row != fDocument.profileIndex())
            fDocument.editProfileIndex(row);
        fDocument.driverData().set(keys::autoSwitch, value.toBool());
        break;
    case kMacroNameColumn:
        renameMacro(value, row);
        shown = Shown::everything;
        break;
    case kStepDelayColumn:
        setDelayOfStep(value, row);
        break;
    default:
        break;
    }
    fDocument.commit({.shown = shown, .saving = Saving::withNextAction});
}

void KyvarQuorviPane::renameProfile(const QVariant& value, int row) {
    // The first profile is the one that always exists; it keeps its name.
    if (row > 0 && isText(value)) {
        const std::u16string name = makeNameUnique(
            value.toString().toStdU16String(), untitledProfile(), fDocument.profiles(), keys::name, row);
        if (row != fDocument.profileIndex())
            fDocument.editProfileIndex(row);
        fDocument.profile().set(keys::name, name);
    }
    cleanUpSettings(fDocument.tree());
    updateProfilesSubmenu();
}

void KyvarQuorviPane::renameMacro(const QVariant& value, int row) {
    if (isText(value)) {
        const std::u16string name = makeNameUnique(
            value.toString().toStdU16String(), untitledMacro(), fDocument.macros(), keys::name, row);
        if (row != fDocument.macroIndex())
            fDocument.editMacroIndex(row);
        fDocument.macro().set(keys::name, name);
    }
    cleanUpSettings(fDocument.tree());
    updateMacrosSubmenu();
}

void KyvarQuorviPane::reloadTableViewDataQuietly(const KyvarQuorviTableView* table) {
    listOf(table).reloadQuietly();
}

void KyvarQuorviPane::reloadData(const KyvarQuorviTableView* table) {
    listOf(table).reload();
}

void KyvarQuorviPane::tableViewSelectionDidChange(const KyvarQuorviTableView* table) {
    listOf(table).selectionDidChange();
}

void KyvarQuorviPane::followSelection(const KyvarQuorviTableView* table) {
    const int row = table->selectedRow();
    switch (table->tag()) {
    case kProfilesTable:
        if (row >= 0 && hasDevice())
            switchToProfile(row);
        break;
    case kMacrosTable:
        if (hasDevice())
            switchToMacro(row);
        break;
    case kStepsTable:
        updateUI();
        break;
    default:
        break;
    }
}

void KyvarQuorviPane::switchToProfile(int row) {
    fDocument.editProfileIndex(row);
    fDocument.startInDefaultStage();
    fDocument.commit();
}

void KyvarQuorviPane::switchToMacro(int row) {
    fDocument.editMacroIndex(row);
    showStepsOfMacro();
    updateUI();
}

} // namespace quorvi
