#include "editors/sensitivity/AccelerationScale.h"

namespace quorvi {

float sliderValueToAcceleration(float sliderValue) {
    const double v = sliderValue;
    if (!(v >= 1.0 && v <= 10.0))
        return 0.0F;
    return static_cast<float>(v < 5.0 ? v * 0.2 - 0.1 : (v - 5.0) * 0.2 + 1.0);
}

float accelerationToSliderValue(float acceleration) {
    const double a = acceleration;
    if (!(a >= 0.1 && a <= 2.0))
        return 5.0F;
    return static_cast<float>(a < 1.0 ? (a + 0.1) / 0.2 : (a - 1.0) / 0.2 + 5.0);
}

} // namespace quorvi
