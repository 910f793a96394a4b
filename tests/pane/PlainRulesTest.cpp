// The controller's rules that need no window.

#include <gtest/gtest.h>

#include "editors/NamingRule.h"
#include "sensitivity/AccelerationScale.h"

namespace quorvi {
namespace {

plist::Array named(std::initializer_list<const char16_t*> names) {
    auto array = plist::Array::create();
    for (const char16_t* name : names) {
        auto item = plist::Dictionary::create();
        item.set("name", name);
        array.append(item);
    }
    return array;
}

std::u16string unique(
    const char16_t* name, std::initializer_list<const char16_t*> names, std::int32_t ignoring = -1) {
    return makeNameUnique(name, u"Untitled Profile", named(names), "name", ignoring);
}

TEST(NamingRule, ACounterGoesOnFromTwo) {
    EXPECT_EQ(
        unique(u"Untitled Profile", {u"Untitled Profile", u"Untitled Profile 2"}), u"Untitled Profile 3");
    EXPECT_EQ(unique(u"Work 7", {u"Work 7"}), u"Work 2");
    EXPECT_EQ(unique(u"Work 0", {u"Work 0"}), u"Work 0 2");
    EXPECT_EQ(unique(u"Work 99", {u"Work 99"}), u"Work 2");
    EXPECT_EQ(unique(u"Work 100", {u"Work 100"}), u"Work 100 2");
    EXPECT_EQ(unique(u"Work -5", {u"Work -5"}), u"Work 2");
}

TEST(NamingRule, ANameWithoutAClashIsKeptWithItsCounter) {
    EXPECT_EQ(unique(u"Work 7", {u"Work"}), u"Work 7");
    EXPECT_EQ(unique(u"work", {u"Work"}), u"work");
}

TEST(NamingRule, LongNamesAreCutToTwentyUnitsAndTheirBaseToSeventeen) {
    EXPECT_EQ(unique(u"ABCDEFGHIJKLMNOPQRSTUVWXY", {}), u"ABCDEFGHIJKLMNOPQRST");
    EXPECT_EQ(unique(u"ABCDEFGHIJKLMNOPQRSTUVWXY", {u"ABCDEFGHIJKLMNOPQRST"}), u"ABCDEFGHIJKLMNOPQ 2");
}

TEST(NamingRule, TheOwnRowIsNoClash) {
    EXPECT_EQ(unique(u"Work", {u"Home", u"Work"}, 1), u"Work");
    EXPECT_EQ(unique(u"Work", {u"Home", u"Work"}, 0), u"Work 2");
}

TEST(NamingRule, AnEmptyNameTakesTheDefault) {
    EXPECT_EQ(unique(u"", {}), u"Untitled Profile");
    EXPECT_EQ(unique(u"", {u"Untitled Profile"}), u"Untitled Profile 2");
}

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
