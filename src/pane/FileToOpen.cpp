#include "pane/FileToOpen.h"

#include <utility>

namespace quorvi {

void FileToOpen::open(const QString& path) {
    m_path = path;
    tryLater();
}

void FileToOpen::tryLater() {
    if (!m_path.isEmpty())
        QMetaObject::invokeMethod(
            this, [this] { tryNow(); }, Qt::QueuedConnection);
}

void FileToOpen::tryNow() {
    if (!m_path.isEmpty() && m_panel.isFree())
        m_panel.open(std::exchange(m_path, {}));
}

} // namespace quorvi
