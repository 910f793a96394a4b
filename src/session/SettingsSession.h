// The settings while the panel is loaded: read, saved, held until a save has succeeded, and followed when
// another program changes them.
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
    /// What it is given of the panel, which must outlive it; the view itself may go before.
    struct Panel {
        EditorContext context;
        QWidget& view;
        const Bundle& bundle;                   ///< the defaults are in it
        std::filesystem::path homeFolder;       ///< the settings file is below it
        FileCalls& files;                       ///< the settings file is written by these
        DatedCopies::Place copies;              ///< where earlier settings are kept
        std::unique_ptr<Occupation> occupation; ///< what following must not break off; never null
        /// Fills lists and menus from the document, with its current profile and macro selected. The
        /// document's owner shows the rest.
        std::function<void()> showLists;
    };

    explicit SettingsSession(Panel panel);

    /// The panel is shown: the settings file is followed from now on.
    void open() { m_isOpen = true; }
    /// The panel is hidden: the tree is saved and let go. One that cannot be saved is held until it can.
    void close();
    /// Removes what saves that were killed have left beside the settings file.
    void removeLeftovers();

    [[nodiscard]] plist::Dictionary defaults() const;
    [[nodiscard]] plist::Dictionary load();
    /// Puts the file's settings, repaired, into the document and has them shown; first saves what no file has
    /// yet, which is shown as it is when that fails.
    void readAfresh();

    /// Writes the tree to the user's settings file and, when that worked, says so by saved(). False when it
    /// did not. While the mouse drags a slider, the file is written and told of as ever, but brought to the
    /// disk only when the drag ends. What another program has changed meanwhile comes into the tree and is
    /// shown; where both have changed the same thing, the other program's is kept as a copy, and the user is
    /// told of it, as of a save that fails. The first save of a day that changes anything keeps what the file
    /// held as a dated copy; when that fails, the user is told and the tree is saved all the same. False, and
    /// nothing else, without a tree (nil).
    bool save(const plist::Dictionary& tree);
    /// The tree holds changes of the user's that the next save has to bring along.
    void noteUnsavedEdits() { m_unsavedEdits = true; }
    /// The same, and an occasion to try a save again that has failed.
    void saveLater();
    /// Saves what no file has yet. False when that fails; the tree is then the only place where it is.
    [[nodiscard]] bool saveUnsavedEdits();
    /// Tries again what the last save could not.
    void retryFailedSave();

    /// Keeps what the panel shows as a dated copy, for an editor that is about to do what the reason says.
    /// False when there is none now; the user is told why.
    bool keepCopyBefore(CopyReason reason);
    /// The dated copies, to be listed and read.
    [[nodiscard]] const History& history() const { return m_copies.history(); }

    /// What is changed from here on is one action.
    void beginDrag();
    /// Brings to the disk what was saved during the drag.
    void endDrag();
    [[nodiscard]] bool isDragging() const { return m_isDragging; }

    /// Takes over the settings that another program has put into the file, without saving or sending
    /// anything; later when the user is at something that this would break off, and not at all while there
    /// are changes that no file has yet.
    void followFile();

  signals:
    /// The file holds what the panel shows.
    void saved();

  private:
    enum class Repairs : std::uint8_t { saved, inMemoryAlone };

    void showFile(Repairs repairs);
    /// Shows the tree as it is now, with the macro at the index as the current one, -1 for none.
    void show(Repairs repairs, std::int32_t macroIndex);
    void watchFile();
    void followFileLater();
    /// Has the current items lead to what a save has brought into the tree, and the window show it when it is
    /// free.
    void takeMergedSettingsOver();

    Panel m_panel;
    QPointer<QWidget> m_view;
    Document& m_document;
    SaveNotices m_notices;
    DatedCopies m_copies;
    ConfigFile m_file;
    FileWatcher m_watcher;
    bool m_isOpen = false;
    bool m_isFollowed = false;    ///< what others have changed in the file since it was read last is known
    bool m_isDragging = false;    ///< the mouse is down on a slider
    bool m_syncPending = false;   ///< the file was written and is not known to be on the disk
    bool m_unsavedEdits = false;  ///< the tree holds changes of the user's that no file has yet
    bool m_saveHasFailed = false; ///< the last save has; the user was told
    bool m_mergedUnshown = false; ///< a save has brought others' changes into the tree that nobody sees yet
};

} // namespace quorvi
