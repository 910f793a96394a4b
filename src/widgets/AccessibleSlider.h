// A slider of the panel, for assistive programs.
#pragma once

#include <QAccessibleWidget>

namespace quorvi {

class KyvarQuorviSlider;

/// A value set by an assistive program counts as the user's choice. It moves in whole steps, and only while
/// the slider is enabled. (QSlider's interface sets the value without the signal of a user's choice.)
class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleSlider(KyvarQuorviSlider* slider);

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override;

  private:
    [[nodiscard]] KyvarQuorviSlider& slider() const;
};

} // namespace quorvi
