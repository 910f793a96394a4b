// The stages editor's controls, shown from the copies that it works on.

#include <QCheckBox>
#include <QPushButton>

#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/ViewActivation.h"
#include "platform/widgets/KyvarQuorviSlider.h"
#include "platform/widgets/KyvarQuorviTableView.h"
#include "resources/Interface.h"

namespace quorvi {

namespace {

/// What the sliders show while no stage is selected, in DPI.
constexpr int kResolutionWithoutStage = 1500;

} // namespace

void KyvarQuorviPane::updateSensitivityStagesUI() {
    if (!fEditStagesSettings || !fEditStagesProfile)
        return;
    const plist::Array stages = fEditStagesProfile.array(keys::stages);
    const int index = fEditStagesSettings.integer(keys::stage) - 1;
    const plist::Dictionary stage = stages.dictionary(static_cast<std::size_t>(index));
    const bool independent = stage.boolean(keys::independentXY);
    reloadData(fViews->stages.quorviStageTableStages);
    if (index >= 0 && index < static_cast<int>(stages.size()))
        fViews->stages.quorviStageTableStages->selectRowAlone(index);
    fViews->stages.quorviStageButtonAdd->setEnabled(static_cast<int>(stages.size()) < limits::stages);
    // With two stages left the button is enabled and does nothing: only a single stage leaves nothing to
    // remove.
    fViews->stages.quorviStageButtonRemove->setEnabled(
        static_cast<int>(stages.size()) >= limits::minimumStages);
    makeViewActive(fViews->stages.quorviStageGroupSettings, static_cast<bool>(stage));
    fViews->stages.quorviStageSliderX->setValue(stage ? stage.integer(keys::dpiX) : kResolutionWithoutStage);
    fViews->stages.quorviStageSliderY->setValue(stage ? stage.integer(keys::dpiY) : kResolutionWithoutStage);
    fViews->stages.quorviStageSliderY->setEnabled(independent);
    fViews->stages.quorviStageBoxIndepXY->setChecked(independent);
}

} // namespace quorvi
