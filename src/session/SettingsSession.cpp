#include "session/SettingsSession.h"

#include <string>
#include <utility>

#include "base/Leftovers.h"
#include "document/Document.h"
#include "model/SettingsDocument.h"

namespace quorvi {

namespace {

std::string defaultsFile(const Bundle& bundle) {
    return bundle.pathForResource("Defaults", "plist").value_or("");
}

} // namespace

SettingsSession::SettingsSession(Panel panel)
    : m_panel(std::move(panel)), m_view(&m_panel.view), m_document(m_panel.context.document),
      m_notices(m_panel.context.notices, m_panel.context.text, m_panel.homeFolder),
      m_copies(std::move(m_panel.copies), m_panel.files, m_notices),
      m_file(userSettingsFile(m_panel.homeFolder, m_panel.files)) {
    connect(&m_watcher, &FileWatcher::fileChanged, this, &SettingsSession::followFile);
    connect(m_panel.occupation.get(), &Occupation::ended, this, &SettingsSession::followFile,
        Qt::QueuedConnection);
}

void SettingsSession::close() {
    m_isOpen = false;
    m_watcher.stop();
    m_panel.occupation->stopAwaiting();
    if (m_document.tree()) {
        if (m_view && !m_unsavedEdits && othersChangedSettings(m_file))
            showFile(Repairs::inMemoryAlone); // the next save must contain their settings
        // An unsaved tree is kept until it can be saved; it is not overwritten by reading.
        if (save(m_document.tree()))
            m_document.setTree({});
    }
    if (!m_document.tree())
        m_file.forget();
    m_isFollowed = false;
    m_mergedUnshown = false;
    m_document.editProfileIndex(-1);
    m_document.editMacroIndex(-1);
}

void SettingsSession::removeLeftovers() {
    quorvi::removeLeftovers(m_file.path(), m_panel.files);
}

plist::Dictionary SettingsSession::defaults() const {
    return getDefaultSettings(defaultsFile(m_panel.bundle));
}

plist::Dictionary SettingsSession::load() {
    return loadSettings(m_file, defaultsFile(m_panel.bundle));
}

void SettingsSession::readAfresh() {
    // Reading must not discard unsaved changes.
    if (saveUnsavedEdits())
        showFile(Repairs::saved);
    else
        show(Repairs::inMemoryAlone, -1);
    watchFile();
}

void SettingsSession::showFile(Repairs repairs) {
    // The panel's own repairs since the last read or save are not another program's change. If the file was
    // not followed, assume one.
    const bool isOthers = !std::exchange(m_isFollowed, true) || othersChangedSettings(m_file);
    m_document.setTree(load());
    if (isOthers)
        m_document.takeOthersOver();
    m_unsavedEdits = m_saveHasFailed = false;
    cleanUpSettings(m_document.tree());
    show(repairs, -1);
}

void SettingsSession::show(Repairs repairs, std::int32_t macroIndex) {
    m_mergedUnshown = false;
    m_document.editProfileIndex(m_document.profileIndexOfSettings());
    m_document.editMacroIndex(macroIndex);
    m_panel.showLists();
    m_document.alignIndependentAxes();
    const bool repaired = m_document.alignStageWithSettings();
    m_document.commit({.saving = repaired && repairs == Repairs::saved ? Saving::now : Saving::never});
    m_document.takeRepairsOver();
}

bool SettingsSession::save(const plist::Dictionary& tree) {
    if (!tree)
        return false;
    m_copies.keepBeforeFirstChange(m_file.path(), tree);
    const bool isSaved = saveSettings(tree, m_file, m_isDragging ? Durability::later : Durability::now);
    m_unsavedEdits = m_saveHasFailed = !isSaved;
    if (m_file.tookChangesOver() && tree.isSameAs(m_document.tree()))
        takeMergedSettingsOver();
    if (isSaved) {
        m_syncPending = m_isDragging;
        emit saved();
        watchFile();
        m_notices.savesWork();
    } else {
        m_notices.tellOfFailure(m_file.path(), m_file.error());
    }
    if (const auto copy = m_file.takeKeptCopy())
        m_notices.tellOfKeptCopy(m_file.path(), *copy);
    return isSaved;
}

void SettingsSession::saveLater() {
    noteUnsavedEdits();
    retryFailedSave();
}

bool SettingsSession::saveUnsavedEdits() {
    if (!m_document.tree() || !m_unsavedEdits)
        return true;
    if (m_document.profileIndex() < 0) // the panel was hidden, and could not save then
        m_document.editProfileIndex(m_document.profileIndexOfSettings());
    return save(m_document.tree());
}

void SettingsSession::retryFailedSave() {
    if (m_saveHasFailed)
        static_cast<void>(saveUnsavedEdits());
}

bool SettingsSession::keepCopyBefore(CopyReason reason) {
    return m_copies.keep(m_document.tree(), reason);
}

void SettingsSession::beginDrag() {
    m_isDragging = true;
    m_document.beginGroup();
}

void SettingsSession::endDrag() {
    if (std::exchange(m_isDragging, false))
        m_document.endGroup();
    // An announced save must reach the disk: if the file is gone or cannot be synced, write it again.
    if (std::exchange(m_syncPending, false) && !syncFile(m_file.path(), m_panel.files))
        save(m_document.tree());
    // A slider destroyed with its window also ends its drag, when half of the window is gone.
    followFileLater();
}

void SettingsSession::watchFile() {
    if (m_isOpen && !m_watcher.isWatching())
        m_watcher.watch(m_file.path());
}

void SettingsSession::followFile() {
    m_panel.occupation->stopAwaiting();
    if (!m_view || !m_isOpen || !m_document.tree())
        return;
    watchFile();
    if (m_isDragging || m_panel.occupation->isUnderWay())
        m_panel.occupation->awaitEnd(); // the end of a drag checks anyway
    else if (!m_unsavedEdits && othersChangedSettings(m_file))
        showFile(Repairs::inMemoryAlone);
    else if (m_mergedUnshown)
        show(Repairs::inMemoryAlone, m_document.macroIndex());
}

void SettingsSession::followFileLater() {
    QMetaObject::invokeMethod(this, &SettingsSession::followFile, Qt::QueuedConnection);
}

void SettingsSession::takeMergedSettingsOver() {
    if (!m_isOpen)
        return; // about to be released
    m_document.editSameItems();
    m_document.takeOthersOver();
    m_mergedUnshown = true;
    followFileLater(); // the caller of the save still uses the current items
}

} // namespace quorvi
