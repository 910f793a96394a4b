#include "widgets/AccessibleSlider.h"

#include "widgets/KyvarQuorviSlider.h"

namespace quorvi {

AccessibleSlider::AccessibleSlider(KyvarQuorviSlider* slider)
    : QAccessibleWidget(slider, QAccessible::Slider) {}

KyvarQuorviSlider& AccessibleSlider::slider() const {
    return static_cast<KyvarQuorviSlider&>(*widget());
}

void* AccessibleSlider::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QString AccessibleSlider::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? QString::number(slider().value()) : QAccessibleWidget::text(kind);
}

QVariant AccessibleSlider::currentValue() const {
    return slider().value();
}

void AccessibleSlider::setCurrentValue(const QVariant& value) {
    if (slider().isEnabled())
        slider().setSliderPosition(slider().nearestStep(value.toInt()));
}

QVariant AccessibleSlider::maximumValue() const {
    return slider().maximum();
}

QVariant AccessibleSlider::minimumValue() const {
    return slider().minimum();
}

QVariant AccessibleSlider::minimumStepSize() const {
    return qMax(1, slider().singleStep());
}

} // namespace quorvi
