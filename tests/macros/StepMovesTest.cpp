#include "macros/StepMoves.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "macros/NaiveMoves.h"
#include "macros/StepDelays.h"
#include "macros/StepInsertions.h"
#include "macros/StepPairs.h"

namespace quorvi {
namespace {

using test::macroOf;
using test::stepsOf;
using test::TestMacro;
using test::TestStep;

constexpr int kKeyCtrl = 224;
constexpr int kKeyC = 6;
constexpr int kKeyH = 11;
constexpr int kKeyI = 12;

const TestMacro kCtrlC{{1, kKeyCtrl, 50}, {1, kKeyC, 60}, {0, kKeyC, 70}, {0, kKeyCtrl}};
const TestMacro kHi{{1, kKeyH, 10}, {0, kKeyH, 20}, {1, kKeyI, 30}, {0, kKeyI}};

TEST(StepPairs, APressBelongsToTheNextReleaseOfItsKey) {
    EXPECT_EQ(pairsOf(stepsOf(kCtrlC)), (StepPairs{3, 2, 1, 0}));
    EXPECT_EQ(pairsOf(stepsOf({{1, kKeyH}, {0, kKeyH}, {1, kKeyH}, {0, kKeyH}})), (StepPairs{1, 0, 3, 2}));
    EXPECT_TRUE(pairsOf(plist::Array()).empty());
}

TEST(StepPairs, TheReleaseOfAMouseButtonBelongsToTheLastPressOfAny) {
    EXPECT_EQ(pairsOf(stepsOf({{136, 0}, {1, kKeyH}, {128, 0}, {0, kKeyH}})), (StepPairs{2, 3, 0, 1}));
    EXPECT_EQ(pairsOf(stepsOf({{129, 0}, {130, 0}, {128, 0}, {128, 0}})),
        (StepPairs{std::nullopt, 2, 1, std::nullopt}));
}

TEST(StepPairs, WhatIsBrokenStaysSingle) {
    const StepPairs none(2);
    EXPECT_EQ(pairsOf(stepsOf({{0, kKeyH}, {1, kKeyH}})), none);
    EXPECT_EQ(pairsOf(stepsOf({{1, kKeyH}, {0, kKeyI}})), none);
    EXPECT_EQ(pairsOf(stepsOf({{1, 0}, {128, 0}})), none);
    EXPECT_EQ(pairsOf(stepsOf({{131, 0}, {128, 0}})), none);
    EXPECT_EQ(pairsOf(stepsOf({{1, kKeyH}, {1, kKeyH}, {0, kKeyH}, {0, kKeyH}})),
        (StepPairs{std::nullopt, 2, 1, std::nullopt}));
    const auto odd = stepsOf({{1, kKeyH}});
    odd.append(5);
    odd.append(stepsOf({{0, kKeyH}}).value(0));
    EXPECT_EQ(pairsOf(odd), (StepPairs{2, std::nullopt, 0}));
}

struct Move {
    const char* name;
    TestMacro before;
    std::size_t row;
    MoveDirection direction;
    TestMacro after; ///< empty when the step cannot move
    std::size_t newRow;
    MovedStep moved = MovedStep::keepingPairs;
};

void PrintTo(const Move& move, std::ostream* stream) {
    *stream << move.name;
}

const Move kMoves[] = {
    {"PastAnotherKey", kCtrlC, 1, MoveDirection::up,
        {{1, kKeyC, 60}, {1, kKeyCtrl, 50}, {0, kKeyC, 70}, {0, kKeyCtrl}}, 0},
    {"APressTakesItsReleaseAlong", kHi, 0, MoveDirection::down,
        {{1, kKeyI, 30}, {1, kKeyH, 10}, {0, kKeyH, 20}, {0, kKeyI}}, 1},
    {"AReleaseTakesItsPressAlong", kHi, 3, MoveDirection::up,
        {{1, kKeyH, 10}, {1, kKeyI, 30}, {0, kKeyI, 20}, {0, kKeyH}}, 2},
    {"AKeyTwicePassesTheOther", {{1, kKeyH, 10}, {0, kKeyH, 20}, {1, kKeyH, 30}, {0, kKeyH, 40}}, 2,
        MoveDirection::up, {{1, kKeyH, 30}, {0, kKeyH, 40}, {1, kKeyH, 10}, {0, kKeyH, 20}}, 0},
    {"APairAtTheEndStays", kHi, 2, MoveDirection::down, {}, 0},
    {"TheFirstStays", kHi, 0, MoveDirection::up, {}, 0},
    {"TheLastStays", kCtrlC, 3, MoveDirection::down, {}, 0},
    {"APressThatWouldComeBehindItsDistantReleaseStays",
        {{1, kKeyH}, {1, kKeyI}, {0, kKeyH}, {1, kKeyH}, {0, kKeyI}, {0, kKeyH}}, 3, MoveDirection::up, {},
        0},
    {"ASingleStepMovesFreely", {{0, kKeyH}, {1, kKeyH}}, 1, MoveDirection::up, {{1, kKeyH}, {0, kKeyH}}, 0},
    {"AloneEvenBehindItsRelease", kHi, 0, MoveDirection::down,
        {{0, kKeyH, 20}, {1, kKeyH, 10}, {1, kKeyI, 30}, {0, kKeyI}}, 1, MovedStep::alone},
    {"TheLastOneKeepsNothingToWaitFor", {{1, kKeyH, 10}, {1, kKeyI, 20}, {0, kKeyH}}, 2, MoveDirection::up,
        {{1, kKeyH, 10}, {0, kKeyH, 20}, {1, kKeyI}}, 1},
    {"ADelayAfterTheEndIsNobodyElses", {{1, kKeyH, 10}, {1, kKeyI, 20}, {0, kKeyH, 30}}, 2, MoveDirection::up,
        {{1, kKeyH, 10}, {0, kKeyH, 30}, {1, kKeyI, 20}}, 1},
    {"PastTheEnd", kHi, 4, MoveDirection::up, {}, 0},
};

class StepMoves : public testing::TestWithParam<Move> {};

TEST_P(StepMoves, MoveAStepAndKeepItsPair) {
    const Move& move = GetParam();
    const auto steps = stepsOf(move.before);
    const auto wanted = move.after.empty() ? std::nullopt : std::optional(StepPlaces{move.newRow});
    EXPECT_EQ(placesOfMovedSteps(steps, {move.row}, move.direction, move.moved), wanted);
    EXPECT_EQ(macroOf(steps), move.before);
    EXPECT_EQ(moveSteps(steps, {move.row}, move.direction, move.moved), wanted);
    EXPECT_EQ(macroOf(steps), move.after.empty() ? move.before : move.after);
}

INSTANTIATE_TEST_SUITE_P(Table, StepMoves, testing::ValuesIn(kMoves),
    [](const auto& move) { return std::string(move.param.name); });

TEST(TakenSteps, GoWithTheirOtherHalf) {
    const auto steps = stepsOf(kCtrlC);
    const auto indices = stepsWithPartners(steps, {3});
    EXPECT_EQ(macroOf(copyOfSteps(steps, indices)), (TestMacro{{1, kKeyCtrl, 50}, {0, kKeyCtrl}}));
    takeSteps(steps, indices);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyC, 60}, {0, kKeyC, 70}}));
    EXPECT_TRUE(stepsWithPartners(steps, {2}).empty());
}

