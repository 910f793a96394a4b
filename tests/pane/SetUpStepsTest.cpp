// The assignment of buttons to inputs, by pressing and skipping.
#include "live/SetUpSteps.h"

#include <gtest/gtest.h>

namespace quorvi::test {
namespace {

constexpr SetUpSteps::Codes kBefore{272, 273, 274, 275, 276, 277, 278};

void skip(SetUpSteps& steps, int times) {
    for (int i = 0; i < times; ++i)
        steps.skip();
}

TEST(SetUpSteps, AskForOneInputAfterTheOther) {
    SetUpSteps steps(kBefore);
    for (int input = 1; input <= 7; ++input) {
        EXPECT_EQ(steps.asked(), input);
        EXPECT_TRUE(steps.take(static_cast<std::uint16_t>(300 + input)));
    }
    EXPECT_EQ(steps.asked(), 0);
    EXPECT_FALSE(steps.take(310)) << "nothing is asked for any more";
    EXPECT_EQ(steps.codes(), (SetUpSteps::Codes{301, 302, 303, 304, 305, 306, 307}));
}

TEST(SetUpSteps, LeaveWhatIsSkippedAsItWas) {
    SetUpSteps steps(kBefore);
    skip(steps, 7);
    EXPECT_EQ(steps.asked(), 0);
    EXPECT_EQ(steps.codes(), kBefore);
}

TEST(SetUpSteps, TakeAButtonFromTheInputThatHadItBefore) {
    SetUpSteps steps(kBefore);
    skip(steps, 3);
    EXPECT_TRUE(steps.take(276));
    EXPECT_EQ(steps.codes(), (SetUpSteps::Codes{272, 273, 274, 276, 0, 277, 278}));
    EXPECT_TRUE(steps.take(275)) << "exchanged";
    EXPECT_EQ(steps.codes(), (SetUpSteps::Codes{272, 273, 274, 276, 275, 277, 278}));
}

TEST(SetUpSteps, RefuseAButtonThatWasPressedForAnotherInput) {
    SetUpSteps steps(kBefore);
    EXPECT_TRUE(steps.take(280));
    EXPECT_FALSE(steps.take(280));
    EXPECT_EQ(steps.inputOf(280), 1);
    EXPECT_EQ(steps.asked(), 2);
    EXPECT_FALSE(steps.isPressed(2));
    EXPECT_FALSE(steps.take(0)) << "no code at all";
}

TEST(SetUpSteps, AskAgainForTheInputBefore) {
    SetUpSteps steps(kBefore);
    EXPECT_FALSE(steps.canGoBack());
    steps.back();
    EXPECT_EQ(steps.asked(), 1);
    EXPECT_TRUE(steps.take(280));
    EXPECT_TRUE(steps.canGoBack());
    steps.back();
    EXPECT_EQ(steps.asked(), 1);
    EXPECT_EQ(steps.inputOf(280), 0);
    EXPECT_EQ(steps.codes(), kBefore);
    EXPECT_TRUE(steps.take(280)) << "the same button once more";
    skip(steps, 6);
    steps.back();
    EXPECT_EQ(steps.asked(), 7) << "from the end too";
}

} // namespace
} // namespace quorvi::test
