// Dated copies in their folder.

#include "history/History.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "base/ScriptedCalls.h"
#include "history/Histories.h"
#include "support/EnvironmentVariable.h"
#include "support/Files.h"
#include "support/UmaskGuard.h"

namespace quorvi::test {
namespace {

using std::chrono::hours;

class Copies : public testing::Test {
  protected:
    /// The rates of the copies, newest first.
    [[nodiscard]] std::vector<int> rates() const {
        std::vector<int> result;
        for (const auto& copy : history.list())
            result.push_back(rateOf(history.read(copy)));
        return result;
    }
    int keep(int rate, Time now, CopyReason reason = CopyReason::firstChangeOfDay) {
        return history.keep(treeWithRate(rate), reason, now);
    }

    EnvironmentVariable zone{"TZ", "UTC"};
    TemporaryFolder home;
    std::filesystem::path folder = home / "state/kyvar-quorvi/history";
    ScriptedCalls calls;
    History history{folder, calls};
};

TEST(FolderOfCopies, isInTheStateFolderOfTheUser) {
    const EnvironmentVariable none("XDG_STATE_HOME", std::nullopt);
    EXPECT_EQ(historyFolder("/home/a"), "/home/a/.local/state/kyvar-quorvi/history");
    EXPECT_EQ(historyFolder(""), "");
    const EnvironmentVariable set("XDG_STATE_HOME", "/var/state");
    EXPECT_EQ(historyFolder("/home/a"), "/var/state/kyvar-quorvi/history");
    EXPECT_EQ(historyFolder(""), "/var/state/kyvar-quorvi/history");
    for (const char* ignored : {"", "state", "./state"}) {
        const EnvironmentVariable relative("XDG_STATE_HOME", ignored);
        EXPECT_EQ(historyFolder("/home/a"), "/home/a/.local/state/kyvar-quorvi/history") << ignored;
    }
}

TEST_F(Copies, areListedNewestFirstWithTimeAndReasonAndReadBack) {
    EXPECT_TRUE(history.list().empty());
    EXPECT_EQ(keep(1, noon(2026, 11, 20)), 0);
    EXPECT_EQ(keep(2, noon(2026, 11, 22), CopyReason::beforeDeletion), 0);
    EXPECT_EQ(keep(3, noon(2026, 11, 21), CopyReason::beforeRestore), 0);
    const auto copies = history.list();
    ASSERT_EQ(copies.size(), 3U);
    EXPECT_EQ(copies[0].time, noon(2026, 11, 22));
    EXPECT_EQ(copies[0].reason, CopyReason::beforeDeletion);
    EXPECT_EQ(copies[1].reason, CopyReason::beforeRestore);
    EXPECT_EQ(copies[2].time, noon(2026, 11, 20));
    EXPECT_EQ(rates(), (std::vector<int>{2, 3, 1}));
    EXPECT_EQ(readBackup(folder / copies[0].name).backup.contents, BackupContents::everything);
}

TEST_F(Copies, areClosedToOthersAndSoIsTheirFolder) {
    const UmaskGuard guard(0);
    ASSERT_EQ(keep(1, noon(2026, 11, 20)), 0);
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(folder / history.list()[0].name), 0600U);
}

TEST_F(Copies, areDueOnceALocalDay) {
    EXPECT_TRUE(history.isDue(noon(2026, 11, 22)));
    ASSERT_EQ(keep(1, noon(2026, 11, 22)), 0);
    EXPECT_FALSE(history.isDue(noon(2026, 11, 22) + hours(11)));
    EXPECT_TRUE(history.isDue(noon(2026, 11, 22) + hours(12)));
    EXPECT_TRUE(history.isDue(noon(2026, 11, 21)));
    const EnvironmentVariable east("TZ", "Test-11");
    EXPECT_TRUE(History(folder).isDue(noon(2026, 11, 22) + hours(1)));
    EXPECT_FALSE(History(folder).isDue(noon(2026, 11, 22)));
}

TEST_F(Copies, ofAnotherProgramCountForTheDay) {
    ASSERT_EQ(History(folder).keep(tree(), CopyReason::beforeRestore, noon(2026, 11, 22)), 0);
    EXPECT_FALSE(history.isDue(noon(2026, 11, 22) + hours(1)));
}

TEST_F(Copies, areNeitherDueNorKeptWithoutAFolder) {
    History none{std::filesystem::path()};
    EXPECT_FALSE(none.isDue(noon(2026, 11, 22)));
    EXPECT_EQ(none.keep(tree(), CopyReason::firstChangeOfDay, noon(2026, 11, 22)), ENOENT);
    EXPECT_TRUE(none.list().empty());
    EXPECT_EQ(
        none.read({"2026-11-22T12-00-00.000Z-day.quorviSettings", {}, {}}).fault, BackupFault::noSuchFile);
}

TEST_F(Copies, ofOneMomentAllStayInTheirOrder) {
    for (int rate = 1; rate <= 5; ++rate)
        EXPECT_EQ(keep(rate, noon(2026, 11, 22), CopyReason(rate % 3)), 0);
    EXPECT_EQ(rates(), (std::vector<int>{5, 4, 3, 2, 1}));
}

TEST_F(Copies, thatNeedNotStayGoOnlyOnceTheNewOneIsOnTheDisk) {
    for (int rate = 1; rate <= 11; ++rate) {
        calls.log.clear();
        ASSERT_EQ(keep(rate, noon(2026, 11, 22) + std::chrono::minutes(rate)), 0);
    }
    EXPECT_EQ(rates(), (std::vector<int>{11, 10, 9, 8, 7, 6, 5, 4, 3, 1}));
    const auto synced = std::find(calls.log.begin(), calls.log.end(), "sync folder");
    const auto removed = std::find(calls.log.begin(), calls.log.end(), "unlink");
    ASSERT_NE(removed, calls.log.end());
    EXPECT_LT(synced, removed);
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "unlink"), 1);
}

