// The settings document as the controller uses it: where it is read from, and who hears of a save.

#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"

namespace quorvi {

namespace {

std::string defaultsFile(const Bundle& bundle) {
    return bundle.pathForResource("Defaults", "plist").value_or("");
}

} // namespace

plist::Dictionary KyvarQuorviPane::getDefaultSettings() const {
    return quorvi::getDefaultSettings(defaultsFile(fServices.bundle));
}

plist::Dictionary KyvarQuorviPane::loadSettings() const {
    return quorvi::loadSettings(userSettingsPath(fServices.homeFolder), defaultsFile(fServices.bundle));
}

bool KyvarQuorviPane::saveSettings(const plist::Dictionary& tree) {
    if (!quorvi::saveSettings(tree, userSettingsPath(fServices.homeFolder)))
        return false;
    sendMessageToHelper(kMessageSettingsSaved, fProfileIndex);
    return true;
}

} // namespace quorvi
