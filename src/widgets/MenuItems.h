// Menu items as the panel uses them: an item is a QAction, its tag is the dynamic property "tag", and its
// title is plain text. Menus of user-given names show "&" literally, so set and read titles here and not
// through QAction::text(), where "&" marks the key.
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

/// The dynamic property for an item's object in addition to its tag.
inline constexpr const char* kRepresentedObject = "representedObject";
/// The dynamic property that names the action which an item or a control sends.
inline constexpr const char* kActionProperty = "action";

/// The item's tag; std::nullopt if it has none (a separator, a plain group of items).
[[nodiscard]] std::optional<int> tagOfItem(const QAction& item);
void setTagOfItem(QAction& item, int tag);

/// The item's title, without the mark of its key.
[[nodiscard]] QString titleOfItem(const QAction& item);
/// The title shown in the menu: on one line, and cut with dots after 80 UTF-16 units, because a name may be
/// very long.
[[nodiscard]] QString shownTitleOfItem(const QAction& item);
/// The shown form of that title.
[[nodiscard]] QString shownTitle(const QString& title);
/// Gives the item the title: "&" is shown, and does not mark a key. titleOfItem() returns it unchanged.
void setTitleOfItem(QAction& item, const QString& title);

/// True for an item that only opens a group of further items: it has a submenu and no tag. An item with a
/// submenu and a tag is an item itself, and its submenu lists its possible objects.
[[nodiscard]] bool isItemGroup(const QAction& item);

/// The first item of the menu itself, not of its submenus, that carries the tag; nullptr if none does.
[[nodiscard]] QAction* itemWithTag(const QMenu& menu, int tag);
/// The position of that item among all of the menu's own items, separators counted; -1 when there is none.
[[nodiscard]] int indexOfItemWithTag(const QMenu& menu, int tag);

/// The items that can be selected, in the order of the menu: its own items and those of its groups, without
/// separators, groups and the lists under tagged items.
[[nodiscard]] QList<QAction*> selectableItems(const QMenu& menu);

/// The selectable item with the tag: the menu's own items come first, then those of its groups; nullptr when
/// there is none.
[[nodiscard]] QAction* selectableItemWithTag(const QMenu& menu, int tag);

/// Marks or unmarks the item as the selected one. Only a marked item is checkable: styles draw an empty box
/// next to every other checkable one.
void markItem(QAction& item, bool marked);

/// The position of the menu for a widget's rectangle: below it or, without room, above, with the first
/// letters of both aligned.
[[nodiscard]] QPoint positionOfMenu(const QMenu& menu, const QWidget& widget, const QRect& rectangle);

/// Whether the key opens the menu of a button with the focus: Space, the arrows up and down, alone or with
/// others, and F4.
[[nodiscard]] bool keyOpensMenu(int key);
/// Whether the key opens the context menu of the focused control, in addition to the menu key, the only one
/// that Qt supports.
[[nodiscard]] bool keyOpensContextMenu(const QKeyEvent& event);
/// Makes the menu close, with its submenus, when an item is triggered: assistive programs trigger items
/// without clicking.
void closeWhenChosen(QMenu& menu);
/// Marks the first item of the open menu that can be chosen. Keyboard and screen-reader users need a current
/// item.
void activateFirstItem(QMenu& menu);

/// A copy of the menu with all its items and submenus: titles, tags and all other dynamic properties, enabled
/// and shown states, the layout direction if it was set. The copy has no parent; no connection of the
/// original is copied.
[[nodiscard]] std::unique_ptr<QMenu> copyOfMenu(const QMenu& menu);

} // namespace quorvi
