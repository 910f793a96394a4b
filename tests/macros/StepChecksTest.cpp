#include "macros/StepChecks.h"

#include <gtest/gtest.h>

#include "macros/Steps.h"

namespace quorvi {
namespace {

using test::stepsOf;
using Checks = std::vector<StepCheck>;

constexpr int kHUsage = 11;
constexpr int kShiftUsage = 225;

TEST(StepChecks, FindNothingInWhatIsPressedAndReleased) {
    EXPECT_EQ(
        checkSteps(stepsOf({{1, kShiftUsage, 50}, {1, kHUsage, 50}, {0, kHUsage, 50}, {0, kShiftUsage}})),
        Checks{});
    EXPECT_EQ(checkSteps(stepsOf({{129, 0}, {128, 0}})), Checks{});
    EXPECT_EQ(checkSteps(plist::Array()), Checks{});
}

TEST(StepChecks, FindAKeyThatStaysDown) {
    EXPECT_EQ(checkSteps(stepsOf({{1, kShiftUsage}, {1, kHUsage}, {0, kHUsage}})),
        (Checks{{0, StepFault::staysDown}}));
    EXPECT_EQ(
        checkSteps(stepsOf({{1, kHUsage}, {0, kHUsage}, {130, 0}})), (Checks{{2, StepFault::staysDown}}));
}

TEST(StepChecks, FindAReleaseWithoutAPress) {
    EXPECT_EQ(checkSteps(stepsOf({{0, kHUsage}, {1, kHUsage}, {0, kHUsage}})),
        (Checks{{0, StepFault::neverPressed}}));
    EXPECT_EQ(checkSteps(stepsOf({{128, 0}})), (Checks{{0, StepFault::neverPressed}}));
    EXPECT_EQ(checkSteps(stepsOf({{1, kHUsage}, {0, kHUsage}, {0, kHUsage}})),
        (Checks{{2, StepFault::neverPressed}}));
}

TEST(StepChecks, FindADelayAfterTheLastStep) {
    EXPECT_EQ(
        checkSteps(stepsOf({{1, kHUsage, 10}, {0, kHUsage, 50}})), (Checks{{1, StepFault::delayAfterEnd}}));
    EXPECT_EQ(checkSteps(stepsOf({{1, kHUsage, 50}})),
        (Checks{{0, StepFault::staysDown}, {0, StepFault::delayAfterEnd}}));
}

TEST(StepChecks, LeaveAKeyAloneThatIsPressedTwiceAndComesUp) {
    EXPECT_EQ(checkSteps(stepsOf({{1, kHUsage}, {1, kHUsage}, {0, kHUsage}})), Checks{});
}

TEST(StepChecks, LeaveTwoMouseButtonsAloneThatWereDownTogether) {
    EXPECT_EQ(checkSteps(stepsOf({{129, 0}, {130, 0}, {128, 0}, {128, 0}})), Checks{});
    EXPECT_EQ(checkSteps(stepsOf({{129, 0}, {130, 0}, {128, 0}, {128, 0}, {128, 0}})),
        (Checks{{4, StepFault::neverPressed}}));
}

TEST(StepChecks, LeaveWhatIsNoStepAlone) {
    const auto steps = stepsOf({{2, kHUsage}, {131, 0}});
    steps.append(5);
    EXPECT_EQ(checkSteps(steps), Checks{});
}

} // namespace
} // namespace quorvi
