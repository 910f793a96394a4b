// The list of profiles: new, duplicated and removed ones, and whether a profile is displayed.

#include <QCheckBox>

#include "editors/RemovalTexts.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"
#include "plist/DeepCopy.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

constexpr int kNameColumn = 1;

} // namespace

std::u16string KyvarQuorviPane::untitledProfile() const {
    return locString(QStringLiteral("Untitled Profile")).toStdU16String();
}

void KyvarQuorviPane::appendProfile(const plist::Dictionary& profile) {
    appendItem(fProfiles, profile, untitledProfile());
    editProfileIndex(static_cast<std::int32_t>(fProfiles.size()) - 1);
    reloadTableViewDataQuietly(fViews->main.quorviTableProfiles);
    fViews->main.quorviTableProfiles->selectRowAlone(fProfileIndex);
    updateProfilesSubmenu();
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::createNewProfile(bool duplicate) {
    if (int(fProfiles.size()) >= limits::profiles)
        return;
    const plist::Dictionary profile = duplicate ? plist::mutableDeepCopy(fProfile)
                                                : getDefaultSettings().array(keys::profiles).dictionary(0);
    if (!profile)
        return;
    if (!duplicate)
        profile.set(keys::name, untitledProfile());
    appendProfile(profile);
    fViews->main.quorviTableProfiles->editCell(kNameColumn, fProfileIndex);
}

void KyvarQuorviPane::actionButtonProfileAdd() {
    createNewProfile(false);
}

bool KyvarQuorviPane::canRemoveProfile() const {
    const auto count = static_cast<std::int32_t>(fProfiles.size());
    return count >= 2 && fProfileIndex >= 1 && fProfileIndex < count;
}

void KyvarQuorviPane::actionButtonProfileRemove() {
    if (!canRemoveProfile())
        return;
    const std::u16string name = fProfile.string(keys::name);
    const PanelText text = panelText();
    const bool confirmed =
        confirmAction(QStringLiteral("Delete profile: ^1\r\rAre you sure you want to delete this profile?"),
            QString::fromStdU16String(name),
            effectOfRemovingProfile(fDeviceConfig, static_cast<std::size_t>(fProfileIndex), text),
            QStringLiteral("Delete"));
    // The mouse may have been plugged in while the question stood, and the settings read afresh.
    if (!confirmed || !canRemoveProfile() || fProfile.string(keys::name) != name)
        return;
    fProfiles.remove(static_cast<std::size_t>(fProfileIndex));
    const auto last = static_cast<std::int32_t>(fProfiles.size()) - 1;
    const std::int32_t next = std::min(fProfileIndex, last);
    reloadTableViewDataQuietly(fViews->main.quorviTableProfiles);
    editProfileIndex(next);
    fViews->main.quorviTableProfiles->selectRowAlone(next);
    cleanUpSettings(fDeviceConfig);
    updateProfilesSubmenu();
    updateUI();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::actionBoxProfileOSD() {
    fDriverData.set(keys::profileDisplay, fViews->main.quorviBoxProfileOSD->isChecked());
    saveSettings(fDeviceConfig);
}

} // namespace quorvi
