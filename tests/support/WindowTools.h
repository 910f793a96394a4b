// User actions in the panel's window, for all tests with a window. Outlets are found by their names.
#pragma once

#include <QDialog>
#include <QWidget>

#include <functional>

class QAbstractButton;
class QAction;
class QMenu;

namespace quorvi::test {

/// The longest wait for a window before a test gives up. Successful tests never wait that long.
constexpr int kWindowPatienceMs = 10000;

/// The outlet of that name below the widget; its absence ends the test program.
template <typename Widget>
[[nodiscard]] Widget* outlet(const QWidget* below, const char* name) {
    auto* widget = below->findChild<Widget*>(QLatin1String(name));
    if (!widget)
        qFatal("no outlet %s", name);
    return widget;
}

/// Clicks the button with the mouse; one that is disabled or hidden is an error.
void clickButton(QAbstractButton* button);

/// Opens the pop-up's menu with the mouse and returns it.
[[nodiscard]] QMenu* openMenuOf(QWidget* popUp);
/// The item of the menu that a user reads as this; its absence ends the test program.
[[nodiscard]] QAction* itemOf(const QMenu* menu, const QString& title);
/// Moves the pointer within the open menu to the item, as a hand does, and clicks it. A pointer that has not
/// moved since the menu opened only closes it, since Qt 6.8.
void clickItem(QMenu* menu, const QAction* item);
/// Clicks the items of the open menu that lead to the last one, through their submenus.
void clickInMenu(QMenu* menu, const QStringList& titles);
/// Opens the pop-up's menu and clicks these items.
void choose(QWidget* popUp, const QStringList& titles);

/// Runs the action as soon as the sheet of that name is open; ends the test program if it does not open.
void whenSheetIsUp(const QWidget* window, const char* name, std::function<void(QDialog*)> action);
/// Clicks a sheet's button as soon as the sheet is open.
void clickInSheet(const QWidget* window, const char* sheet, const char* button);

} // namespace quorvi::test
