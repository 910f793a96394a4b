// What assistive programs are told of a button that opens a menu, and how they press it.
#pragma once

#include <QAccessibleWidget>

namespace quorvi {

class MenuButton;

/// Pressing opens the menu, each time. (That of QPushButton presses the button for a tenth of a second, and
/// presses during that, after a quick choice, open nothing.)
class AccessibleMenuButton : public QAccessibleWidget {
  public:
    explicit AccessibleMenuButton(MenuButton* button);

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;

  private:
    [[nodiscard]] MenuButton& button() const;
};

} // namespace quorvi
