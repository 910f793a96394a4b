// The list of macros: new and removed ones, and the steps of the current one as a whole.

#include "editors/RemovalTexts.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Lookups.h"
#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

constexpr int kPlaceOfMacroName = 0;

plist::Dictionary newMacro(std::int32_t macroId, std::u16string name) {
    constexpr std::size_t usualSteps = 8; // four keys, down and up
    auto steps = plist::Array::create();
    steps.reserve(usualSteps);
    auto macro = plist::Dictionary::create();
    macro.set(keys::macroId, macroId);
    macro.set(keys::name, std::move(name));
    macro.set(keys::delay, 0);
    macro.set(keys::steps, steps);
    return macro;
}

} // namespace

std::u16string KyvarQuorviPane::untitledMacro() const {
    return locString(QStringLiteral("Untitled Macro")).toStdU16String();
}

void KyvarQuorviPane::appendMacro(const plist::Dictionary& macro) {
    appendItem(fMacros, macro, untitledMacro());
    editMacroIndex(static_cast<std::int32_t>(fMacros.size()) - 1);
    reloadTableViewDataQuietly(fViews->main.quorviTableMacros);
    fViews->main.quorviTableMacros->selectRowAlone(fMacroIndex);
    updateMacrosSubmenu();
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionButtonMacroAdd() {
    const int macroId = KyvarFindUnusedMacroID(fMacros);
    if (!fMacros || macroId < 0)
        return;
    appendMacro(newMacro(macroId, untitledMacro()));
    fViews->main.quorviTableMacros->editCell(kPlaceOfMacroName, fMacroIndex);
}

void KyvarQuorviPane::actionButtonMacroRemove() {
    if (fMacroIndex < 0)
        return;
    const std::u16string name = fMacro.string(keys::name);
    const PanelText text = panelText();
    const bool confirmed =
        confirmAction(QStringLiteral("Delete macro: ^1\r\rAre you sure you want to delete this macro?"),
            QString::fromStdU16String(name),
            effectOfRemovingMacro(fDeviceConfig, static_cast<std::size_t>(fMacroIndex), text),
            QStringLiteral("Delete"));
    // The mouse may have been plugged in while the question stood, and the settings read afresh.
    if (!confirmed || fMacroIndex < 0 || fMacro.string(keys::name) != name)
        return;
    fMacros.remove(static_cast<std::size_t>(fMacroIndex));
    const auto last = static_cast<std::int32_t>(fMacros.size()) - 1;
    editMacroIndex(std::min(fMacroIndex, last));
    reloadTableViewDataQuietly(fViews->main.quorviTableMacros);
    if (fMacroIndex >= 0)
        fViews->main.quorviTableMacros->selectRowAlone(fMacroIndex);
    showStepsOfMacro();
    cleanUpSettings(fDeviceConfig);
    updateMacrosSubmenu();
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::showStepsOfMacro() {
    reloadData(fViews->main.quorviTableSteps);
    fViews->main.quorviTableSteps->deselectAll();
}

} // namespace quorvi