TEST_F(Copies, thatCannotBeKeptLeaveTheOlderOnesAndSayWhy) {
    for (int rate = 1; rate <= 10; ++rate)
        ASSERT_EQ(keep(rate, noon(2026, 11, 22) + std::chrono::minutes(rate)), 0);
    const auto before = rates();
    for (const char* failing : {"open", "write", "sync file", "close", "rename"})
        for (const auto& error : kFileErrors) {
            calls.failing = failing;
            calls.error = error.number;
            EXPECT_EQ(keep(99, noon(2026, 11, 22) + hours(1)), error.number) << failing << error;
            calls.failing.clear();
            EXPECT_EQ(rates(), before) << failing << error;
        }
    calls.failing = "sync folder";
    calls.error = EIO;
    EXPECT_EQ(keep(99, noon(2026, 11, 22) + hours(1)), EIO);
    calls.failing.clear();
    EXPECT_EQ(rates().size(), before.size() + 1) << "it is there, but perhaps not after a power failure";
}

TEST_F(Copies, leaveNothingBesideThemselves) {
    calls.failing = "sync file";
    EXPECT_NE(keep(1, noon(2026, 11, 22)), 0);
    calls.failing.clear();
    writeFile(folder / ".quorvi-9999999-0", "a killed one's");
    EXPECT_EQ(keep(1, noon(2026, 11, 22)), 0);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(Copies, ofWhatNoBackupHoldsAreNotMade) {
    EXPECT_EQ(history.keep({}, CopyReason::beforeDeletion, noon(2026, 11, 22)), EINVAL);
    const auto large = tree();
    large.set("text", std::u16string(kBackupBytes, u'x'));
    EXPECT_EQ(history.keep(large, CopyReason::beforeDeletion, noon(2026, 11, 22)), EFBIG);
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(Copies, areMadeAlsoWhereNamesCannotBeTakenWithoutReplacing) {
    calls.failing = "rename";
    calls.error = EINVAL;
    for (int rate = 1; rate <= 2; ++rate) {
        calls.failures = 1;
        EXPECT_EQ(keep(rate, noon(2026, 11, 22)), 0);
    }
    EXPECT_EQ(rates(), (std::vector<int>{2, 1}));
}

} // namespace
} // namespace quorvi::test
