// The current stage follows the mouse's own sensitivity buttons.

#include "live/LiveHelper.h"
#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "sensitivity/StageResolution.h"

namespace quorvi {

void KyvarQuorviPane::followRunningStage() {
    const HelperNews& helper = fHelperLink.live().state();
    const auto stage = static_cast<std::size_t>(helper.runningStage) - 1;
    const bool isOfThisProfile =
        helper.runningProfile > 0 && fDocument.profileIndex() >= 0 &&
        helper.runningProfile - 1 == static_cast<std::uint32_t>(fDocument.profileIndex());
    if (!isOfThisProfile || helper.runningStage == 0 || stage >= fDocument.stages().size() ||
        stage == static_cast<std::size_t>(fDocument.stageIndex()) || fSession.isDragging() ||
        fSheets.isRunning())
        return;
    fDocument.settings().set(keys::stage, static_cast<std::int32_t>(helper.runningStage));
    copyResolution(fDocument.stages().dictionary(stage), fDocument.settings());
    fDocument.editProfileIndex(fDocument.profileIndex());
    updateSensitivityUI();
}

} // namespace quorvi
