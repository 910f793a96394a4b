// The names of dated copies.

#include "history/CopyName.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "history/Histories.h"

namespace quorvi::test {
namespace {

using std::chrono::milliseconds;

TEST(NameOfACopy, saysTimeAndReason) {
    EXPECT_EQ(datedCopy(noon(2026, 11, 2) + milliseconds(5061), CopyReason::beforeDeletion).name,
        "2026-11-02T12-00-05.061Z-deletion.quorviSettings");
    EXPECT_EQ(datedCopy(noon(2026, 1, 2), CopyReason::firstChangeOfDay).name,
        "2026-01-02T12-00-00.000Z-day.quorviSettings");
}

TEST(NameOfACopy, isReadBack) {
    for (const auto reason :
        {CopyReason::firstChangeOfDay, CopyReason::beforeDeletion, CopyReason::beforeRestore}) {
        const auto copy = datedCopy(noon(2024, 2, 29) + milliseconds(86399), reason);
        EXPECT_EQ(copyOfName(copy.name), copy);
    }
}

TEST(NameOfACopy, isNoOther) {
    for (const char* name :
        {"", "day.quorviSettings", "2026-11-02T12-00-05.061Z-.quorviSettings",
            "2026-11-02T12-00-05.061Z-day.quorviSettings ", "2026-11-02T12-00-05.061Z-day.plist",
            "2026-11-02T12-00-05.061Z-Day.quorviSettings", "2026-02-30T12-00-05.061Z-day.quorviSettings",
            "2026-11-02T24-00-05.061Z-day.quorviSettings", "2026-11-02T12-60-05.061Z-day.quorviSettings",
            "2026-11-02T12:00:05.061Z-day.quorviSettings", "+026-11-02T12-00-05.061Z-day.quorviSettings",
            "2026-11-02T12-00-05.061Z-day.quorviSettings/../x", "../2026-11-02T12-00-05.061Z-day",
            "0000-01-01T00-00-00.000Z-day.quorviSettings", "1969-12-31T23-59-59.999Z-day.quorviSettings",
            "9999-12-31T23-59-59.999Z-day.quorviSettings", "-----------------------------------------------"})
        EXPECT_FALSE(copyOfName(name)) << name;
}

} // namespace
} // namespace quorvi::test
