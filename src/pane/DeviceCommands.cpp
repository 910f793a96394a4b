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
        fDocument.settings().set(keys::pollingRate, rate);
    fDocument.commit();
}

void KyvarQuorviPane::setLight(std::int32_t bit, bool on) {
    const std::int32_t lit = fDocument.profile().integer(keys::ledState);
    fDocument.profile().set(keys::ledState, on ? (lit | bit) : (lit & ~bit));
    fDocument.commit({.shown = Shown::lights});
}

void KyvarQuorviPane::actionBoxLightOnWheel() {
    setLight(lights::wheel, fViews->main.quorviBoxLightOnWheel->isChecked());
}

void KyvarQuorviPane::actionBoxLightOnBattery() {
    setLight(lights::battery, fViews->main.quorviBoxLightOnBattery->isChecked());
}

void KyvarQuorviPane::restoreDefaultsFrom(const plist::Dictionary& defaults) {
    copyValues(defaults, fDocument.tree(), {keys::settings});
    const plist::Dictionary first = defaults.array(keys::profiles).dictionary(0);
    copyValues(first, fDocument.profile(), {keys::ledState, keys::defaultStage, keys::stages, keys::buttons});
    copyValues(first.dictionary(keys::driver), fDocument.profile().dictionary(keys::driver),
        {keys::profileDisplay, keys::sensitivityDisplay, keys::enableAcceleration, keys::acceleration});
    fDocument.editProfileIndex(fDocument.profileIndex());
}

void KyvarQuorviPane::actionButtonRestoreDefaults() {
    if (!fSheets.confirm(Question{"Are you sure you want to restore all settings to default?"}))
        return;
    if (const plist::Dictionary defaults = getDefaultSettings())
        restoreDefaultsFrom(defaults);
    fDocument.commit();
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
