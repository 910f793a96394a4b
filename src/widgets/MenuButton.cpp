#include "widgets/MenuButton.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QKeyEvent>

#include "widgets/FlatButton.h"
#include "widgets/MenuItems.h"

namespace quorvi {

MenuButton::MenuButton(QWidget* parent) : SignButton(parent) {
    connect(this, &QPushButton::pressed, this, &MenuButton::openMenu);
}

void MenuButton::setCommands(QMenu* menu) {
    if (m_menu)
        m_menu->disconnect(this);
    m_menu = menu;
    if (!menu)
        return;
    closeWhenChosen(*menu);
    connect(menu, &QMenu::aboutToHide, this, [this] { setDown(false); });
}

void MenuButton::openMenu() {
    if (!m_menu)
        return;
    emit menuIsAboutToOpen();
    m_menu->popup(positionOfMenu(*m_menu, *this, rect()));
    if (!QGuiApplication::mouseButtons()) // by a key or by an assistive program
        activateFirstItem(*m_menu);
}

void MenuButton::keyPressEvent(QKeyEvent* event) {
    const bool opens =
        keyOpensMenu(event->key()) || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!m_menu || !opens || event->isAutoRepeat()) {
        QPushButton::keyPressEvent(event);
        return;
    }
    pressByOthers();
}

void MenuButton::pressByOthers() {
    if (!m_menu)
        return;
    setDown(true);
    openMenu();
}

void MenuButton::focusInEvent(QFocusEvent* event) {
    QPushButton::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        return;
    QAccessibleEvent focus(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
}

void MenuButton::paintEvent(QPaintEvent* event) {
    SignButton::paintEvent(event);
    if (isFlat())
        paintFocusFrame(*this, rect());
}

} // namespace quorvi
