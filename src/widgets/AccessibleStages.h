// The bar of stages for assistive programs: a list of buttons.
#pragma once

#include "widgets/AccessibleParts.h"

namespace quorvi {

class StageBar;

class AccessibleStages : public AccessibleParts {
  public:
    explicit AccessibleStages(StageBar* bar);

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

  protected:
    [[nodiscard]] QAccessibleInterface* makeChild(int index) const override;

  private:
    [[nodiscard]] StageBar& bar() const;
};

/// "Press" does what a click on the cell does. The current stage is the one that is checked.
class AccessibleStage : public AccessibleListPart {
  public:
    AccessibleStage(StageBar& bar, int stage);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;

  private:
    [[nodiscard]] StageBar& bar() const;
};

} // namespace quorvi
