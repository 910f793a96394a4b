// The copies that are kept.

#include "history/Retention.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "history/CopyName.h"
#include "history/Histories.h"
#include "support/EnvironmentVariable.h"

namespace quorvi::test {
namespace {

using namespace std::chrono;

class Retained : public testing::Test {
  protected:
    void add(Time time, std::uint64_t bytes = 1) {
        copies.push_back({datedCopy(time, CopyReason::firstChangeOfDay), bytes});
    }
    /// The times of those that stay, oldest first. The last one added was just made.
    [[nodiscard]] std::vector<Time> staying(Time now) const {
        auto newestFirst = copies;
        std::sort(newestFirst.begin(), newestFirst.end(),
            [](const auto& a, const auto& b) { return a.copy.time > b.copy.time; });
        const auto gone = copiesToRemove(newestFirst, copies.back().copy.name, now);
        std::vector<Time> result;
        for (const auto& sized : newestFirst)
            if (std::find(gone.begin(), gone.end(), sized.copy.name) == gone.end())
                result.insert(result.begin(), sized.copy.time);
        return result;
    }

    EnvironmentVariable zone{"TZ", "UTC"};
    std::vector<SizedCopy> copies;
};

TEST_F(Retained, ofTodayTheFirstAndTheNewestNine) {
    const Time morning = noon(2026, 11, 22) - hours(5);
    std::vector<Time> expected{morning};
    for (int minute = 0; minute < 30; ++minute) {
        add(morning + minutes(minute));
        if (minute > 20)
            expected.push_back(morning + minutes(minute));
    }
    EXPECT_EQ(staying(noon(2026, 11, 22)), expected);
}

TEST_F(Retained, ofADayBeforeTheFirst) {
    add(noon(2026, 11, 20));
    add(noon(2026, 11, 20) + hours(1));
    add(noon(2026, 11, 21));
    add(noon(2026, 11, 21) + hours(2));
    add(noon(2026, 11, 22));
    EXPECT_EQ(staying(noon(2026, 11, 22)),
        (std::vector<Time>{noon(2026, 11, 20), noon(2026, 11, 21), noon(2026, 11, 22)}));
}

TEST_F(Retained, theNewestThirtyDaysThatHaveCopiesAndThenTheFirstOfEachMonth) {
    // Every third day from the first of June on: the newest thirty days begin with the 27th of August.
    std::vector<Time> days;
    for (Time day = noon(2026, 6, 1); day <= noon(2026, 11, 24); day += hours(72)) {
        add(day);
        days.push_back(day);
    }
    std::vector<Time> expected{days.end() - 30, days.end()};
    ASSERT_EQ(expected.front(), noon(2026, 8, 27));
    expected.insert(expected.begin(), {noon(2026, 6, 1), noon(2026, 7, 1), noon(2026, 8, 3)});
    ASSERT_EQ(days.size(), 59U);
    EXPECT_EQ(staying(days.back()), expected);
}

TEST_F(Retained, oneAMonthForAYearAlone) {
    for (int year = 2024; year <= 2026; ++year)
        for (unsigned month = 1; month <= 12; ++month)
            add(noon(year, month, 10));
    for (unsigned day = 1; day <= 30; ++day)
        add(noon(2027, 1, day));
    const auto kept = staying(noon(2027, 1, 30));
    EXPECT_EQ(kept.size(), 42U);
    EXPECT_EQ(kept.front(), noon(2026, 1, 10));
}

TEST_F(Retained, afterADayHasLeftTheThirtyTheSameOneOfItsMonthForever) {
    Time now = noon(2026, 1, 1);
    Time kept{};
    for (int day = 0; day < 200; ++day, now += hours(24)) {
        add(now);
        const auto stay = staying(now);
        EXPECT_LE(stay.size(), 30U + 7U);
        std::erase_if(copies, [&](const SizedCopy& sized) {
            return std::find(stay.begin(), stay.end(), sized.copy.time) == stay.end();
        });
        if (day == 0)
            kept = stay.front();
        EXPECT_EQ(stay.front(), kept);
    }
}

TEST_F(Retained, noMoreBytesThanThereAreForAllTheOldestGoingFirst) {
    for (unsigned day = 1; day <= 20; ++day)
        add(noon(2026, 11, day), kHistoryBytes / 4);
    EXPECT_EQ(staying(noon(2026, 11, 20)),
        (std::vector<Time>{noon(2026, 11, 17), noon(2026, 11, 18), noon(2026, 11, 19), noon(2026, 11, 20)}));
}

TEST_F(Retained, theOneThatWasJustMadeWhateverTheClockSays) {
    for (unsigned day = 1; day <= 30; ++day)
        add(noon(2038, 1, day), kHistoryBytes / 2);
    add(noon(1970, 1, 2), kHistoryBytes / 2);
    const auto kept = staying(noon(1970, 1, 2));
    EXPECT_EQ(kept.front(), noon(1970, 1, 2));
    EXPECT_EQ(kept.size(), 3U);
}

TEST_F(Retained, byTheDaysOfTheUsersZone) {
    add(noon(2026, 11, 21));
    add(noon(2026, 11, 21) + hours(2));
    add(noon(2026, 11, 22));
    {
        const EnvironmentVariable east("TZ", "Test-11"); // noon is eleven in the evening there
        EXPECT_EQ(staying(noon(2026, 11, 22)).size(), 3U);
    }
    const EnvironmentVariable west("TZ", "Test+3");
    EXPECT_EQ(staying(noon(2026, 11, 22)), (std::vector<Time>{noon(2026, 11, 21), noon(2026, 11, 22)}));
}

} // namespace
} // namespace quorvi::test
