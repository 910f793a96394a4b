#include "macros/StepMending.h"

#include <gtest/gtest.h>

#include "macros/Steps.h"

namespace quorvi {
namespace {

using test::macroOf;
using test::stepsOf;
using test::TestMacro;

constexpr int kKeyA = 4;
constexpr int kKeyB = 5;
constexpr int kCapsLockKey = 57;
constexpr int kControlKey = 224;
constexpr int kShiftKey = 225;

/// So many taps of a key, with nothing to mend.
TestMacro taps(int count) {
    TestMacro macro;
    for (int number = 0; number < count; ++number) {
        macro.push_back({1, kKeyB, 10});
        macro.push_back({0, kKeyB, number + 1 < count ? 10 : 0});
    }
    return macro;
}

/// The one macro and then the other.
TestMacro joined(TestMacro macro, const TestMacro& end) {
    macro.insert(macro.end(), end.begin(), end.end());
    return macro;
}

struct Mended {
    TestMacro macro;
    std::size_t row;
    friend bool operator==(const Mended&, const Mended&) = default;
};

std::ostream& operator<<(std::ostream& stream, const Mended& mended) {
    return stream << ::testing::PrintToString(mended.macro) << " at " << mended.row;
}

/// The macro when its first fault is mended.
Mended mended(const TestMacro& macro) {
    const auto steps = stepsOf(macro);
    const std::size_t row = mendStep(steps, checkSteps(steps).at(0));
    return {macroOf(steps), row};
}

Mending mendingOfFirst(const TestMacro& macro) {
    const auto steps = stepsOf(macro);
    return mendingOf(steps, checkSteps(steps).at(0));
}

TEST(StepMending, ReleasesAtTheEndWhatStaysDown) {
    EXPECT_EQ(mended({{1, kControlKey, 100}, {1, kKeyA, 50}, {0, kKeyA}}),
        (Mended{{{1, kControlKey, 100}, {1, kKeyA, 50}, {0, kKeyA}, {0, kControlKey}}, 3}));
    EXPECT_EQ(mended({{132, 0}}), (Mended{{{132, 0}, {128, 0}}, 1}));
}

TEST(StepMending, ReleasesBeforeTheSameKeyIsPressedAgain) {
    EXPECT_EQ(mended({{1, kKeyA, 100}, {1, kKeyB, 10}, {0, kKeyB, 20}, {1, kKeyA}}),
        (Mended{{{1, kKeyA, 100}, {1, kKeyB, 10}, {0, kKeyB, 20}, {0, kKeyA}, {1, kKeyA}}, 3}));
}

TEST(StepMending, ReleasesOfMouseButtonsWaitForTheSameButtonAlone) {
    // The release at the end lets both go.
    EXPECT_EQ(mended({{129, 0, 10}, {130, 0}}), (Mended{{{129, 0, 10}, {130, 0}, {128, 0}}, 2}));
    EXPECT_EQ(mended({{129, 0, 10}, {129, 0}}), (Mended{{{129, 0, 10}, {128, 0}, {129, 0}}, 1}));
}

TEST(StepMending, GivesTheDelayOfTheEndAMeaning) {
    EXPECT_EQ(mended({{1, kKeyA, 50}}), (Mended{{{1, kKeyA, 50}, {0, kKeyA}}, 1}));
}

TEST(StepMending, RemovesThePressOfAFullMacroOnly) {
    const TestMacro roomForOne = joined({{1, kControlKey, 10}}, taps(7));
    EXPECT_EQ(mendingOfFirst(roomForOne), Mending::addRelease);
    EXPECT_EQ(mended(roomForOne), (Mended{joined(roomForOne, {{0, kControlKey}}), 15}));

    const TestMacro full = joined(roomForOne, {{1, kKeyB}});
    EXPECT_EQ(mendingOfFirst(full), Mending::removePress);
    EXPECT_EQ(mended(full), (Mended{joined(taps(7), {{1, kKeyB}}), 0}));
}

TEST(StepMending, LeavesNoDelayWhereThePressAtTheEndWas) {
    const TestMacro full = joined(taps(7), {{0, kKeyA, 70}, {1, kShiftKey}});
    const auto steps = stepsOf(full);
    const auto faults = pressesLeftDown(steps, 15);
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(mendStep(steps, faults.front()), 14U);
    EXPECT_EQ(steps.size(), 15U);
    EXPECT_EQ(steps.dictionary(14).integer("delay"), 0);
}

TEST(StepMending, RemovesAReleaseThatNothingHasPressed) {
    EXPECT_EQ(
        mended({{0, kKeyA, 20}, {1, kKeyB, 10}, {0, kKeyB}}), (Mended{{{1, kKeyB, 10}, {0, kKeyB}}, 0}));
    EXPECT_EQ(mended({{1, kKeyB, 10}, {0, kKeyB, 20}, {128, 0}}), (Mended{{{1, kKeyB, 10}, {0, kKeyB}}, 1}));
    EXPECT_EQ(mended({{128, 0}}), (Mended{{}, 0}));
}

TEST(StepMending, RemovesTheDelayOfTheLastStep) {
    EXPECT_EQ(mended({{1, kKeyA, 10}, {0, kKeyA, 50}}), (Mended{{{1, kKeyA, 10}, {0, kKeyA}}, 1}));
}

TEST(StepMending, LetsGoInTurnWhatWasPressedLast) {
    const auto steps = stepsOf({{1, kControlKey, 10}, {1, kShiftKey, 10}, {1, kKeyA, 10}, {0, kKeyA}});
    EXPECT_EQ(letGo(steps, 0), (LettingGo{.added = 2, .removed = 0}));
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kControlKey, 10}, {1, kShiftKey, 10}, {1, kKeyA, 10}, {0, kKeyA},
                                  {0, kShiftKey}, {0, kControlKey}}));
}

