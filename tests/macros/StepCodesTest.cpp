#include "macros/StepCodes.h"

#include <gtest/gtest.h>

namespace quorvi {
namespace {

struct Partner {
    std::uint32_t code;
    std::uint32_t partner;
    bool isDown;
};

TEST(MatchingCommand, PairsPressesAndReleases) {
    for (const Partner& row : {Partner{0, 1, false}, Partner{1, 0, true}, Partner{128, 129, false},
             Partner{129, 128, true}, Partner{130, 128, true}, Partner{132, 128, true},
             Partner{136, 128, true}, Partner{144, 128, true}}) {
        bool isDown = !row.isDown;
        EXPECT_EQ(matchingCommand(row.code, &isDown), row.partner) << row.code;
        EXPECT_EQ(isDown, row.isDown) << row.code;
    }
}

TEST(MatchingCommand, AnyOtherCodeIsAPressThatAKeyReleaseEnds) {
    for (const std::uint32_t code : {2U, 17U, 127U, 131U, 133U, 143U, 145U, 0xFFFFFFFFU}) {
        bool isDown = false;
        EXPECT_EQ(matchingCommand(code, &isDown), 0U) << code;
        EXPECT_TRUE(isDown) << code;
    }
}

TEST(MatchingCommand, TheFlagCanBeLeftOut) {
    EXPECT_EQ(matchingCommand(130, nullptr), 128U);
}

TEST(CommandOfMouseEvent, PressesSayWhichButton) {
    EXPECT_EQ(commandOfMouseEvent(1, 0), 129U);
    EXPECT_EQ(commandOfMouseEvent(3, 1), 130U);
    EXPECT_EQ(commandOfMouseEvent(25, 2), 132U);
    EXPECT_EQ(commandOfMouseEvent(25, 3), 136U);
    EXPECT_EQ(commandOfMouseEvent(25, 4), 144U);
}

TEST(CommandOfMouseEvent, EveryReleaseIsTheSame) {
    for (const int type : {2, 4, 26})
        for (const int number : {0, 1, 2, 3, 4, 5})
            EXPECT_EQ(commandOfMouseEvent(type, number), 128U) << type << ' ' << number;
}

TEST(CommandOfMouseEvent, FurtherButtonsAndOtherEventsAreNotRecorded) {
    for (const int number : {-1, 0, 1, 5, 31})
        EXPECT_EQ(commandOfMouseEvent(25, number), std::nullopt) << number;
    for (const int type : {-1, 0, 5, 6, 7, 22, 24, 27, 100})
        EXPECT_EQ(commandOfMouseEvent(type, 2), std::nullopt) << type;
}

} // namespace
} // namespace quorvi
