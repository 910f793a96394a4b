// The commands that belong to no editor: polling rate, lights, restoring defaults, updates and help.

#include <QCheckBox>
#include <QTabWidget>

#include "model/Keys.h"
#include "model/LightState.h"
#include "pane/HelpPages.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/PopUpButton.h"

namespace quorvi {

namespace {

constexpr int kLowestPollingRate = 125;   // Hz, as of every USB low-speed device
constexpr int kHighestPollingRate = 1000; // Hz, one report in each USB frame
constexpr const char* kUpdatesPage = "https://www.kyvar.com/quorvi/support";

/// A key that the source lacks leaves the target's value as it is.
void copyValues(const plist::Dictionary& source, const plist::Dictionary& target,
    std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names)
        if (source.has(name))
            target.set(name, source.value(name));
}

} // namespace

void KyvarQuorviPane::actionMenuPollingRate() {
    const int rate = fViews->main.quorviMenuPollingRate->selectedTag();
    if (rate >= kLowestPollingRate && rate <= kHighestPollingRate)
        fSettings.set(keys::pollingRate, rate);
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::setLight(std::int32_t bit, bool on) {
    const std::int32_t lit = fProfile.integer(keys::ledState);
    fProfile.set(keys::ledState, on ? (lit | bit) : (lit & ~bit));
    updateLightingUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionBoxLightOnWheel() {
    setLight(lights::wheel, fViews->main.quorviBoxLightOnWheel->isChecked());
}

void KyvarQuorviPane::actionBoxLightOnBattery() {
    setLight(lights::battery, fViews->main.quorviBoxLightOnBattery->isChecked());
}

void KyvarQuorviPane::restoreDefaultsFrom(const plist::Dictionary& defaults) {
    copyValues(defaults, fDeviceConfig, {keys::settings});
    const plist::Dictionary first = defaults.array(keys::profiles).dictionary(0);
    copyValues(first, fProfile, {keys::ledState, keys::defaultStage, keys::stages, keys::buttons});
    copyValues(first.dictionary(keys::driver), fProfile.dictionary(keys::driver),
        {keys::profileDisplay, keys::sensitivityDisplay, keys::enableAcceleration, keys::acceleration});
    editProfileIndex(fProfileIndex);
}

void KyvarQuorviPane::actionButtonRestoreDefaults() {
    if (!confirmAction(
            QStringLiteral("Are you sure you want to restore all settings to default?"), std::nullopt))
        return;
    if (const plist::Dictionary defaults = getDefaultSettings())
        restoreDefaultsFrom(defaults);
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionButtonCheckUpdates() {
    fServices.workspace->openUrl(QString::fromLatin1(kUpdatesPage));
}

void KyvarQuorviPane::actionButtonHelp() {
    const auto index = fServices.bundle.pathForResource("index", "html", "Help");
    const int tab = fViews->main.quorviTabsMain->currentIndex();
    fServices.workspace->openFile(index ? QString::fromStdString(helpPageOfTab(*index, tab)) : QString());
}

} // namespace quorvi
