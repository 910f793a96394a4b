// Menu items as the panel uses them: an item is a QAction, its tag is the dynamic property "tag", and its
// title is plain text. Menus that list names given by the user hold "&" as it stands, so titles are set and
// read here and not through QAction::text(), where "&" marks the key.
#pragma once

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class QAction;
class QKeyEvent;
class QMenu;
class QPoint;
class QRect;
class QWidget;

namespace quorvi {

/// The dynamic property that says what an item stands for beside its tag.
inline constexpr const char* kRepresentedObject = "representedObject";
/// The dynamic property that names the action which an item or a control sends.
inline constexpr const char* kActionProperty = "action";

/// The item's tag; nothing when it carries none (a separator, a plain group of items).
[[nodiscard]] std::optional<int> tagOfItem(const QAction& item);
void setTagOfItem(QAction& item, int tag);

/// The item's title, without the mark of its key.
[[nodiscard]] QString titleOfItem(const QAction& item);
/// The title as the menu shows it: on one line, and cut with dots behind 80 UTF-16 units, because a name may
/// be as long as a file.
[[nodiscard]] QString shownTitleOfItem(const QAction& item);
/// What an item with that title shows.
[[nodiscard]] QString shownTitle(const QString& title);
/// Gives the item the title: "&" is shown, and marks no key. titleOfItem() gives it back unchanged.
void setTitleOfItem(QAction& item, const QString& title);

/// True for an item that only opens a group of further items: it has a submenu and no tag. An item with a
/// submenu and a tag is an item itself, and its submenu lists what it can be about.
[[nodiscard]] bool isItemGroup(const QAction& item);

/// The first item of the menu itself, not of its submenus, that carries the tag; nullptr when none does.
[[nodiscard]] QAction* itemWithTag(const QMenu& menu, int tag);
/// The position of that item among all of the menu's own items, separators counted; -1 when there is none.
[[nodiscard]] int indexOfItemWithTag(const QMenu& menu, int tag);

/// The items that can be selected, in the order of the menu: its own items and those of its groups, without
/// separators, groups and the lists under tagged items.
[[nodiscard]] QList<QAction*> selectableItems(const QMenu& menu);

/// The selectable item with the tag: the menu's own items come first, then those of its groups; nullptr when
/// there is none.
[[nodiscard]] QAction* selectableItemWithTag(const QMenu& menu, int tag);

/// Marks the item as the selected one, or takes that back. Only what is marked can be checked: styles draw an
/// empty box beside every other item that can.
void markItem(QAction& item, bool marked);

/// Where to open the menu of a widget's rectangle: below it or, where there is no room, above, with the first
/// letters of both in line.
[[nodiscard]] QPoint positionOfMenu(const QMenu& menu, const QWidget& widget, const QRect& rectangle);

/// Whether the key opens the menu of a button with the focus: Space, the arrows up and down, alone or with
/// others, and F4.
[[nodiscard]] bool keyOpensMenu(int key);
/// Whether the key, beside the menu key, opens the context menu of what has the focus: Qt knows that one
/// alone.
[[nodiscard]] bool keyOpensContextMenu(const QKeyEvent& event);
/// Has the menu close, with its submenus, whoever chose an item of it: an assistive program only triggers the
/// item.
void closeWhenChosen(QMenu& menu);
/// Marks the first item of the open menu that can be chosen. Who opens a menu by the keyboard, or listens to
/// it, has to be somewhere in it.
void activateFirstItem(QMenu& menu);

/// A copy of the menu with all its items and submenus: titles, tags and all other dynamic properties, enabled
/// and shown states, the direction of the layout where it was set. The copy has no parent; no connection of
/// the original is copied.
[[nodiscard]] std::unique_ptr<QMenu> copyOfMenu(const QMenu& menu);

} // namespace quorvi