TEST(StepMending, LetsGoOnlyWhatWasPressedFromThereOn) {
    const auto steps = stepsOf({{1, kControlKey, 10}, {1, kShiftKey}});
    EXPECT_EQ(letGo(steps, 1), (LettingGo{.added = 1, .removed = 0}));
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kControlKey, 10}, {1, kShiftKey}, {0, kShiftKey}}));
    EXPECT_EQ(letGo(steps, 1), LettingGo{});
}

TEST(StepMending, RemovesTheLastPressesWhereThereIsNoRoomForAll) {
    const auto steps = stepsOf(
        joined(joined({{1, kControlKey, 10}}, taps(6)), {{1, kShiftKey, 10}, {1, kKeyA, 5}, {1, kKeyB}}));
    ASSERT_EQ(steps.size(), 16U);
    EXPECT_EQ(letGo(steps, 0), (LettingGo{.added = 2, .removed = 2}));
    EXPECT_EQ(macroOf(steps),
        joined(joined({{1, kControlKey, 10}}, taps(6)), {{1, kShiftKey}, {0, kShiftKey}, {0, kControlKey}}));
    EXPECT_TRUE(checkSteps(steps).empty());
}

TEST(StepMending, TakesTheFirstCapsLockOut) {
    const auto steps = stepsOf({{1, kKeyA, 100}, {1, kCapsLockKey, 10}, {0, kCapsLockKey, 10}, {0, kKeyA, 10},
        {1, kCapsLockKey}, {0, kCapsLockKey}});
    EXPECT_TRUE(removeCapsLock(steps, 0));
    EXPECT_EQ(
        macroOf(steps), (TestMacro{{1, kKeyA, 100}, {0, kKeyA, 10}, {1, kCapsLockKey}, {0, kCapsLockKey}}));
    EXPECT_FALSE(removeCapsLock(steps, 3));
    EXPECT_TRUE(removeCapsLock(steps, 2));
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyA, 100}, {0, kKeyA}}));
    EXPECT_FALSE(removeCapsLock(steps, 0));
}

} // namespace
} // namespace quorvi
