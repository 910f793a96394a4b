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
    appendItem(fDocument.profiles(), profile, untitledProfile());
    fDocument.editProfileIndex(static_cast<std::int32_t>(fDocument.profiles().size()) - 1);
    reloadTableViewDataQuietly(fViews->main.quorviTableProfiles);
    fViews->main.quorviTableProfiles->selectRowAlone(fDocument.profileIndex());
    updateProfilesSubmenu();
    fDocument.commit();
}

void KyvarQuorviPane::createNewProfile(bool duplicate) {
    if (int(fDocument.profiles().size()) >= limits::profiles)
        return;
    const plist::Dictionary profile = duplicate ? plist::mutableDeepCopy(fDocument.profile())
                                                : getDefaultSettings().array(keys::profiles).dictionary(0);
    if (!profile)
        return;
    if (!duplicate)
        profile.set(keys::name, untitledProfile());
    appendProfile(profile);
    fViews->main.quorviTableProfiles->editCell(kNameColumn, fDocument.profileIndex());
}

void KyvarQuorviPane::actionButtonProfileAdd() {
    createNewProfile(false);
}

bool KyvarQuorviPane::canRemoveProfile() const {
    const auto count = static_cast<std::int32_t>(fDocument.profiles().size());
    return count >= 2 && fDocument.profileIndex() >= 1 && fDocument.profileIndex() < count;
}

void KyvarQuorviPane::actionButtonProfileRemove() {
    if (!canRemoveProfile())
        return;
    const std::u16string name = fDocument.profile().string(keys::name);
    const PanelText text = panelText();
    const bool confirmed = fSheets.confirm(Question{
        "Delete profile: ^1\r\rAre you sure you want to delete this profile?",
        QString::fromStdU16String(name),
        effectOfRemovingProfile(fDocument.tree(), static_cast<std::size_t>(fDocument.profileIndex()), text),
        "Delete"});
    // The mouse may have been plugged in while the question stood, and the settings read afresh.
    if (!confirmed || !canRemoveProfile() || fDocument.profile().string(keys::name) != name)
        return;
    fDocument.profiles().remove(static_cast<std::size_t>(fDocument.profileIndex()));
    const auto last = static_cast<std::int32_t>(fDocument.profiles().size()) - 1;
    const std::int32_t next = std::min(fDocument.profileIndex(), last);
    reloadTableViewDataQuietly(fViews->main.quorviTableProfiles);
    fDocument.editProfileIndex(next);
    fViews->main.quorviTableProfiles->selectRowAlone(next);
    cleanUpSettings(fDocument.tree());
    updateProfilesSubmenu();
    fDocument.commit();
}

void KyvarQuorviPane::actionBoxProfileOSD() {
    fDocument.driverData().set(keys::profileDisplay, fViews->main.quorviBoxProfileOSD->isChecked());
    fDocument.commit({.shown = Shown::nothing});
}

} // namespace quorvi
