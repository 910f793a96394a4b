// A button that opens a menu, for assistive programs.
#pragma once

#include <QAccessibleWidget>

namespace quorvi {

class MenuButton;

/// Every press opens the menu. (QPushButton's interface presses the button for a tenth of a second and
/// ignores a press during that time, such as after a quick choice.)
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
