// The settings document as the controller uses it: where it is read from, and who hears of a save.

#include <utility>

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

plist::Dictionary KyvarQuorviPane::loadSettings() {
    return quorvi::loadSettings(fSettingsFile, defaultsFile(fServices.bundle));
}

bool KyvarQuorviPane::saveSettings(const plist::Dictionary& tree) {
    if (!tree)
        return false;
    const Durability durability = fDragging ? Durability::later : Durability::now;
    const bool saved = quorvi::saveSettings(tree, fSettingsFile, durability);
    fUnsavedEdits = fSaveHasFailed = !saved;
    if (fSettingsFile.tookChangesOver() && tree.isSameAs(fDocument.tree()))
        takeMergedSettingsOver();
    if (saved) {
        fSyncPending = fDragging;
        tellHelperOfSave();
        watchSettingsFile();
        fNotices.withdraw(Notice::saveFailed);
    } else {
        tellOfFailedSave(fSettingsFile.error());
    }
    if (const auto copy = fSettingsFile.takeKeptCopy())
        tellOfKeptCopy(*copy);
    return saved;
}

void KyvarQuorviPane::saveDocument() {
    saveSettings(fDocument.tree());
}

void KyvarQuorviPane::saveDocumentLater() {
    fUnsavedEdits = true;
    retryFailedSave();
}

void KyvarQuorviPane::dragDidBegin() {
    fDragging = true;
}

void KyvarQuorviPane::dragDidEnd() {
    fDragging = false;
    // What was told of must be on the disk in the end: a file that is gone or cannot be synced is written
    // anew.
    if (std::exchange(fSyncPending, false) && !syncFile(fSettingsFile.path(), fServices.files))
        saveSettings(fDocument.tree());
    if (fHelperGone)
        bringHelperBack();
    updateDpiOnMouse();
    // Later: a slider that goes with its window ends its drag as well, when half of the window is gone.
    QMetaObject::invokeMethod(this, &KyvarQuorviPane::followSettingsFile, Qt::QueuedConnection);
}

} // namespace quorvi
