// The editor of a profile's sensitivity stages. It works on copies, which OK stores and Cancel forgets.

#include <QCheckBox>
#include <QPushButton>

#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Numbering.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/ViewActivation.h"
#include "plist/DeepCopy.h"
#include "resources/Interface.h"
#include "sensitivity/StageResolution.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

/// What the sliders show while no stage is selected, in DPI.
constexpr int kResolutionWithoutStage = 1500;

} // namespace

plist::Array KyvarQuorviPane::editedStages() const {
    return fEditStagesProfile.array(keys::stages);
}

std::int32_t KyvarQuorviPane::editedStageIndex() const {
    const std::int32_t index = indexOfNumber(fEditStagesSettings.integer(keys::stage));
    return index >= 0 && static_cast<std::size_t>(index) < editedStages().size() ? index : -1;
}

plist::Dictionary KyvarQuorviPane::editedStage() const {
    return editedStages().dictionary(static_cast<std::size_t>(editedStageIndex()));
}

void KyvarQuorviPane::editSensitivityStages() {
    if (fEditStagesProfile)
        return; // the sheet is up
    const QPointer<KyvarQuorviPane> self(this);
    const std::int32_t profile = fDocument.profileIndex();
    fEditStagesSettings = plist::mutableDeepCopy(fDocument.settings());
    fEditStagesProfile = plist::mutableDeepCopy(fDocument.profile());
    updateSensitivityStagesUI();
    const bool confirmed = fSheets.run(fViews->quorviPanelStages) == QDialog::Accepted;
    if (!self)
        return;
    // The settings may have been read afresh while the sheet was up. The stages go into the tree that is
    // there now, unless another profile has become the current one. A profile is its place in the list: its
    // name may have been changed by another program.
    if (confirmed && fDocument.profileIndex() == profile)
        storeEditedStages();
    closeStagesEditor();
}

void KyvarQuorviPane::storeEditedStages() {
    const std::int32_t index = editedStageIndex();
    if (index < 0 || !fDocument.profile())
        return;
    fDocument.settings().set(keys::stage, index + 1);
    copyResolution(editedStages().dictionary(static_cast<std::size_t>(index)), fDocument.settings());
    fDocument.profile().set(keys::defaultStage, fEditStagesProfile.integer(keys::defaultStage));
    fDocument.profile().set(keys::stages, editedStages());
    fDocument.editProfileIndex(fDocument.profileIndex());
    fDocument.commit();
}

void KyvarQuorviPane::closeStagesEditor() {
    fEditStagesSettings = {};
    fEditStagesProfile = {};
    reloadTableViewDataQuietly(fViews->stages.quorviStageTableStages);
}

void KyvarQuorviPane::editStageIndex(std::int32_t index) {
    const plist::Array stages = editedStages();
    if (!fEditStagesSettings || index < 0 || static_cast<std::size_t>(index) >= stages.size())
        return;
    fEditStagesSettings.set(keys::stage, index + 1);
    copyResolution(stages.dictionary(static_cast<std::size_t>(index)), fEditStagesSettings);
    fEditStagesProfile.set(keys::defaultStage, index + 1);
}

void KyvarQuorviPane::actionButtonStageAdd() {
    const plist::Array stages = editedStages();
    const std::int32_t index = editedStageIndex();
    if (index < 0 || stages.size() >= limits::stages)
        return;
    stages.insert(static_cast<std::size_t>(index) + 1, plist::deepCopy(stages.value(std::size_t(index))));
    editStageIndex(index + 1);
    updateSensitivityStagesUI();
}

void KyvarQuorviPane::actionButtonStageRemove() {
    const plist::Array stages = editedStages();
    const std::int32_t index = editedStageIndex();
    if (index < 0 || stages.size() <= limits::minimumStages)
        return;
    stages.remove(static_cast<std::size_t>(index));
    editStageIndex(std::min(index, static_cast<std::int32_t>(stages.size()) - 1));
    updateSensitivityStagesUI();
}

void KyvarQuorviPane::actionSliderStagesSensitivityX(KyvarQuorviSlider* slider) {
    if (editedStageIndex() < 0)
        return;
    const bool bothAxes = !editedStage().boolean(keys::independentXY);
    for (const plist::Dictionary& holder : {editedStage(), fEditStagesSettings}) {
        holder.set(keys::dpiX, slider->value());
        if (bothAxes)
            holder.set(keys::dpiY, slider->value());
    }
    updateSensitivityStagesUI();
}

void KyvarQuorviPane::actionSliderStagesSensitivityY(KyvarQuorviSlider* slider) {
    if (editedStageIndex() < 0)
        return;
    for (const plist::Dictionary& holder : {editedStage(), fEditStagesSettings})
        holder.set(keys::dpiY, slider->value());
    updateSensitivityStagesUI();
}

void KyvarQuorviPane::actionBoxStagesIndependentXY(QAbstractButton* box) {
    if (editedStageIndex() < 0)
        return;
    for (const plist::Dictionary& holder : {editedStage(), fEditStagesSettings}) {
        holder.set(keys::independentXY, box->isChecked());
        if (!box->isChecked())
            holder.set(keys::dpiY, holder.integer(keys::dpiX));
    }
    updateSensitivityStagesUI();
}

void KyvarQuorviPane::updateSensitivityStagesUI() {
    if (!fEditStagesSettings || !fEditStagesProfile)
        return;
    const auto count = static_cast<std::int64_t>(editedStages().size());
    const plist::Dictionary stage = editedStage();
    const bool independent = stage.boolean(keys::independentXY);
    // Quietly: a list that is empty because the mouse is away must not make the first stage the current one.
    reloadTableViewDataQuietly(fViews->stages.quorviStageTableStages);
    if (editedStageIndex() >= 0)
        fViews->stages.quorviStageTableStages->selectRowAlone(editedStageIndex());
    fViews->stages.quorviStageButtonAdd->setEnabled(count < limits::stages);
    // With two stages left the button is enabled and does nothing: only a single stage leaves nothing to
    // remove.
    fViews->stages.quorviStageButtonRemove->setEnabled(count >= limits::minimumStages);
    makeViewActive(fViews->stages.quorviStageGroupSettings, static_cast<bool>(stage));
    fViews->stages.quorviStageSliderX->setValue(stage ? stage.integer(keys::dpiX) : kResolutionWithoutStage);
    fViews->stages.quorviStageSliderY->setValue(stage ? stage.integer(keys::dpiY) : kResolutionWithoutStage);
    fViews->stages.quorviStageSliderY->setEnabled(independent);
    fViews->stages.quorviStageBoxIndepXY->setChecked(independent);
}

} // namespace quorvi
