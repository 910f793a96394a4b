// The controller's rules that need no window.

#include <gtest/gtest.h>

#include "editors/sensitivity/AccelerationScale.h"

namespace quorvi {
namespace {

TEST(AccelerationScale, PositionsGiveTheirFactors) {
    EXPECT_EQ(sliderValueToAcceleration(1.0F), 0.1F);
    EXPECT_EQ(sliderValueToAcceleration(2.0F), 0.3F);
    EXPECT_EQ(sliderValueToAcceleration(3.0F), 0.5F);
    EXPECT_EQ(sliderValueToAcceleration(4.0F), 0.7F);
    EXPECT_FLOAT_EQ(sliderValueToAcceleration(4.99F), 0.898F);
    EXPECT_EQ(sliderValueToAcceleration(5.0F), 1.0F);
    EXPECT_EQ(sliderValueToAcceleration(6.0F), 1.2F);
    EXPECT_EQ(sliderValueToAcceleration(10.0F), 2.0F);
    EXPECT_EQ(sliderValueToAcceleration(0.5F), 0.0F);
    EXPECT_EQ(sliderValueToAcceleration(10.5F), 0.0F);
}

TEST(AccelerationScale, FactorsGiveTheirPositions) {
    EXPECT_EQ(accelerationToSliderValue(0.1F), 1.0F);
    EXPECT_EQ(accelerationToSliderValue(0.5F), 3.0F);
    EXPECT_FLOAT_EQ(accelerationToSliderValue(0.9F), 5.0F);
    EXPECT_EQ(accelerationToSliderValue(1.0F), 5.0F);
    EXPECT_EQ(accelerationToSliderValue(2.0F), 10.0F);
    for (const float outside : {0.05F, 2.5F, 0.0F})
        EXPECT_EQ(accelerationToSliderValue(outside), 5.0F);
}

TEST(AccelerationScale, IsItsOwnInverseOnWholePositions) {
    for (const float position : {1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F, 8.0F, 9.0F, 10.0F})
        EXPECT_EQ(accelerationToSliderValue(sliderValueToAcceleration(position)), position);
}

} // namespace
} // namespace quorvi
