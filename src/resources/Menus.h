// The panel's menus, made from tables. A menu's objectName is its outlet's name; an item carries the dynamic
// properties "tag" and, if the controller handles it, "action".
#pragma once

#include <QMenu>

#include <memory>

class QWidget;

namespace quorvi {

/// Every menu belongs to the widget that createMenus() was given.
struct Menus {
    QMenu* quorviMenuCommands = nullptr;      ///< functions of inputs 1 to 7; tags are command codes
    QMenu* quorviMenuWheelCommands = nullptr; ///< functions of inputs 8 and 9; tags are command codes
    QMenu* quorviMenuProfiles = nullptr;      ///< empty: the window's head lists the profiles in it
    QMenu* quorviMenuProfileGear = nullptr;   ///< tags 11 to 18
    QMenu* quorviMenuMacroGear = nullptr;     ///< tags 21 to 24
    QMenu* quorviMenuStepGear = nullptr;      ///< tags 31 to 36, 301 to 308 and, in submenus, 320 to 337
    QMenu* quorviMenuStepDelay = nullptr;     ///< delays from short to long; tags are milliseconds
};

/// In both command menus the submenus of switching to a profile and of running a macro hold two items: the
/// entry that opens the tab where the list is edited, and a separator. The list follows from item 2.
[[nodiscard]] Menus createMenus(QWidget& owner);

/// The rates of the mouse; tags are hertz.
[[nodiscard]] std::unique_ptr<QMenu> createPollingRateMenu();

} // namespace quorvi
