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

/// Two profiles, whose button 4 and wheel run the macro 7, which is the second of two and has these steps.
plist::Dictionary treeWithMacro(const plist::Array& steps) {
    using test::assignment;
    using test::dict;
    using test::list;
    const auto profile = [](const char* input, int macro) {
        return dict({{"name", u"P"}, {"buttons", dict({{input, assignment(65, macro, 1)}})}});
    };
    const auto macro = [](int id, const plist::Array& its) {
        return dict({{"macroid", id}, {"steps", its}});
    };
    return dict({{"profiles", list({profile("04", 7), profile("08", 7), profile("05", 3)})},
        {"macros", list({macro(3, list()), macro(7, steps)})}});
}

TEST(StepChecks, FindTheButtonsThatRunAnEmptyMacro) {
    const auto tree = treeWithMacro(stepsOf({}));
    EXPECT_EQ(inputsThatRunNothing(tree, 1), (std::vector<ProfileInput>{{0, 4}, {1, 8}}));
    EXPECT_EQ(inputsThatRunNothing(tree, 0), (std::vector<ProfileInput>{{2, 5}}));
}

TEST(StepChecks, FindNoButtonsOfAMacroWithStepsOrOfNone) {
    EXPECT_TRUE(inputsThatRunNothing(treeWithMacro(stepsOf({{1, kHUsage}})), 1).empty());
    EXPECT_TRUE(inputsThatRunNothing(treeWithMacro(stepsOf({})), 2).empty());
}

} // namespace
} // namespace quorvi
