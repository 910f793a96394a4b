// Other programs at the settings file: their settings are taken over when that breaks nothing off, and kept
// beside the file when it would.

#include <QAbstractItemDelegate>
#include <QApplication>
#include <QMenu>

#include <algorithm>

#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/NoticeBar.h"
#include "widgets/ShownText.h"

namespace quorvi {

void KyvarQuorviPane::watchSettingsFile() {
    if (fReceiveListUPP && !fSettingsWatcher.isWatching())
        fSettingsWatcher.watch(fSettingsFile.path());
}

void KyvarQuorviPane::followSettingsFile() {
    fFollowLater.reset();
    if (!fMainView || !fReceiveListUPP || !fDocument.tree())
        return;
    watchSettingsFile();
    if (userIsAtSomething())
        followSettingsFileWhenFree();
    else if (!fUnsavedEdits && othersChangedSettings(fSettingsFile))
        showSettingsOfFile(Repairs::inMemoryAlone);
    else if (fMergedUnshown)
        showSettings(Repairs::inMemoryAlone, fDocument.macroIndex());
}

// Not at once: whatever has saved goes on with the handles that it has.
void KyvarQuorviPane::takeMergedSettingsOver() {
    if (!fReceiveListUPP)
        return; // about to be let go
    fDocument.editSameItems();
    fMergedUnshown = true;
    QMetaObject::invokeMethod(this, &KyvarQuorviPane::followSettingsFile, Qt::QueuedConnection);
}

bool KyvarQuorviPane::userIsAtSomething() const {
    const auto edited = [](const KyvarQuorviTableView* table) { return table->isEditing(); };
    const auto lists = tables();
    return fRecorder.isRecording() || fDragging || fSheets.isRunning() || QApplication::activeModalWidget() ||
           QApplication::activePopupWidget() || std::any_of(lists.begin(), lists.end(), edited);
}

// The end of a drag asks anyway, so does the window when a sheet gives the focus back, and a recording saves.
void KyvarQuorviPane::followSettingsFileWhenFree() {
    fFollowLater = std::make_unique<QObject>();
    // Twice around the event loop: what was chosen or typed comes first. The signals themselves are not
    // queued, because Qt 5 cannot do that with what they say.
    const auto next = [this] {
        QMetaObject::invokeMethod(this, &KyvarQuorviPane::followSettingsFile, Qt::QueuedConnection);
    };
    const auto later = [this, next] {
        QMetaObject::invokeMethod(fFollowLater.get(), next, Qt::QueuedConnection);
    };
    if (const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        connect(menu, &QMenu::aboutToHide, fFollowLater.get(), later);
    for (const KyvarQuorviTableView* table : tables())
        connect(table->itemDelegate(), &QAbstractItemDelegate::closeEditor, fFollowLater.get(), later);
}

QString KyvarQuorviPane::pathFromHome(const std::filesystem::path& path) const {
    return QString::fromStdString("~/" + path.lexically_relative(fServices.homeFolder).string());
}

void KyvarQuorviPane::tellOfKeptCopy(const std::filesystem::path& copy) {
    QString text =
        locString(QStringLiteral("Another program has changed the settings as well. This panel's are in "
                                 "use, the other ones are kept in ^1. To use those, close this panel and "
                                 "rename that file to ^2."));
    const QString own = QString::fromStdString(fSettingsFile.path().filename());
    text.replace(QStringLiteral("^2"), nameWithin(text, own));
    text.replace(QStringLiteral("^1"), nameWithin(text, pathFromHome(copy)));
    fNotices.tell(Notice::keptCopy, text, NoticeSign::warning);
}

} // namespace quorvi