TEST(TakenSteps, AreCopiedAndNotShared) {
    const auto steps = stepsOf(kHi);
    const auto copy = copyOfSteps(steps, {0});
    copy.dictionary(0).set("argument", kKeyC);
    EXPECT_EQ(macroOf(steps), kHi);
}

TEST(InsertedSteps, DoNotComeBetweenTheHalvesOfTheirKey) {
    const auto steps = stepsOf(kCtrlC);
    const auto inserted = insertSteps(steps, 2, stepsOf({{1, kKeyC, 1}, {0, kKeyC, 2}}));
    EXPECT_EQ(inserted.first, 3U);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyCtrl, 50}, {1, kKeyC, 60}, {0, kKeyC, 70}, {1, kKeyC, 1},
                                  {0, kKeyC, 2}, {0, kKeyCtrl}}));
    EXPECT_EQ(insertSteps(steps, 1, stepsOf({{1, kKeyH}, {0, kKeyH}})).first, 1U);
}

TEST(InsertedSteps, AreAsManyAsHaveRoomAndNoPressWithoutItsRelease) {
    TestMacro full(13, TestStep{1, kKeyI, 10});
    const auto steps = stepsOf(full);
    const auto inserted = insertSteps(steps, 99, stepsOf(kCtrlC));
    EXPECT_EQ(inserted.first, 13U);
    EXPECT_EQ(inserted.count, 2U);
    EXPECT_EQ(inserted.leftOut, 2U);
    full.insert(full.end(), {{1, kKeyCtrl, 50}, {0, kKeyCtrl}});
    EXPECT_EQ(macroOf(steps), full);
    EXPECT_EQ(insertSteps(plist::Array(), 0, stepsOf(kHi)).leftOut, 4U);
    const auto tooLong = stepsOf(TestMacro(20, TestStep{1, kKeyI}));
    EXPECT_EQ(insertSteps(tooLong, 0, stepsOf({{0, kKeyI}})).leftOut, 1U);
    EXPECT_EQ(tooLong.size(), 20U);
}

