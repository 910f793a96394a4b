// What assistive programs are told of a slider of the panel, and how they move it.
#pragma once

#include <QAccessibleWidget>

namespace quorvi {

class KyvarQuorviSlider;

/// A value that an assistive program sets counts as chosen by the user, by whole steps and while the slider
/// is enabled. (That of QSlider sets it as the program itself does, of which nobody hears.)
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
