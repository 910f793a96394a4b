#include "macros/Timeline.h"

#include <gtest/gtest.h>

#include "macros/Steps.h"

namespace quorvi {

static void PrintTo(const TimelineBar& bar, std::ostream* stream) {
    *stream << "lane " << bar.lane << ", " << bar.first << " to "
            << (bar.last ? std::to_string(*bar.last) : "the end") << ", kind " << int(bar.kind) << ", button "
            << bar.button;
}

} // namespace quorvi

namespace quorvi::test {
namespace {

using Bars = std::vector<TimelineBar>;
using Lanes = std::vector<TimelineLane>;

enum Command : int { up = 0, down = 1, buttonsUp = 128, button1 = 129, button3 = 132 };
enum KeyPlace : int { ctrl = 224, c = 6, s = 22 };

TimelineLane laneOfKey(int key) {
    return {LaneKind::key, key};
}

TEST(Timeline, ofNoStepsIsEmpty) {
    EXPECT_EQ(timelineOf(stepsOf({})), Timeline());
    EXPECT_EQ(timelineOf({}), Timeline());
}

TEST(Timeline, aPressAndItsReleaseAreOneBar) {
    const Timeline timeline = timelineOf(stepsOf({{down, s, 50}, {up, s, 0}}));
    EXPECT_EQ(timeline.lanes, Lanes{laneOfKey(s)});
    EXPECT_EQ(timeline.bars, (Bars{{0, 0, 1, BarKind::held, 0}}));
    EXPECT_EQ(timeline.delays, (std::vector<std::int32_t>{50, 0}));
    EXPECT_EQ(timeline.laneOfStep, (std::vector<std::size_t>{0, 0}));
}

TEST(Timeline, eachKeyHasItsLaneInTheOrderOfItsFirstStep) {
    const Timeline timeline =
        timelineOf(stepsOf({{down, ctrl}, {down, c}, {up, c}, {up, ctrl}, {down, c}, {up, c}}));
    EXPECT_EQ(timeline.lanes, (Lanes{laneOfKey(ctrl), laneOfKey(c)}));
    EXPECT_EQ(timeline.bars,
        (Bars{{0, 0, 3, BarKind::held, 0}, {1, 1, 2, BarKind::held, 0}, {1, 4, 5, BarKind::held, 0}}));
}

TEST(Timeline, sixteenStepsOfSixteenKeysHaveSixteenLanes) {
    TestMacro macro;
    for (int key = 4; key < 20; ++key)
        macro.push_back({down, key, 10});
    const Timeline timeline = timelineOf(stepsOf(macro));
    EXPECT_EQ(timeline.lanes.size(), 16U);
    EXPECT_EQ(timeline.bars.size(), 16U);
    for (const TimelineBar& bar : timeline.bars)
        EXPECT_EQ(bar.kind, BarKind::staysDown);
}

TEST(Timeline, allButtonsOfTheMouseShareALaneAndTheirBarsSayWhich) {
    const Timeline timeline =
        timelineOf(stepsOf({{button1, 0, 20}, {buttonsUp, 0, 20}, {button3, 0, 20}, {buttonsUp, 0}}));
    EXPECT_EQ(timeline.lanes, (Lanes{{LaneKind::buttons, 0}}));
    EXPECT_EQ(timeline.bars, (Bars{{0, 0, 1, BarKind::held, 1}, {0, 2, 3, BarKind::held, 3}}));
}

TEST(Timeline, aPressWithoutReleaseGoesToTheEnd) {
    const Timeline timeline = timelineOf(stepsOf({{down, ctrl, 10}, {down, c, 10}, {up, c, 0}}));
    EXPECT_EQ(
        timeline.bars, (Bars{{0, 0, std::nullopt, BarKind::staysDown, 0}, {1, 1, 2, BarKind::held, 0}}));
}

TEST(Timeline, aReleaseWithoutPressHasNoLength) {
    const Timeline timeline = timelineOf(stepsOf({{up, s, 10}, {down, s, 10}, {up, s, 0}}));
    EXPECT_EQ(
        timeline.bars, (Bars{{0, 0, std::nullopt, BarKind::neverPressed, 0}, {0, 1, 2, BarKind::held, 0}}));
}

TEST(Timeline, aRepeatedPressEndsTheBarOfTheFirst) {
    const Timeline timeline =
        timelineOf(stepsOf({{down, s, 10}, {down, c, 10}, {down, s, 10}, {up, s, 10}, {up, c, 0}}));
    EXPECT_EQ(timeline.bars, (Bars{{0, 0, 2, BarKind::pressedAgain, 0}, {1, 1, 4, BarKind::held, 0},
                                 {0, 2, 3, BarKind::held, 0}}));
}

TEST(Timeline, aStepThatNobodyRecordsHasALaneOfItsOwn) {
    const Timeline timeline = timelineOf(stepsOf({{77, 3, 10}, {down, s, 10}, {up, s, 0}}));
    EXPECT_EQ(timeline.lanes, (Lanes{{LaneKind::other, 0}, laneOfKey(s)}));
    EXPECT_EQ(timeline.bars.front(), (TimelineBar{0, 0, std::nullopt, BarKind::unknown, 0}));
}

TEST(Timeline, aNegativeDelayCountsAsNone) {
    EXPECT_EQ(timelineOf(stepsOf({{down, s, -7}})).delays, std::vector<std::int32_t>{0});
}

TEST(Timeline, everyStepHasABar) {
    const Timeline timeline = timelineOf(stepsOf({{down, s, 1}, {down, s, 1}, {up, s, 1}, {up, s, 1},
        {77, 0, 1}, {buttonsUp, 0, 1}, {button1, 0, 1}}));
    for (std::size_t step = 0; step < timeline.steps(); ++step)
        ASSERT_LT(timeline.barOfStep(step), timeline.bars.size()) << step;
    EXPECT_EQ(timeline.barOfStep(2), 1U);
    EXPECT_EQ(timeline.barOfStep(1), 1U); // not that of the first press, which ends here
}

TEST(Timeline, onlyThePartsOfAPairBelongToEachOther) {
    const Timeline timeline = timelineOf(stepsOf({{down, s, 1}, {down, s, 1}, {up, s, 1}}));
    EXPECT_EQ(timeline.stepsOfBar(timeline.bars[0]), std::vector<std::size_t>{0});
    EXPECT_EQ(timeline.stepsOfBar(timeline.bars[1]), (std::vector<std::size_t>{1, 2}));
}

} // namespace
} // namespace quorvi::test
