// Which profile and which macro the editors work on.

#include <algorithm>

#include "model/Keys.h"
#include "model/Numbering.h"
#include "pane/KyvarQuorviPane.h"

namespace quorvi {

namespace {

bool isIndexOf(const plist::Array& array, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < array.size();
}

} // namespace

void KyvarQuorviPane::editProfileIndex(std::int32_t index) {
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

void KyvarQuorviPane::editMacroIndex(std::int32_t index) {
    fMacroIndex = isIndexOf(fMacros, index) ? index : -1;
    fMacro = fMacros.dictionary(static_cast<std::size_t>(fMacroIndex));
    fMacroSteps = fMacro.array(keys::steps);
}

} // namespace quorvi
