// Every control's value and enabled state, derived in one place from the tree, the device's presence and
// whether a macro is being recorded, so that no two actions disagree.

#include <QCheckBox>
#include <QLabel>
#include <QTabWidget>

#include "live/LiveHelper.h"
#include "model/Keys.h"
#include "model/LightState.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "platform/ViewActivation.h"
#include "resources/Interface.h"
#include "sensitivity/AccelerationScale.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/MouseView.h"
#include "widgets/PopUpButton.h"
#include "widgets/ShownText.h"
#include "window/Unread.h"

namespace quorvi {

namespace {

QString firmwareText(std::int32_t firmware) {
    return QStringLiteral("%1.%2").arg((firmware >> 8) & 0xFF).arg(firmware & 0xFF, 2, 10, QLatin1Char('0'));
}

} // namespace

void KyvarQuorviPane::showDocument(Shown shown) {
    switch (shown) {
    case Shown::everything:
        updateUI();
        break;
    case Shown::lights:
        updateLightingUI();
        break;
    case Shown::acceleration:
        updateAccelerationView();
        break;
    case Shown::nothing:
        break;
    }
}

void KyvarQuorviPane::updateUI() {
    QString title = hasDevice() ? shownName(QString::fromStdU16String(fDocument.profile().string(keys::name)))
                                : locString(QStringLiteral("No device connected"));
    if (title.isEmpty())
        title = locString(QStringLiteral("Default Profile"));
    fViews->main.quorviTextProfile->setText(title);
    updateConnectionUI();
    makeViewActive(fViews->main.quorviTabsMain, hasDevice());
    fViews->main.quorviButtonCheckForUpdates->setEnabled(true);
    fViews->main.viewMouse->setEnabled(hasDevice());
    fViews->main.viewLights->setEnabled(hasDevice());
    for (int n = 1; n <= kAssignmentCount; ++n)
        updateMenu(fAssignmentMenus[static_cast<std::size_t>(n - 1)], n);
    updateSensitivityUI();
    if (fDocument.tree())
        fViews->main.quorviMenuPollingRate->selectItemWithTag(
            fDocument.settings().integer(keys::pollingRate));
    else
        fViews->main.quorviMenuPollingRate->selectNone(unreadText());
    fListEditors->profiles.show();
    fListEditors->macros.show();
    fListEditors->steps.show();
    updateRecordingUI();
    updateLightingUI();
    fLive->show();
    showRunningRow();
    fViews->main.quorviTextFirmwareVersion->setText(
        hasDevice() ? firmwareText(fDocument.tree().integer(keys::firmware)) : QStringLiteral("-"));
}

void KyvarQuorviPane::updateSensitivityUI() {
    const bool independent = fDocument.settings().boolean(keys::independentXY);
    // A blank keeps the label's height, so that nothing moves when the axes are separated.
    fViews->main.quorviTextXLabel->setText(independent ? QStringLiteral("X") : QStringLiteral(" "));
    fViews->main.quorviTextYLabel->setText(independent ? QStringLiteral("Y") : QStringLiteral(" "));
    fViews->main.quorviSliderSensitivityY->setEnabled(independent && hasDevice());
    updateDpiText();
    updateStagesView();
    fViews->main.quorviSliderSensitivityX->setValue(fDocument.settings().integer(keys::dpiX));
    fViews->main.quorviSliderSensitivityY->setValue(fDocument.settings().integer(keys::dpiY));
    fViews->main.quorviBoxIndependentXY->setChecked(independent);
    fViews->main.quorviBoxSensitivityOSD->setChecked(
        fDocument.driverData().boolean(keys::sensitivityDisplay));
    const bool accelerated = fDocument.driverData().boolean(keys::enableAcceleration);
    fViews->main.quorviBoxAcceleration->setChecked(accelerated);
    fViews->main.quorviSliderAcceleration->setEnabled(accelerated && hasDevice());
    fViews->main.quorviSliderAcceleration->setFloatValue(
        accelerationToSliderValue(static_cast<float>(fDocument.driverData().real(keys::acceleration))));
    updateAccelerationView();
}

void KyvarQuorviPane::updateLightingUI() {
    const std::int32_t lit = fDocument.profile().integer(keys::ledState);
    const bool wheel = (lit & lights::wheel) != 0;
    const bool battery = (lit & lights::battery) != 0;
    fViews->main.quorviBoxLightOnWheel->setChecked(wheel);
    fViews->main.quorviBoxLightOnBattery->setChecked(battery);
    fViews->main.viewMouse->setLights(wheel, battery);
    fViews->main.viewLights->setLights(wheel, battery);
}

} // namespace quorvi
