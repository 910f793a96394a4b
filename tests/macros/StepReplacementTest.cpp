#include "macros/StepReplacement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "macros/NaiveReplacement.h"

namespace quorvi {
namespace {

using test::macroOf;
using test::naivelyReplaced;
using test::stepsOf;
using test::TestMacro;

constexpr int kStepA = 4;
constexpr int kStepB = 5;
constexpr int kX = 27;

struct Replacement {
    const char* name;
    TestMacro before;
    std::size_t row;
    int code;
    int argument;
    TestMacro after;
};

void PrintTo(const Replacement& replacement, std::ostream* stream) {
    *stream << replacement.name;
}

const Replacement kReplacements[] = {
    {"PressOverPress", {{1, kStepA, 10}, {0, kStepA, 20}, {1, kStepB, 30}, {0, kStepB}}, 0, 1, kX,
        {{1, kX, 10}, {0, kX, 20}, {1, kStepB, 30}, {0, kStepB}}},
    {"PressOverRelease", {{1, kStepA, 10}, {0, kStepA, 20}, {1, kStepB, 30}, {0, kStepB}}, 1, 1, kX,
        {{1, kX, 10}, {0, kX, 20}, {1, kStepB, 30}, {0, kStepB}}},
    {"ReleaseOverPress", {{1, kStepA}, {0, kStepA}}, 0, 0, kX, {{0, kX}, {1, kX}}},
    {"ReleaseOverRelease", {{1, kStepA}, {0, kStepA}}, 1, 0, kX, {{0, kX}, {1, kX}}},
    {"MouseOverKeyPress", {{1, kStepA}, {1, kStepB}, {0, kStepB}, {0, kStepA}}, 0, 130, 0,
        {{130, 0}, {1, kStepB}, {0, kStepB}, {128, 0}}},
    {"MouseOverKeyRelease", {{1, kStepA}, {1, kStepB}, {0, kStepB}, {0, kStepA}}, 3, 144, 0,
        {{144, 0}, {1, kStepB}, {0, kStepB}, {128, 0}}},
    {"KeyOverMousePress", {{132, 0}, {1, kStepB}, {128, 0}, {0, kStepB}}, 0, 1, kX,
        {{1, kX}, {1, kStepB}, {0, kX}, {0, kStepB}}},
    {"KeyOverMouseReleaseOfAnyButton", {{136, 0}, {1, kStepB}, {128, 0}}, 2, 1, kX,
        {{1, kX}, {1, kStepB}, {0, kX}}},
    {"MouseOverMouse", {{129, 0}, {128, 0}}, 0, 130, 0, {{130, 0}, {128, 0}}},
    {"MouseOverMouseRelease", {{129, 0}, {128, 0}}, 1, 130, 0, {{130, 0}, {128, 0}}},
    {"MouseReleaseOverKeyRelease", {{1, kStepA}, {0, kStepA}}, 1, 128, 0, {{128, 0}, {129, 0}}},
    {"PressWithoutPartner", {{1, kStepA}, {1, kStepB}, {0, kStepB}}, 0, 1, kX,
        {{1, kX}, {1, kStepB}, {0, kStepB}}},
    {"ReleaseWithoutPartner", {{1, kStepB}, {0, kStepB}, {0, kStepA}}, 2, 1, kX,
        {{1, kStepB}, {0, kStepB}, {0, kX}}},
    {"PartnerOnTheWrongSide", {{0, kStepA}, {1, kStepA}}, 1, 1, kX, {{0, kStepA}, {1, kX}}},
    {"PartnerOfAnotherKey", {{1, kStepA}, {0, kStepB}}, 0, 1, kX, {{1, kX}, {0, kStepB}}},
    {"PartnerOfAMouseButtonWithAnotherArgument", {{129, 1}, {128, 0}}, 0, 130, 0, {{130, 0}, {128, 0}}},
    {"TheNextReleaseOfARepeatedKey", {{1, kStepA}, {0, kStepA}, {1, kStepA}, {0, kStepA}}, 0, 1, kX,
        {{1, kX}, {0, kX}, {1, kStepA}, {0, kStepA}}},
    {"TheLastPressOfARepeatedKey", {{1, kStepA}, {0, kStepA}, {1, kStepA}, {0, kStepA}}, 3, 1, kX,
        {{1, kStepA}, {0, kStepA}, {1, kX}, {0, kX}}},
    {"TheSameKeyAgain", {{1, kStepA, 10}, {0, kStepA, 20}}, 0, 1, kStepA, {{1, kStepA, 10}, {0, kStepA, 20}}},
    {"AButtonCodeThatNoRecordingWrites", {{1, kStepA}, {0, kStepA}}, 0, 131, 0, {{131, 0}, {0, 0}}},
    {"OverACodeThatNoRecordingWrites", {{17, kStepA}, {0, kStepA}}, 0, 1, kX, {{1, kX}, {0, kX}}},
    {"ACodeBelowTheButtons", {{1, kStepA}, {0, kStepA}}, 0, 127, kX, {{1, kStepA}, {0, kStepA}}},
    {"ACodeAboveTheButtons", {{1, kStepA}, {0, kStepA}}, 0, 145, kX, {{1, kStepA}, {0, kStepA}}},
    {"ACodeAboveTheKeys", {{1, kStepA}, {0, kStepA}}, 0, 2, kX, {{1, kStepA}, {0, kStepA}}},
    {"TheOnlyStep", {{0, kStepA, 40}}, 0, 1, kX, {{0, kX, 40}}},
};

class StepReplacement : public testing::TestWithParam<Replacement> {};

TEST_P(StepReplacement, ReplacesTheStepAndItsPartner) {
    const Replacement& row = GetParam();
    const auto steps = stepsOf(row.before);
    replaceStep(
        steps, row.row, static_cast<std::uint32_t>(row.code), static_cast<std::uint8_t>(row.argument));
    EXPECT_EQ(macroOf(steps), row.after);
    EXPECT_EQ(naivelyReplaced(row.before, row.row, row.code, row.argument), row.after);
}

INSTANTIATE_TEST_SUITE_P(Table, StepReplacement, testing::ValuesIn(kReplacements),
    [](const auto& replacement) { return std::string(replacement.param.name); });

TEST(StepReplacementOfOddSteps, WhatIsNoStepIsNeitherReplacedNorAPartner) {
    const auto steps = stepsOf({{1, 0}});
    steps.append(5);
    steps.append(test::dict({{"command", 0}, {"argument", 0}, {"other", u"kept"}}));
    replaceStep(steps, 1, 1, kX);
    EXPECT_EQ(steps.value(1).integer(), 5);
    replaceStep(steps, 0, 1, kX);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kX}, {0, 0}, {0, kX}}));
    EXPECT_EQ(steps.value(1).integer(), 5);
    EXPECT_EQ(steps.dictionary(2).string("other"), u"kept");
}

