#include "pane/MenuKeys.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <utility>

#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

/// The key with its modifiers. Ignores whether an arrow key is the keypad's.
QKeySequence keysOf(const QKeyEvent& key) {
    return QKeySequence(int(key.modifiers() & ~Qt::KeypadModifier) | key.key());
}

} // namespace

MenuKeys::MenuKeys(KyvarQuorviTableView& table, const QMenu& menu, IsPossible isPossible)
    : QObject(&table), m_table(table), m_menu(menu), m_isPossible(std::move(isPossible)) {
    table.installEventFilter(this);
}

QAction* MenuKeys::itemOf(const QKeyEvent& key) const {
    const QKeySequence keys = keysOf(key);
    for (QAction* item : m_menu.actions())
        if (!item->shortcut().isEmpty() && item->shortcut() == keys)
            return item;
    return nullptr;
}

bool MenuKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if ((!asks && event->type() != QEvent::KeyPress) || m_table.isEditing())
        return QObject::eventFilter(watched, event);
    auto& key = static_cast<QKeyEvent&>(*event);
    QAction* item = itemOf(key);
    if (!item)
        return false;
    key.accept();
    // A disabled item does not trigger, so update its state first.
    if (!asks) {
        item->setEnabled(m_isPossible(item));
        item->trigger();
    }
    return true;
}

} // namespace quorvi
