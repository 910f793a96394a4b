#include "macros/DelayScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quorvi {
namespace {

struct Interval {
    int milliseconds;
    int delay;
};

constexpr Interval kIntervals[] = {{0, 10}, {1, 10}, {9, 10}, {10, 20}, {19, 20}, {20, 30}, {29, 30},
    {30, 40}, {39, 40}, {40, 50}, {49, 50}, {50, 100}, {51, 100}, {99, 100}, {100, 150}, {149, 150},
    {150, 200}, {199, 200}, {200, 300}, {299, 300}, {300, 400}, {399, 400}, {400, 500}, {499, 500},
    {500, 1000}, {999, 1000}, {1000, 2000}, {1999, 2000}, {2000, 3000}, {2999, 3000}, {3000, 4000},
    {3999, 4000}, {4000, 5000}, {4999, 5000}, {5000, 5000}, {5001, 5000}, {3600000, 5000}};

TEST(DelayOfInterval, IsTheNextLongerDelayOfTheScale) {
    for (const Interval& row : kIntervals)
        EXPECT_EQ(delayOfInterval(row.milliseconds / 1000.0), row.delay) << row.milliseconds;
}

TEST(DelayOfInterval, CountsWholeMilliseconds) {
    EXPECT_EQ(delayOfInterval(0.0499), 50);
    EXPECT_EQ(delayOfInterval(0.0509), 100);
    EXPECT_EQ(delayOfInterval(4.9999), 5000);
}

TEST(DelayOfInterval, DoesNotDependOnHowLateItIs) {
    // Readings since a boot long ago, since 2001, and since 1970.
    for (const double base : {1.0, 1000.0, 1e7, 780123456.789, 1.76e9})
        for (const Interval& row : kIntervals)
            EXPECT_EQ(delayOfInterval((base + row.milliseconds / 1000.0) - base), row.delay)
                << base << ' ' << row.milliseconds;
}

TEST(DelayOfInterval, AClockThatJumpsGivesADelayOfTheScale) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double back : {-0.0001, -0.05, -1.0, -1e9, -1e300, -infinity})
        EXPECT_EQ(delayOfInterval(back), 10) << back;
    for (const double ahead : {1e9, 1e18, 1e300, infinity})
        EXPECT_EQ(delayOfInterval(ahead), 5000) << ahead;
    EXPECT_EQ(delayOfInterval(std::nan("")), 10);
}

} // namespace
} // namespace quorvi
