// The bounds of options received over the bus.
#include "inputd/bus/OptionValues.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorvi::inputd {
namespace {

TEST(OptionValues, TheSensorHas100To64000Dpi) {
    engine::Options options;
    EXPECT_FALSE(setSensorDpi(options, 99));
    EXPECT_FALSE(setSensorDpi(options, 64001));
    EXPECT_EQ(options.sensorDpi, 1600);
    EXPECT_TRUE(setSensorDpi(options, 100));
    EXPECT_EQ(options.sensorDpi, 100);
    EXPECT_TRUE(setSensorDpi(options, 64000));
    EXPECT_EQ(options.sensorDpi, 64000);
}

TEST(OptionValues, AccelerationIsFiveFactorsOfATenthToTwo) {
    engine::Options options;
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::vector<double>> wrong{{}, {1, 1, 1, 1}, {1, 1, 1, 1, 1, 1}, {0.09, 1, 1, 1, 1},
        {1, 1, 1, 1, 2.01}, {1, nan, 1, 1, 1}, {1, 1, -1, 1, 1}};
    for (const auto& factors : wrong)
        EXPECT_FALSE(setAcceleration(options, factors));
    EXPECT_EQ(options.acceleration, engine::Options().acceleration);
    EXPECT_TRUE(setAcceleration(options, std::vector<double>{0.1, 0.5, 1, 1.5, 2}));
    EXPECT_EQ(options.acceleration, (std::array<float, 5>{0.1F, 0.5F, 1, 1.5F, 2}));
}

TEST(OptionValues, ButtonCodesAreSevenCodesOfTheInputLayer) {
    engine::Options options;
    EXPECT_FALSE(setButtonCodes(options, std::vector<std::uint16_t>(6, BTN_LEFT)));
    EXPECT_FALSE(setButtonCodes(options, std::vector<std::uint16_t>(8, BTN_LEFT)));
    EXPECT_FALSE(setButtonCodes(options, std::vector<std::uint16_t>{1, 2, 3, 4, 5, 6, 0x300}));
    EXPECT_EQ(options.buttonCodes, engine::usualButtonCodes);
    EXPECT_TRUE(setButtonCodes(options, std::vector<std::uint16_t>{1, 2, 3, 4, 5, 0, 0x2FF}));
    EXPECT_EQ(options.buttonCodes, (engine::ButtonCodes{1, 2, 3, 4, 5, 0, 0x2FF}));
}

TEST(OptionValues, LettersAreTypedBy26KeysAndByNoButton) {
    engine::Options options;
    EXPECT_FALSE(setLetterKeys(options, std::vector<std::uint16_t>(25, KEY_A)));
    std::vector<std::uint16_t> keys(26, KEY_A);
    keys[25] = BTN_MISC;
    EXPECT_FALSE(setLetterKeys(options, keys));
    EXPECT_EQ(options.letterKeys, engine::usLetterKeys);
    keys[25] = 0;
    EXPECT_TRUE(setLetterKeys(options, keys));
    EXPECT_EQ(options.letterKeys[25], 0);
}

} // namespace
} // namespace quorvi::inputd
