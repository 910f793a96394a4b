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
    appendItem(fDocument.macros(), macro, untitledMacro());
    fDocument.editMacroIndex(static_cast<std::int32_t>(fDocument.macros().size()) - 1);
    reloadTableViewDataQuietly(fViews->main.quorviTableMacros);
    fViews->main.quorviTableMacros->selectRowAlone(fDocument.macroIndex());
    updateMacrosSubmenu();
    fDocument.commit();
}

void KyvarQuorviPane::actionButtonMacroAdd() {
    const int macroId = KyvarFindUnusedMacroID(fDocument.macros());
    if (!fDocument.macros() || macroId < 0)
        return;
    appendMacro(newMacro(macroId, untitledMacro()));
    fViews->main.quorviTableMacros->editCell(kPlaceOfMacroName, fDocument.macroIndex());
}

void KyvarQuorviPane::actionButtonMacroRemove() {
    if (fDocument.macroIndex() < 0)
        return;
    const std::u16string name = fDocument.macro().string(keys::name);
    const PanelText text = panelText();
    const bool confirmed = fSheets.confirm(Question{
        "Delete macro: ^1\r\rAre you sure you want to delete this macro?", QString::fromStdU16String(name),
        effectOfRemovingMacro(fDocument.tree(), static_cast<std::size_t>(fDocument.macroIndex()), text),
        "Delete"});
    // The mouse may have been plugged in while the question stood, and the settings read afresh.
    if (!confirmed || fDocument.macroIndex() < 0 || fDocument.macro().string(keys::name) != name)
        return;
    fDocument.macros().remove(static_cast<std::size_t>(fDocument.macroIndex()));
    const auto last = static_cast<std::int32_t>(fDocument.macros().size()) - 1;
    fDocument.editMacroIndex(std::min(fDocument.macroIndex(), last));
    reloadTableViewDataQuietly(fViews->main.quorviTableMacros);
    if (fDocument.macroIndex() >= 0)
        fViews->main.quorviTableMacros->selectRowAlone(fDocument.macroIndex());
    showStepsOfMacro();
    cleanUpSettings(fDocument.tree());
    updateMacrosSubmenu();
    fDocument.commit();
}

void KyvarQuorviPane::showStepsOfMacro() {
    reloadData(fViews->main.quorviTableSteps);
    fViews->main.quorviTableSteps->deselectAll();
}

} // namespace quorvi
