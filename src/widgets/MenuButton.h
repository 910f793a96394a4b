// A push button that opens a menu of commands, as the gear buttons do.
#pragma once

#include <QMenu>
#include <QPointer>

#include "widgets/SignButton.h"

namespace quorvi {

/// The menu opens when the button is pressed, not when it is released, and with the keys that open a pop-up
/// (see MenuItems.h) and Return. The button stays down while the menu is open. Opening does not block: an
/// assistive program that presses the button gets its answer at once.
class MenuButton : public SignButton {
    Q_OBJECT

  public:
    explicit MenuButton(QWidget* parent = nullptr);

    /// Does not take ownership of the menu; nullptr for none. (QPushButton's own menu function blocks until
    /// the menu closes.)
    void setCommands(QMenu* menu);
    /// Opens the menu with its first item marked, for keys and assistive programs.
    void pressByOthers();

  signals:
    /// The menu is about to open and can still be filled.
    void menuIsAboutToOpen();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Notifies assistive programs that the focus is back after the menu closes, which Qt does not always do.
    void focusInEvent(QFocusEvent* event) override;
    /// A flat one frames itself like a FlatButton.
    void paintEvent(QPaintEvent* event) override;

  private:
    void openMenu();

    QPointer<QMenu> m_menu;
};

} // namespace quorvi
