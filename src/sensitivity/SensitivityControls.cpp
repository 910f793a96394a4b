// What the controls of the sensitivity tab do. Each writes its value into the tree, refreshes what depends on
// it and saves at once.

#include <QAbstractButton>
#include <QCheckBox>

#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "sensitivity/AccelerationScale.h"
#include "widgets/KyvarQuorviSlider.h"

namespace quorvi {

// The current stage and the settings in force hold the same numbers, so every change goes into both.

void KyvarQuorviPane::actionSliderSensitivityX(KyvarQuorviSlider* slider) {
    const bool bothAxes = !fStage.boolean(keys::independentXY);
    for (const plist::Dictionary& holder : {fStage, fSettings}) {
        holder.set(keys::dpiX, slider->value());
        if (bothAxes)
            holder.set(keys::dpiY, slider->value());
    }
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionSliderSensitivityY(KyvarQuorviSlider* slider) {
    for (const plist::Dictionary& holder : {fStage, fSettings})
        holder.set(keys::dpiY, slider->value());
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionBoxIndependentXY(QAbstractButton* box) {
    for (const plist::Dictionary& holder : {fStage, fSettings}) {
        holder.set(keys::independentXY, box->isChecked());
        if (!box->isChecked())
            holder.set(keys::dpiY, holder.integer(keys::dpiX));
    }
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionSliderAcceleration() {
    fDriverData.set(
        keys::acceleration, sliderValueToAcceleration(fViews->main.quorviSliderAcceleration->floatValue()));
    updateAccelerationView();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionBoxAcceleration() {
    fDriverData.set(keys::enableAcceleration, fViews->main.quorviBoxAcceleration->isChecked());
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionBoxSensitivityOSD() {
    fDriverData.set(keys::sensitivityDisplay, fViews->main.quorviBoxSensitivityOSD->isChecked());
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionButtonEditStages() {
    editSensitivityStages();
}

} // namespace quorvi
