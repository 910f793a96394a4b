#include "widgets/AccessibleMenuButton.h"

#include "widgets/MenuButton.h"

namespace quorvi {

AccessibleMenuButton::AccessibleMenuButton(MenuButton* button)
    : QAccessibleWidget(button, QAccessible::PushButton) {}

MenuButton& AccessibleMenuButton::button() const {
    return static_cast<MenuButton&>(*widget());
}

QAccessible::State AccessibleMenuButton::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    state.pressed = button().isDown();
    return state;
}

QStringList AccessibleMenuButton::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (button().isEnabled())
        names.prepend(pressAction());
    return names;
}

void AccessibleMenuButton::doAction(const QString& action) {
    if (action != pressAction())
        QAccessibleWidget::doAction(action);
    else if (button().isEnabled())
        button().pressByOthers();
}

} // namespace quorvi
