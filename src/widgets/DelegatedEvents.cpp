#include "widgets/DelegatedEvents.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include "widgets/KyvarQuorviTableView.h"
#include "widgets/TableDelegate.h"

namespace quorvi {

namespace {

bool isDown(const QMouseEvent& event) {
    return event.type() != QEvent::MouseButtonRelease;
}

int mouseEventType(const QMouseEvent& event) {
    switch (event.button()) {
    case Qt::LeftButton:
        return isDown(event) ? kLeftMouseDown : kLeftMouseUp;
    case Qt::RightButton:
        return isDown(event) ? kRightMouseDown : kRightMouseUp;
    default:
        return isDown(event) ? kOtherMouseDown : kOtherMouseUp;
    }
}

/// The character of a delete key; 0 for any other key.
char16_t deleteCharacter(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Backspace)
        return kDeleteKeyCharacter;
    if (event.key() == Qt::Key_Delete)
        return kForwardDeleteKeyCharacter;
    const QString text = event.text();
    const char16_t first = text.isEmpty() ? u'\0' : text.front().unicode();
    return first == kDeleteKeyCharacter || first == kForwardDeleteKeyCharacter ||
                   first == kDeleteCharacterKeyCharacter
               ? first
               : u'\0';
}

} // namespace

bool DelegatedEvents::takes(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        if (!takesButton(static_cast<QMouseEvent&>(event)))
            return false;
        event.accept();
        return true;
    case QEvent::MouseMove: // a drag from a press that the table did not receive must not select rows
        return bool(static_cast<QMouseEvent&>(event).buttons() & m_takenPresses);
    case QEvent::ContextMenu:
        return m_rightPressWasTaken &&
               static_cast<QContextMenuEvent&>(event).reason() == QContextMenuEvent::Mouse;
    default:
        return false;
    }
}

bool DelegatedEvents::takesButton(const QMouseEvent& event) {
    const bool taken = !m_delegate || m_delegate->handleMouseEvent(event, mouseEventType(event), &m_table);
    if (event.button() == Qt::RightButton && isDown(event))
        m_rightPressWasTaken = taken;
    m_takenPresses.setFlag(event.button(), taken && isDown(event));
    return taken;
}

bool DelegatedEvents::takesKey(const QKeyEvent& event) {
    const char16_t character = deleteCharacter(event);
    if (character == 0 || !m_delegate || !m_table.isEnabled())
        return false;
    m_delegate->handleKeyPressed(character, &m_table, m_table.selectedRow());
    return true;
}

} // namespace quorvi
