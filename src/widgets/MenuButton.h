// A push button that opens a menu of commands, as the gear buttons do.
#pragma once

#include <QMenu>
#include <QPointer>
#include <QPushButton>

namespace quorvi {

/// The menu opens when the button goes down, not when it comes up again, and by the keys that open a pop-up
/// (see MenuItems.h) and Return. The button stays down while the menu is open. Opening waits for nothing: an
/// assistive program that presses the button gets its answer at once.
class MenuButton : public QPushButton {
    Q_OBJECT

  public:
    explicit MenuButton(QWidget* parent = nullptr);

    /// The menu is somebody else's. nullptr leaves none. (That of QPushButton waits for the menu's end.)
    void setCommands(QMenu* menu);
    /// Opens the menu, with its first item marked, for whoever does not use the mouse.
    void pressByOthers();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Tells assistive programs that the focus is back when the menu has gone, which Qt does not always do.
    void focusInEvent(QFocusEvent* event) override;

  private:
    void openMenu();

    QPointer<QMenu> m_menu;
};

} // namespace quorvi