TEST(DuplicatedSteps, StandBehindTheirOtherHalf) {
    const auto steps = stepsOf(kCtrlC);
    const auto inserted = duplicateSteps(steps, {1});
    EXPECT_EQ(inserted.first, 3U);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyCtrl, 50}, {1, kKeyC, 60}, {0, kKeyC, 70}, {1, kKeyC, 60},
                                  {0, kKeyC, 70}, {0, kKeyCtrl}}));
}

TEST(DuplicatedSteps, NeedRoomForBothHalves) {
    TestMacro macro(13, TestStep{1, kKeyI});
    macro.insert(macro.end(), {{1, kKeyH}, {0, kKeyH}});
    const auto steps = stepsOf(macro);
    EXPECT_FALSE(canDuplicateSteps(steps, {13}));
    EXPECT_EQ(duplicateSteps(steps, {13}).count, 0U);
    EXPECT_EQ(macroOf(steps), macro);
    EXPECT_TRUE(canDuplicateSteps(steps, {0}));
    EXPECT_FALSE(canDuplicateSteps(steps, {15}));
}

TEST(SeveralSteps, MoveTogether) {
    const auto steps = stepsOf({{1, kKeyH, 1}, {0, kKeyH, 2}, {1, kKeyI, 3}, {0, kKeyI, 4}, {1, kKeyC, 5}});
    EXPECT_EQ(moveSteps(steps, {2, 3}, MoveDirection::down), (StepPlaces{3, 4}));
    EXPECT_EQ(macroOf(steps),
        (TestMacro{{1, kKeyH, 1}, {0, kKeyH, 2}, {1, kKeyC, 5}, {1, kKeyI, 3}, {0, kKeyI, 4}}));
    EXPECT_EQ(moveSteps(steps, {2, 4}, MoveDirection::down), std::nullopt);
    EXPECT_EQ(moveSteps(steps, {}, MoveDirection::up), std::nullopt);
    EXPECT_EQ(moveSteps(steps, {1, 5}, MoveDirection::up), std::nullopt);
}

TEST(SeveralSteps, TakeTheirOtherHalvesAlongAndKeepTheGaps) {
    const TestMacro macro{{1, kKeyH, 1}, {0, kKeyH, 2}, {1, kKeyI, 3}, {0, kKeyI, 4}, {1, kKeyC, 5},
        {0, kKeyC, 6}, {1, kKeyCtrl, 7}, {0, kKeyCtrl, 8}};
    const auto steps = stepsOf(macro);
    EXPECT_EQ(moveSteps(steps, {0, 4}, MoveDirection::down), (StepPlaces{1, 5}));
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyI, 3}, {1, kKeyH, 1}, {0, kKeyH, 2}, {0, kKeyI, 4},
                                  {1, kKeyCtrl, 7}, {1, kKeyC, 5}, {0, kKeyC, 6}, {0, kKeyCtrl, 8}}));
}

TEST(SeveralSteps, AreDuplicatedBehindTheLast) {
    const auto steps = stepsOf(kHi);
    const auto inserted = duplicateSteps(steps, {0, 2});
    EXPECT_EQ(inserted.first, 4U);
    EXPECT_EQ(inserted.count, 4U);
    TestMacro twice = kHi;
    twice.insert(twice.end(), kHi.begin(), kHi.end());
    EXPECT_EQ(macroOf(steps), twice);
    EXPECT_FALSE(canDuplicateSteps(steps, {}));
}

TEST(DroppedSteps, GoWhereTheyAreDropped) {
    const auto steps = stepsOf(kCtrlC);
    EXPECT_EQ(stepsMovedByDrop(steps, {0}, 3), (StepPlaces{0}));
    EXPECT_EQ(dropSteps(steps, {0}, 3), (StepPlaces{2}));
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyC, 60}, {0, kKeyC, 70}, {1, kKeyCtrl, 50}, {0, kKeyCtrl}}));
}

TEST(DroppedSteps, TakeTheirOtherHalfAlong) {
    const auto steps = stepsOf(kHi);
    EXPECT_EQ(stepsMovedByDrop(steps, {0}, 4), (StepPlaces{0, 1}));
    EXPECT_EQ(dropSteps(steps, {0}, 4), (StepPlaces{2, 3}));
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyI, 30}, {0, kKeyI, 20}, {1, kKeyH, 10}, {0, kKeyH}}));
}

TEST(DroppedSteps, TakeAHalfBesideThemAlongWhereThePairWouldStayOneToo) {
    const auto steps = stepsOf(kHi);
    EXPECT_EQ(stepsMovedByDrop(steps, {2}, 0), (StepPlaces{2, 3}));
    EXPECT_EQ(dropSteps(steps, {2}, 0), (StepPlaces{0, 1}));
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyI, 30}, {0, kKeyI, 20}, {1, kKeyH, 10}, {0, kKeyH}}));
}