/// A macro of every length, of few keys, so that they repeat, and of odd codes in between.
TestMacro randomMacro(std::mt19937& random) {
    constexpr std::array codes{0, 0, 0, 1, 1, 1, 128, 128, 129, 130, 132, 136, 144, 131, 17, -1};
    const auto pick = [&](int count) {
        return static_cast<std::size_t>(std::uniform_int_distribution(0, count - 1)(random));
    };
    TestMacro macro(1 + pick(16));
    for (auto& step : macro) {
        const int code = codes[pick(codes.size())];
        step = {code, code >= 128 ? 0 : static_cast<int>(4 + pick(3)), static_cast<int>(10 * pick(6))};
    }
    return macro;
}

TEST(RandomStepReplacement, AgreesWithTheRulesWrittenDownOnceMore) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    constexpr std::array codes{0, 1, 1, 1, 128, 129, 130, 132, 136, 144, 131, 2, 145};
    for (int number = 0; number < 10000; ++number) {
        const TestMacro before = randomMacro(random);
        const std::size_t row = random() % before.size();
        const int code = codes[random() % codes.size()];
        const int argument = code >= 128 ? 0 : static_cast<int>(4 + random() % 4);
        const auto steps = stepsOf(before);
        replaceStep(steps, row, static_cast<std::uint32_t>(code), static_cast<std::uint8_t>(argument));
        ASSERT_EQ(macroOf(steps), naivelyReplaced(before, row, code, argument))
            << "row " << row << " of " << testing::PrintToString(before) << " by " << code << ' ' << argument;
    }
}

} // namespace
} // namespace quorvi
