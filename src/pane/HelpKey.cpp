#include "pane/HelpKey.h"

#include <QKeyEvent>
#include <QWidget>

namespace quorvi {

HelpKey::HelpKey(QWidget& view) : QObject(&view) {
    view.installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if (!asks && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto& key = static_cast<QKeyEvent&>(*event);
    if (!key.matches(QKeySequence::HelpContents))
        return false;
    key.accept();
    if (!asks && !key.isAutoRepeat())
        emit pressed();
    return true;
}

} // namespace quorvi