TEST(DroppedSteps, AloneLeaveTheirOtherHalf) {
    const auto steps = stepsOf(kHi);
    EXPECT_EQ(stepsMovedByDrop(steps, {0}, 4, MovedStep::alone), (StepPlaces{0}));
    EXPECT_EQ(dropSteps(steps, {0}, 4, MovedStep::alone), (StepPlaces{3}));
    EXPECT_EQ(macroOf(steps), (TestMacro{{0, kKeyH, 20}, {1, kKeyI, 30}, {0, kKeyI, 10}, {1, kKeyH}}));
}

TEST(DroppedSteps, StayWhereNothingWouldChangeOrAPairWouldBreak) {
    const auto steps = stepsOf({{1, kKeyH}, {0, kKeyH}, {1, kKeyH}, {0, kKeyH}});
    for (const std::size_t place : {0U, 1U, 2U})
        EXPECT_EQ(dropSteps(steps, {0, 1}, place), std::nullopt) << place;
    EXPECT_EQ(dropSteps(steps, {0, 1}, 3), std::nullopt);
    EXPECT_EQ(dropSteps(steps, {0}, 5), std::nullopt);
    EXPECT_EQ(dropSteps(steps, {}, 1), std::nullopt);
    EXPECT_EQ(dropSteps({}, {0}, 0), std::nullopt);
}

TEST(Taps, StandWhereTheyAreInsertedAndWait) {
    const auto steps = stepsOf(kHi);
    const auto inserted = insertTap(steps, 2, 1, kKeyC);
    EXPECT_EQ(inserted.first, 2U);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyH, 10}, {0, kKeyH, 20}, {1, kKeyC, 50}, {0, kKeyC, 50},
                                  {1, kKeyI, 30}, {0, kKeyI}}));
}

TEST(Taps, AtTheEndHaveTheLastStepWait) {
    const auto steps = stepsOf(kHi);
    insertTap(steps, 4, 132, 0);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyH, 10}, {0, kKeyH, 20}, {1, kKeyI, 30}, {0, kKeyI, 50},
                                  {132, 0, 50}, {128, 0, 0}}));
    const auto waiting = stepsOf({{1, kKeyH, 10}});
    insertTap(waiting, 1, 1, kKeyC);
    EXPECT_EQ(macroOf(waiting), (TestMacro{{1, kKeyH, 10}, {1, kKeyC, 50}, {0, kKeyC, 0}}));
    const auto none = stepsOf({});
    insertTap(none, 0, 1, kKeyC);
    EXPECT_EQ(macroOf(none), (TestMacro{{1, kKeyC, 50}, {0, kKeyC, 0}}));
}

TEST(Taps, NeedRoomForBothHalves) {
    const TestMacro macro(15, TestStep{1, kKeyI});
    const auto steps = stepsOf(macro);
    EXPECT_EQ(insertTap(steps, 3, 1, kKeyC).leftOut, 2U);
    EXPECT_EQ(macroOf(steps), macro);
}

TEST(MultipliedDelays, AreRoundedToWholeMilliseconds) {
    const auto steps = stepsOf({{1, kKeyH, 25}, {0, kKeyH, 1}, {1, kKeyI, 0}, {0, kKeyI, 50}});
    EXPECT_EQ(multiplyDelays(steps, {}, 500).changed, 2U);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyH, 13}, {0, kKeyH, 1}, {1, kKeyI, 0}, {0, kKeyI, 25}}));
    EXPECT_EQ(multiplyDelays(steps, {0, 3}, 2000).changed, 2U);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyH, 26}, {0, kKeyH, 1}, {1, kKeyI, 0}, {0, kKeyI, 50}}));
    EXPECT_EQ(multiplyDelays(steps, {}, 1000).changed, 0U);
}

TEST(MultipliedDelays, EndAtTheLongest) {
    const auto steps =
        stepsOf({{1, kKeyH, 16777215}, {0, kKeyH, 8388608}, {1, kKeyI, -5}, {0, kKeyI, 20000000}});
    const auto result = multiplyDelays(steps, {}, 2000);
    EXPECT_EQ(result.changed, 1U);
    EXPECT_EQ(result.tooLong, 2U);
    EXPECT_EQ(macroOf(steps),
        (TestMacro{{1, kKeyH, 16777215}, {0, kKeyH, 16777215}, {1, kKeyI, -5}, {0, kKeyI, 20000000}}));
    multiplyDelays({}, {}, 2000);
    multiplyDelays(steps, {99}, 2000);
}

} // namespace
} // namespace quorvi
