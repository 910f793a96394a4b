#include "macros/TimelineScale.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "macros/DelayScale.h"
#include "model/Limits.h"

namespace quorvi::test {
namespace {

using Delays = std::vector<std::int32_t>;

constexpr TimelineMeasures kMeasures{.room = 5, .longestMillisecond = 2};
constexpr double kWidth = 400;

TimelineScale scaleOf(const Delays& delays, double width = kWidth) {
    return {delays, width, kMeasures};
}

double lengthOf(const TimelineScale& scale, std::size_t step) {
    return scale.placeOf(step + 1) - scale.placeOf(step);
}

TEST(TimelineScale, ofNoStepsHasOnePlaceAndNoStep) {
    const TimelineScale scale = scaleOf({});
    EXPECT_EQ(scale.end(), 0);
    EXPECT_EQ(scale.placeOf(3), 0);
    EXPECT_EQ(scale.placeOfTime(20), 0);
    EXPECT_EQ(scale.stepBefore(0), std::nullopt);
    EXPECT_EQ(TimelineScale().end(), 0);
}

TEST(TimelineScale, aShortMacroIsNoLargerThanTheEyeNeeds) {
    const TimelineScale scale = scaleOf({20, 0});
    EXPECT_DOUBLE_EQ(lengthOf(scale, 0), 5 + 2 * 20);
    EXPECT_DOUBLE_EQ(lengthOf(scale, 1), 5);
}

TEST(TimelineScale, upToATenthOfASecondLengthsAreToScale) {
    const TimelineScale scale = scaleOf({100, 50, 25, 100, 100, 100});
    const double millisecond = (lengthOf(scale, 0) - 5) / 100;
    EXPECT_NEAR(lengthOf(scale, 1), 5 + 50 * millisecond, 1e-9);
    EXPECT_NEAR(lengthOf(scale, 2), 5 + 25 * millisecond, 1e-9);
    EXPECT_NEAR(scale.end(), kWidth, 1e-9);
}

TEST(TimelineScale, eachDoublingOfALongDelayAddsTheSame) {
    const TimelineScale scale = scaleOf({100, 200, 400, 800});
    const double added = lengthOf(scale, 1) - lengthOf(scale, 0);
    EXPECT_GT(added, 10);
    EXPECT_NEAR(lengthOf(scale, 2) - lengthOf(scale, 1), added, 1e-9);
    EXPECT_NEAR(lengthOf(scale, 3) - lengthOf(scale, 2), added, 1e-9);
    EXPECT_FALSE(isDrawnShorter(100));
    EXPECT_TRUE(isDrawnShorter(101));
}

TEST(TimelineScale, besideFiveSecondsTwentyMillisecondsAreSeen) {
    Delays delays(15, 20);
    delays.push_back(5000);
    const TimelineScale scale = scaleOf(delays);
    EXPECT_GT(lengthOf(scale, 0) - 5, 6);
    EXPECT_LT(lengthOf(scale, 15), kWidth * 0.7);
    EXPECT_NEAR(scale.end(), kWidth, 1e-9);
}

TEST(TimelineScale, sixteenOfTheLongestDelaysFit) {
    const TimelineScale scale = scaleOf(Delays(16, limits::longestDelay));
    EXPECT_NEAR(scale.end(), kWidth, 1e-9);
    EXPECT_NEAR(lengthOf(scale, 3), kWidth / 16, 1e-9);
}

TEST(TimelineScale, stepsWithoutTimeBetweenThemStandBesideEachOther) {
    const TimelineScale scale = scaleOf({0, 0, 0});
    EXPECT_EQ(scale.placeOf(1), 5);
    EXPECT_EQ(scale.placeOf(2), 10);
    EXPECT_EQ(scale.end(), 15);
}

TEST(TimelineScale, noWidthIsTooSmall) {
    for (const double width : {-10.0, 0.0, 1.0, 7.0}) {
        const TimelineScale scale = scaleOf(Delays(16, 50), width);
        EXPECT_GE(scale.end(), 0);
        EXPECT_LE(scale.end(), std::max(0.0, width) + 1e-9);
        EXPECT_EQ(scale.delayAt(3, 100), 50) << width;
        EXPECT_EQ(scale.delayNear(3, 100, delayScale, 1000), 50) << width;
    }
}

TEST(TimelineScale, moreStepsThanTheWidthHasRoomForFit) {
    EXPECT_NEAR(scaleOf(Delays(1000, 0)).end(), kWidth, 1e-6);
}

TEST(TimelineScale, aPlaceGivesTheDelayThatHasIt) {
    for (const std::int32_t delay : {0, 1, 7, 50, 99, 100, 101}) {
        TimelineScale scale = scaleOf({50, 50});
        scale.setDelay(0, delay);
        EXPECT_EQ(scale.delayAt(0, scale.placeOf(1)), delay);
    }
}

TEST(TimelineScale, whatAPixelCannotTellApartIsRounded) {
    TimelineScale scale = scaleOf({50, 50});
    scale.setDelay(0, 4321);
    const std::int32_t delay = scale.delayAt(0, scale.placeOf(1));
    EXPECT_EQ(delay % 10, 0);
    EXPECT_NEAR(delay, 4321, 50);
}

TEST(TimelineScale, aPlaceBeforeTheStepGivesNoDelayAndFarBehindItTheLongest) {
    const TimelineScale scale = scaleOf({50, 50});
    EXPECT_EQ(scale.delayAt(1, scale.placeOf(1)), 0);
    EXPECT_EQ(scale.delayAt(1, -1e9), 0);
    EXPECT_EQ(scale.delayAt(1, 1e9), std::int32_t(limits::longestDelay));
    EXPECT_EQ(scale.delayAt(1, std::numeric_limits<double>::infinity()), std::int32_t(limits::longestDelay));
}

TEST(TimelineScale, aPlaceNearAUsualDelayGivesIt) {
    TimelineScale scale = scaleOf({50, 50});
    scale.setDelay(0, 100);
    const double hundred = scale.placeOf(1);
    EXPECT_EQ(scale.delayNear(0, hundred + 4, delayScale, 5), 100);
    EXPECT_EQ(scale.delayNear(0, hundred - 4, delayScale, 5), 100);
    EXPECT_NE(scale.delayNear(0, hundred - 8, delayScale, 5), 100);
    EXPECT_NE(scale.delayNear(0, hundred - 4, {}, 5), 100);
}

TEST(TimelineScale, anotherDelayMovesWhatIsBehindItAndKeepsTheRest) {
    TimelineScale scale = scaleOf({50, 60, 70, 0});
    const double before = scale.placeOf(1);
    const double length = lengthOf(scale, 2);
    const double end = scale.end();
    scale.setDelay(1, 5000);
    EXPECT_EQ(scale.placeOf(1), before);
    EXPECT_DOUBLE_EQ(lengthOf(scale, 2), length);
    EXPECT_GT(scale.end(), end);
    EXPECT_EQ(scale.delayOf(1), 5000);
}

TEST(TimelineScale, theEdgeStaysUnderThePointerAtEveryPlace) {
    TimelineScale scale = scaleOf({50, 60, 70, 0});
    for (double place = scale.placeOf(1) + 6; place < 2000; place += 3.7) {
        scale.setDelay(1, scale.delayAt(1, place));
        ASSERT_NEAR(scale.placeOf(2), place, 1.0) << place;
    }
}

TEST(TimelineScale, timeRunsFromStepToStep) {
    const TimelineScale scale = scaleOf({50, 0, 1000, 0});
    EXPECT_EQ(scale.placeOfTime(-1), 0);
    EXPECT_GE(scale.placeOfTime(0), scale.placeOf(0));
    EXPECT_LT(scale.placeOfTime(49), scale.placeOf(1));
    EXPECT_GT(scale.placeOfTime(50), scale.placeOf(2)); // past both steps that have no time between them
    EXPECT_LT(scale.placeOfTime(1049), scale.placeOf(3));
    EXPECT_EQ(scale.placeOfTime(1050), scale.end());
    EXPECT_EQ(scale.placeOfTime(1e12), scale.end());
    double last = 0;
    for (double time = 0; time < 1100; time += 0.5) {
        ASSERT_GE(scale.placeOfTime(time), last) << time;
        last = scale.placeOfTime(time);
    }
}

TEST(TimelineScale, aPlaceIsBehindTheStepBeforeIt) {
    const TimelineScale scale = scaleOf({50, 0, 20});
    EXPECT_EQ(scale.stepBefore(-0.1), std::nullopt);
    EXPECT_EQ(scale.stepBefore(0), 0U);
    EXPECT_EQ(scale.stepBefore(scale.placeOf(1)), 1U);
    EXPECT_EQ(scale.stepBefore(scale.placeOf(2) + 1), 2U);
    EXPECT_EQ(scale.stepBefore(scale.end()), 2U);
    EXPECT_EQ(scale.stepBefore(scale.end() + 0.1), std::nullopt);
}

TEST(TimelineScale, byKeyADelayGoesToTheNextUsualOne) {
    EXPECT_EQ(nextDelay(delayScale, 50, true), 100);
    EXPECT_EQ(nextDelay(delayScale, 75, true), 100);
    EXPECT_EQ(nextDelay(delayScale, 75, false), 50);
    EXPECT_EQ(nextDelay(delayScale, 50, false), 40);
    EXPECT_EQ(nextDelay(delayScale, 0, true), 10);
    EXPECT_EQ(nextDelay(delayScale, 10, false), std::nullopt);
    EXPECT_EQ(nextDelay(delayScale, 5000, true), std::nullopt);
    EXPECT_EQ(nextDelay(delayScale, 60000, false), 5000);
    EXPECT_EQ(nextDelay({}, 50, true), std::nullopt);
}

// Against every delay that can be stored, by chance, in windows of any width.
TEST(TimelineScale, everyMacroFitsInItsOrder) {
    std::mt19937 random(20261122);
    for (int run = 0; run < 2000; ++run) {
        Delays delays(random() % 17);
        for (std::int32_t& delay : delays)
            delay = std::int32_t(random() % (limits::longestDelay >> (random() % 24)));
        const double width = 100 + random() % 900;
        const TimelineScale scale = scaleOf(delays, width);
        ASSERT_LE(scale.end(), width + 1e-6);
        for (std::size_t step = 0; step < delays.size(); ++step)
            ASSERT_GE(lengthOf(scale, step), std::min(5.0, width / double(delays.size())) - 1e-9);
    }
}

} // namespace
} // namespace quorvi::test
