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
    const bool bothAxes = !fDocument.stage().boolean(keys::independentXY);
    for (const plist::Dictionary& holder : {fDocument.stage(), fDocument.settings()}) {
        holder.set(keys::dpiX, slider->value());
        if (bothAxes)
            holder.set(keys::dpiY, slider->value());
    }
    fDocument.commit();
}

void KyvarQuorviPane::actionSliderSensitivityY(KyvarQuorviSlider* slider) {
    for (const plist::Dictionary& holder : {fDocument.stage(), fDocument.settings()})
        holder.set(keys::dpiY, slider->value());
    fDocument.commit();
}

void KyvarQuorviPane::actionBoxIndependentXY(QAbstractButton* box) {
    for (const plist::Dictionary& holder : {fDocument.stage(), fDocument.settings()}) {
        holder.set(keys::independentXY, box->isChecked());
        if (!box->isChecked())
            holder.set(keys::dpiY, holder.integer(keys::dpiX));
    }
    fDocument.commit();
}

void KyvarQuorviPane::actionSliderAcceleration() {
    fDocument.driverData().set(
        keys::acceleration, sliderValueToAcceleration(fViews->main.quorviSliderAcceleration->floatValue()));
    fDocument.commit({.shown = Shown::acceleration});
}

void KyvarQuorviPane::actionBoxAcceleration() {
    fDocument.driverData().set(keys::enableAcceleration, fViews->main.quorviBoxAcceleration->isChecked());
    fDocument.commit();
}

void KyvarQuorviPane::actionBoxSensitivityOSD() {
    fDocument.driverData().set(keys::sensitivityDisplay, fViews->main.quorviBoxSensitivityOSD->isChecked());
    fDocument.commit({.shown = Shown::nothing});
}

void KyvarQuorviPane::actionButtonEditStages() {
    editSensitivityStages();
}

} // namespace quorvi
