#include "editors/assignment/InputMenu.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <utility>

#include "editors/assignment/InputActions.h"
#include "editors/assignment/InputCopies.h"
#include "model/Keys.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

void addItem(QMenu& menu, const QString& title, bool isPossible, const std::function<void()>& perform) {
    QAction* item = menu.addAction(QString());
    setTitleOfItem(*item, title);
    item->setEnabled(isPossible);
    QObject::connect(item, &QAction::triggered, &menu, perform);
}

/// A menu is a window, and does not inherit the direction of its owner.
QMenu& addSubmenu(QMenu& menu, const QString& title) {
    QMenu& submenu = *menu.addMenu(QString());
    submenu.setLayoutDirection(menu.layoutDirection());
    setTitleOfItem(*submenu.menuAction(), title);
    return submenu;
}

} // namespace

InputMenu::InputMenu(const EditorContext& context, const AssignmentPopUps& popUps, Others others)
    : m_document(context.document), m_text(context.text), m_popUps(popUps), m_others(std::move(others)) {
    for (PopUpButton* popUp : m_popUps)
        popUp->installEventFilter(this);
}

// Filters before the pop-up itself, because a disabled one passes the event to its parent.
bool InputMenu::eventFilter(QObject* watched, QEvent* event) {
    const bool byKeys =
        event->type() == QEvent::KeyPress && keyOpensContextMenu(*static_cast<QKeyEvent*>(event));
    if (!byKeys && event->type() != QEvent::ContextMenu)
        return QObject::eventFilter(watched, event);
    std::optional<QPoint> point;
    if (event->type() == QEvent::ContextMenu)
        if (const auto* asked = static_cast<QContextMenuEvent*>(event);
            asked->reason() != QContextMenuEvent::Keyboard)
            point = asked->globalPos();
    open(*static_cast<PopUpButton*>(watched), point);
    return true;
}

void InputMenu::open(PopUpButton& popUp, const std::optional<QPoint>& point) {
    if (!popUp.isEnabled() || !m_document.hasDevice() || !m_document.profile())
        return;
    const auto input = static_cast<int>(std::ranges::find(m_popUps, &popUp) - m_popUps.begin()) + 1;
    QMenu& menu = *new QMenu(&popUp);
    connect(&menu, &QMenu::aboutToHide, &menu, &QObject::deleteLater);
    closeWhenChosen(menu);
    menu.setAccessibleName(popUp.accessibleName());
    menu.setLayoutDirection(popUp.layoutDirection());
    addReset(menu, input);
    menu.addSeparator();
    addCopies(menu, input);
    addCopiesOfAll(menu);
    menu.popup(point.value_or(positionOfMenu(menu, popUp, popUp.rect())));
    if (!point)
        activateFirstItem(menu);
}

void InputMenu::addReset(QMenu& menu, int input) {
    const plist::Dictionary source = m_others.defaultSettings().array(keys::profiles).dictionary(0);
    const QString text = m_text("Reset to “^1”");
    const QString function = nameWithin(text, m_others.titleOf(input, assignmentIn(source, input)));
    addItem(menu, filledText(text, {function}), canTakeInput(m_document.profile(), input, source),
        [this, input, source, here = placeOf(m_document.profileIndex())] {
            if (isCurrent(here) && takeInput(m_document.profile(), input, source))
                m_document.commit({.action = resetAction(input, m_text)});
        });
}

void InputMenu::addCopies(QMenu& menu, int input) {
    QMenu& submenu = addSubmenu(menu, m_text("Copy from Profile"));
    for (const Place& from : otherProfiles()) {
        const QString text = m_text("^1 – ^2");
        const QString function =
            nameWithin(text, m_others.titleOf(input, assignmentIn(profileAt(from), input)));
        addItem(submenu, filledText(text, {nameFor(text, QString::fromStdU16String(from.name)), function}),
            canTakeInput(m_document.profile(), input, profileAt(from)),
            [this, input, from, here = placeOf(m_document.profileIndex())] {
                if (isCurrent(here) && takeInput(m_document.profile(), input, profileAt(from)))
                    m_document.commit({.action = copyAction(input, from.name, m_text)});
            });
    }
    submenu.setEnabled(!submenu.isEmpty());
}

void InputMenu::addCopiesOfAll(QMenu& menu) {
    QMenu& submenu = addSubmenu(menu, m_text("Copy All Inputs from Profile"));
    for (const Place& from : otherProfiles())
        addItem(submenu, nameFor({}, QString::fromStdU16String(from.name)),
            canTakeAllInputs(m_document.profile(), profileAt(from)),
            [this, from, here = placeOf(m_document.profileIndex())] {
                if (isCurrent(here) && takeAllInputs(m_document.profile(), profileAt(from)))
                    m_document.commit({.action = copyAllAction(from.name, m_text)});
            });
    submenu.setEnabled(!submenu.isEmpty());
}

InputMenu::Place InputMenu::placeOf(std::size_t index) const {
    return {index, m_document.profiles().dictionary(index).string(keys::name)};
}

std::vector<InputMenu::Place> InputMenu::otherProfiles() const {
    std::vector<Place> others;
    for (std::size_t index = 0; index < m_document.profiles().size(); ++index)
        if (index != static_cast<std::size_t>(m_document.profileIndex()))
            others.push_back(placeOf(index));
    return others;
}

/// Nil if there is another profile by now, which must not be used.
plist::Dictionary InputMenu::profileAt(const Place& place) const {
    const plist::Dictionary profile = m_document.profiles().dictionary(place.index);
    return profile.string(keys::name) == place.name ? profile : plist::Dictionary();
}

bool InputMenu::isCurrent(const Place& place) const {
    return profileAt(place).isSameAs(m_document.profile());
}

} // namespace quorvi
