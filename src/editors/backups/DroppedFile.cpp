#include "editors/backups/DroppedFile.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace quorvi {

DroppedFile::DroppedFile(QWidget& view, Receiver receiver) : QObject(&view), m_receiver(std::move(receiver)) {
    view.setAcceptDrops(true);
    view.installEventFilter(this);
}

QString DroppedFile::fileIn(const QMimeData* dragged) const {
    const QList<QUrl> urls = dragged ? dragged->urls() : QList<QUrl>();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return {};
    const QString path = urls.first().toLocalFile();
    return QFileInfo(path).isFile() && m_receiver.takes(path) ? path : QString();
}

bool DroppedFile::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    // The common base of the three: entering and moving derive from drops.
    auto& drop = static_cast<QDropEvent&>(*event);
    const QString path = fileIn(drop.mimeData());
    if (path.isEmpty()) {
        drop.ignore();
        return true;
    }
    // Never move the file, whatever the desktop proposes.
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    if (type == QEvent::Drop)
        QMetaObject::invokeMethod(
            this, [this, path] { m_receiver.open(path); }, Qt::QueuedConnection);
    return true;
}

} // namespace quorvi
