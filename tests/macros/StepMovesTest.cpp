#include "macros/StepMoves.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "macros/NaiveMoves.h"

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
    const auto wanted = move.after.empty() ? std::nullopt : std::optional(move.newRow);
    EXPECT_EQ(placeOfMovedStep(steps, move.row, move.direction, move.moved), wanted);
    EXPECT_EQ(macroOf(steps), move.before);
    EXPECT_EQ(moveStep(steps, move.row, move.direction, move.moved), wanted);
    EXPECT_EQ(macroOf(steps), move.after.empty() ? move.before : move.after);
}

INSTANTIATE_TEST_SUITE_P(Table, StepMoves, testing::ValuesIn(kMoves),
    [](const auto& move) { return std::string(move.param.name); });

TEST(TakenSteps, GoWithTheirOtherHalf) {
    const auto steps = stepsOf(kCtrlC);
    const auto indices = stepWithPartner(steps, 3);
    EXPECT_EQ(macroOf(copyOfSteps(steps, indices)), (TestMacro{{1, kKeyCtrl, 50}, {0, kKeyCtrl}}));
    takeSteps(steps, indices);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyC, 60}, {0, kKeyC, 70}}));
    EXPECT_TRUE(stepWithPartner(steps, 2).empty());
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
    const auto inserted = duplicateStep(steps, 1);
    EXPECT_EQ(inserted.first, 3U);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kKeyCtrl, 50}, {1, kKeyC, 60}, {0, kKeyC, 70}, {1, kKeyC, 60},
                                  {0, kKeyC, 70}, {0, kKeyCtrl}}));
}

TEST(DuplicatedSteps, NeedRoomForBothHalves) {
    TestMacro macro(13, TestStep{1, kKeyI});
    macro.insert(macro.end(), {{1, kKeyH}, {0, kKeyH}});
    const auto steps = stepsOf(macro);
    EXPECT_FALSE(canDuplicateStep(steps, 13));
    EXPECT_EQ(duplicateStep(steps, 13).count, 0U);
    EXPECT_EQ(macroOf(steps), macro);
    EXPECT_TRUE(canDuplicateStep(steps, 0));
    EXPECT_FALSE(canDuplicateStep(steps, 15));
}

/// A few keys, so that they repeat, mostly down and up again.
TestMacro randomSteps(std::mt19937& random, std::size_t most) {
    TestMacro macro;
    while (macro.size() < most) {
        const bool isButton = random() % 4 == 0;
        const int key = isButton ? 0 : 4 + static_cast<int>(random() % 3);
        const int delay = static_cast<int>(random() % 4) * 10;
        if (random() % 4 != 0)
            macro.insert(macro.begin() + static_cast<std::ptrdiff_t>(random() % (macro.size() + 1)),
                {isButton ? 129 : 1, key, delay});
        macro.push_back({isButton ? 128 : 0, key, delay});
        if (random() % 8 == 0)
            break;
    }
    return macro;
}

/// Does the same to both, and says what it was.
std::string editBoth(std::mt19937& random, const plist::Array& steps, TestMacro& plain) {
    const std::size_t row = random() % plain.size();
    switch (random() % 4) {
    case 0:
    case 1: {
        const bool up = random() % 2 == 0;
        const auto expected = test::naivelyMoved(plain, row, up);
        const auto place = moveStep(steps, row, up ? MoveDirection::up : MoveDirection::down);
        EXPECT_EQ(place.has_value(), expected.has_value());
        if (expected) {
            EXPECT_EQ(place, expected->row);
            plain = expected->macro;
        }
        return "move";
    }
    case 2:
        takeSteps(steps, stepWithPartner(steps, row));
        plain = test::naivelyTaken(plain, row);
        return "take";
    default:
        duplicateStep(steps, row);
        plain = test::naivelyDuplicated(plain, row);
        return "duplicate";
    }
}

std::size_t countOfPairs(const TestMacro& macro) {
    std::size_t halves = 0;
    for (std::size_t row = 0; row < macro.size(); ++row)
        halves += test::naivePartner(macro, row) ? 1 : 0;
    return halves / 2;
}

TEST(RandomEditsOfSteps, AgreeWithAPlainList) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    TestMacro plain;
    auto steps = stepsOf(plain);
    for (int number = 0; number < 10000; ++number) {
        const TestMacro before = plain;
        std::string edit = "insert";
        if (plain.empty() || random() % 5 == 0) {
            const TestMacro added = randomSteps(random, 6);
            const auto inserted = insertSteps(steps, random() % (plain.size() + 1), stepsOf(added));
            ASSERT_EQ(inserted.count + inserted.leftOut, added.size());
            ASSERT_EQ(steps.size(), before.size() + inserted.count);
            plain = macroOf(steps);
            ASSERT_GE(countOfPairs(plain), countOfPairs(before));
        } else {
            edit = editBoth(random, steps, plain);
            if (edit == "move") {
                ASSERT_GE(countOfPairs(plain), countOfPairs(before));
            }
        }
        ASSERT_EQ(macroOf(steps), plain) << edit << " in " << testing::PrintToString(before);
        ASSERT_LE(steps.size(), 16U);
    }
}

} // namespace
} // namespace quorvi
