#include "editors/assignment/AssignmentLists.h"

#include <QMenu>

#include <algorithm>
#include <utility>

#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"

namespace quorvi {

namespace {

/// A submenu's fixed entry and its separator; the profiles or macros follow.
constexpr int kFixedSubmenuItems = 2;
/// An open menu is laid out again at every change of an item, which takes seconds beyond this length.
constexpr std::size_t kLongestListChangedWhileOpen = 100;

/// The menu's item at the index, or a new one at the end. A remaining entry keeps its item: the menu may be
/// open, with that item under the pointer.
QAction& entryAt(QMenu& menu, const QList<QAction*>& existing, qsizetype index) {
    return index < existing.size() ? *existing[index] : *menu.addAction(QString());
}

} // namespace

/// Makes the items after the fixed ones list the entries, with the first fixed item's action.
void AssignmentLists::listInSubmenu(QMenu& submenu, PopUpButton& popUp, const Entries& entries) {
    const QList<QAction*> existing = submenu.actions();
    if (std::max(entries.size(), static_cast<std::size_t>(existing.size())) > kLongestListChangedWhileOpen)
        submenu.hide();
    for (std::size_t index = 0; index < entries.size(); ++index) {
        QAction& item = entryAt(submenu, existing, static_cast<qsizetype>(index) + kFixedSubmenuItems);
        setTitleOfItem(item, entries[index].title);
        setTagOfItem(item, entries[index].tag);
        item.setProperty(kActionProperty, existing.front()->property(kActionProperty));
        item.setProperty(kRepresentedObject, QVariant::fromValue<QObject*>(&popUp));
    }
    for (auto index = existing.size() - 1;
         index >= static_cast<qsizetype>(entries.size()) + kFixedSubmenuItems; --index)
        delete existing[index];
}

/// A menu that is not built yet gets its lists when it is.
void AssignmentLists::listIn(PopUpButton& popUp, int command, const Entries& entries) {
    if (popUp.awaitsMenu())
        return;
    const QAction* item = popUp.itemWithTag(command);
    if (item && item->menu())
        listInSubmenu(*item->menu(), popUp, entries);
}

template <typename Tag>
AssignmentLists::Entries AssignmentLists::entriesOf(const plist::Array& list, const Tag& tagOf) {
    Entries entries;
    entries.reserve(list.size());
    for (std::size_t index = 0; index < list.size(); ++index) {
        const QString name = QString::fromStdU16String(list.dictionary(index).string(keys::name));
        entries.push_back({name.isEmpty() ? QStringLiteral("?") : name, tagOf(index)});
    }
    return entries;
}

void AssignmentLists::follow(Entries& listed, Entries entries, int command) const {
    if (entries == listed)
        return;
    listed = std::move(entries);
    for (PopUpButton* popUp : m_popUps)
        listIn(*popUp, command, listed);
}

void AssignmentLists::listProfiles(const plist::Array& profiles) {
    follow(m_profiles,
        entriesOf(profiles, [](std::size_t index) { return static_cast<std::int32_t>(index); }),
        commands::switchToProfile);
}

void AssignmentLists::listMacros(const plist::Array& macros) {
    follow(m_macros,
        entriesOf(macros, [&](std::size_t index) { return macros.dictionary(index).integer(keys::macroId); }),
        commands::runMacro);
}

void AssignmentLists::fill(PopUpButton& popUp) const {
    listIn(popUp, commands::runMacro, m_macros);
    listIn(popUp, commands::switchToProfile, m_profiles);
}

} // namespace quorvi
