// A timeline, for assistive programs.
#pragma once

#include "widgets/AccessibleParts.h"

namespace quorvi {

class StepsTimeline;

/// A list of the steps in words.
class AccessibleTimeline : public AccessibleParts {
  public:
    explicit AccessibleTimeline(StepsTimeline* timeline);

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

  protected:
    [[nodiscard]] QAccessibleInterface* makeChild(int index) const override;

  private:
    [[nodiscard]] StepsTimeline& timeline() const;
};

/// "Press" selects the step; "Increase" and "Decrease" set its next longer and shorter usual delay.
class AccessibleStep : public AccessibleListPart {
  public:
    AccessibleStep(StepsTimeline& timeline, int step);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& action) const override;

  private:
    [[nodiscard]] StepsTimeline& timeline() const;
};

} // namespace quorvi
