#include "document/Document.h"

#include <algorithm>

#include "model/Keys.h"
#include "model/Numbering.h"

namespace quorvi {

namespace {

bool isIndexOf(const plist::Array& array, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < array.size();
}

} // namespace

void Document::editProfileIndex(std::int32_t index) {
    fProfiles = fDeviceConfig.array(keys::profiles);
    const bool exists = isIndexOf(fProfiles, index);
    fProfileIndex = exists ? index : -1;
    fSettings = exists ? fDeviceConfig.dictionary(keys::settings) : plist::Dictionary();
    fSettings.set(keys::profileId, fProfileIndex + 1);
    fProfile = fProfiles.dictionary(static_cast<std::size_t>(fProfileIndex));
    fButtons = fProfile.dictionary(keys::buttons);
    fStages = fProfile.array(keys::stages);
    const auto lastStage = static_cast<std::int32_t>(fStages.size()) - 1;
    fStageIndex =
        exists ? std::min(std::max(indexOfNumber(fSettings.integer(keys::stage)), 0), lastStage) : -1;
    fStage = fStages.dictionary(static_cast<std::size_t>(fStageIndex));
    fDriverData = fProfile.dictionary(keys::driver);
    fMacros = exists ? fDeviceConfig.array(keys::macros) : plist::Array();
}

std::int32_t Document::profileIndexOfSettings() const {
    return indexOfNumber(fDeviceConfig.dictionary(keys::settings).integer(keys::profileId));
}

void Document::editSameItems() {
    const std::int32_t macro = fMacro.integer(keys::macroId);
    editProfileIndex(profileIndexOfSettings());
    const auto current = fMacros.dictionary(static_cast<std::size_t>(fMacroIndex));
    editMacroIndex(current && current.integer(keys::macroId) == macro ? fMacroIndex : -1);
}

void Document::startInDefaultStage() {
    fStageIndex = indexOfNumber(fProfile.integer(keys::defaultStage));
    fStage = fStages.dictionary(static_cast<std::size_t>(fStageIndex));
    const std::int32_t x = fStage.integer(keys::dpiX);
    const std::int32_t y = fStage.integer(keys::dpiY);
    fSettings.set(keys::dpiX, x);
    fSettings.set(keys::dpiY, y);
    fSettings.set(keys::independentXY, x != y);
    fSettings.set(keys::stage, fStageIndex + 1);
}

void Document::alignIndependentAxes() {
    const bool independent = fSettings.integer(keys::dpiX) != fSettings.integer(keys::dpiY);
    for (const plist::Dictionary& holder : {fSettings, fStage})
        if (holder.boolean(keys::independentXY) != independent)
            holder.set(keys::independentXY, independent);
}

bool Document::alignStageWithSettings() {
    const std::int32_t x = fSettings.integer(keys::dpiX);
    const std::int32_t y = fSettings.integer(keys::dpiY);
    if (fStage.integer(keys::dpiX) == x && fStage.integer(keys::dpiY) == y)
        return false;
    fStage.set(keys::dpiX, x);
    fStage.set(keys::dpiY, y);
    return true;
}

void Document::editMacroIndex(std::int32_t index) {
    fMacroIndex = isIndexOf(fMacros, index) ? index : -1;
    fMacro = fMacros.dictionary(static_cast<std::size_t>(fMacroIndex));
    fMacroSteps = fMacro.array(keys::steps);
}

bool Document::note(const Change& change) {
    if (change.touched == Touched::currentProfile && fProfileIndex >= 0)
        return m_actions.noteInProfile(fDeviceConfig, change.action, static_cast<std::size_t>(fProfileIndex));
    return m_actions.note(fDeviceConfig, change.action);
}

bool Document::commit(const Change& change) {
    m_owner.showDocument(change.shown);
    bool isNoted = false;
    if (!change.action.empty()) // before the save, which may merge other programs' changes into the tree
        isNoted = note(change);
    if (change.saving == Saving::now)
        m_owner.saveDocument();
    else if (change.saving == Saving::withNextAction)
        m_owner.saveDocumentLater();
    if (!change.action.empty()) {
        // After the save, so as not to delay its way to the mouse.
        m_owner.actionHasBegun();
        m_owner.undoHasChanged();
    }
    return isNoted;
}

void Document::endGroup() {
    m_actions.endGroup();
    m_owner.undoHasChanged();
}

void Document::takeOthersOver() {
    m_actions.takeOver(fDeviceConfig);
    m_owner.undoHasChanged();
}

void Document::takeRepairsOver() {
    m_actions.takeRepairsOver(fDeviceConfig);
    m_owner.undoHasChanged();
}

void Document::changeQuietly(const std::function<void()>& change) {
    const bool isNoted = m_actions.isAt(fDeviceConfig);
    change();
    if (isNoted)
        takeOthersOver();
}

Restored Document::restored(Restored change) {
    if (change)
        editSameItems();
    return change;
}

} // namespace quorvi
