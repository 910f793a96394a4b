// The settings while the panel is loaded: reads and saves them, keeps them until a save succeeds, and follows
// other programs' changes.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>

#include "model/ConfigFile.h"
#include "platform/Bundle.h"
#include "platform/FileWatcher.h"
#include "plist/Value.h"
#include "session/DatedCopies.h"
#include "session/SaveNotices.h"
#include "window/EditorContext.h"
#include "window/Occupation.h"

namespace quorvi {

class SettingsSession final : public QObject {
    Q_OBJECT

  public:
    /// The parts of the panel that it uses, which must outlive it, except the view.
    struct Panel {
        EditorContext context;
        QWidget& view;
        const Bundle& bundle;                   ///< contains the defaults
        std::filesystem::path homeFolder;       ///< the settings file is below it
        FileCalls& files;                       ///< the system calls for writing the settings file
        DatedCopies::Place copies;              ///< the folder for earlier settings
        std::unique_ptr<Occupation> occupation; ///< user actions that following must not interrupt; never
                                                ///< null
        /// Fills lists and menus from the document, and selects its current profile and macro. The document's
        /// owner shows the rest.
        std::function<void()> showLists;
    };

    explicit SettingsSession(Panel panel);

    /// Call this when the panel is shown: follows the settings file from now on.
    void open() { m_isOpen = true; }
    /// Call this when the panel is hidden: saves and releases the tree. If it cannot be saved, keeps it until
    /// it can.
    void close();
    /// Removes temporary files of killed saves from the settings file's folder.
    void removeLeftovers();

    [[nodiscard]] plist::Dictionary defaults() const;
    [[nodiscard]] plist::Dictionary load();
    /// Reads the file's settings into the document, repairs them and shows them. First saves unsaved changes;
    /// if that fails, keeps showing them.
    void readAfresh();

    /// Writes the tree to the user's settings file and emits saved(). Returns false on failure, or if the
    /// tree is nil. While the mouse drags a slider, the file is written and saved() emitted as usual, but
    /// synced only at the end of the drag. Another program's changes are merged into the tree and shown; in a
    /// conflict the other program's version is kept as a copy. The user is notified of the copy, and of a
    /// failed save. The first save of a day that changes anything keeps the old content as a dated copy; if
    /// that fails, the user is notified and the tree is still saved.
    bool save(const plist::Dictionary& tree);
    /// Notes that the tree holds user changes that the next save must include.
    void noteUnsavedEdits() { m_unsavedEdits = true; }
    /// The same, and retries a failed save.
    void saveLater();
    /// Saves unsaved changes. Returns false if that fails; they are then only in the tree.
    [[nodiscard]] bool saveUnsavedEdits();
    /// Retries the last save if it failed.
    void retryFailedSave();

    /// Keeps the shown settings as a dated copy before an editor's action. Returns false if that fails; the
    /// user is told why.
    bool keepCopyBefore(CopyReason reason);
    /// The dated copies, for listing and reading.
    [[nodiscard]] const History& history() const { return m_copies.history(); }

    /// All changes from now on are one action.
    void beginDrag();
    /// Syncs the file saved during the drag.
    void endDrag();
    [[nodiscard]] bool isDragging() const { return m_isDragging; }

    /// Adopts another program's settings from the file, without saving or sending anything. Postponed while
    /// it would interrupt the user, and skipped while there are unsaved changes.
    void followFile();

  signals:
    /// The file holds the shown settings.
    void saved();

  private:
    enum class Repairs : std::uint8_t { saved, inMemoryAlone };

    void showFile(Repairs repairs);
    /// Shows the present tree, with the macro at the index as the current one; -1 for none.
    void show(Repairs repairs, std::int32_t macroIndex);
    void watchFile();
    void followFileLater();
    /// Updates the current items after a merge, and shows them once the user is not interrupted.
    void takeMergedSettingsOver();

    Panel m_panel;
    QPointer<QWidget> m_view;
    Document& m_document;
    SaveNotices m_notices;
    DatedCopies m_copies;
    ConfigFile m_file;
    FileWatcher m_watcher;
    bool m_isOpen = false;
    bool m_isFollowed = false;    ///< other programs' changes since the last read can be detected
    bool m_isDragging = false;    ///< the mouse button is down on a slider
    bool m_syncPending = false;   ///< the file was written but not synced
    bool m_unsavedEdits = false;  ///< the tree holds unsaved user changes
    bool m_saveHasFailed = false; ///< the last save failed; the user was told
    bool m_mergedUnshown = false; ///< merged changes of other programs are not shown yet
};

} // namespace quorvi
