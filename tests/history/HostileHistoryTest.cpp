// Whatever the folder of copies contains, no file outside it is read, written or removed, and no call blocks.

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include <sys/stat.h>
#include <unistd.h>

#include "history/CopyName.h"
#include "history/Histories.h"
#include "support/EnvironmentVariable.h"
#include "support/Files.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

class HostileFolder : public testing::Test {
  protected:
    HostileFolder() { fs::create_directory(folder); }

    /// A name that a copy of that day would have.
    [[nodiscard]] fs::path nameOf(unsigned day) const {
        return folder / datedCopy(noon(2026, 10, day), CopyReason::firstChangeOfDay).name;
    }
    int keep(int rate = 500) {
        return history.keep(treeWithRate(rate), CopyReason::firstChangeOfDay, noon(2026, 11, 22));
    }

    EnvironmentVariable zone{"TZ", "UTC"};
    TemporaryFolder home;
    fs::path folder = home / "history";
    History history{folder};
};

TEST_F(HostileFolder, itsLinksFoldersAndFifosAreNoCopies) {
    const fs::path outside = home / "outside.quorviSettings";
    ASSERT_FALSE(writeBackup(backupOf(tree()), outside));
    fs::create_symlink(outside, nameOf(1));
    fs::create_symlink("none", nameOf(2));
    fs::create_directory(nameOf(3));
    writeFile(nameOf(3) / "inside", "");
    ASSERT_EQ(::mkfifo(nameOf(4).c_str(), 0600), 0);
    EXPECT_TRUE(history.list().empty());
    EXPECT_TRUE(history.isDue(noon(2026, 10, 1)));
    for (unsigned day = 1; day <= 4; ++day) {
        const auto copy = datedCopy(noon(2026, 10, day), CopyReason::firstChangeOfDay);
        EXPECT_EQ(history.read(copy).fault, BackupFault::notReadable) << day;
        EXPECT_EQ(history.keep(tree(), copy.reason, copy.time), 0) << "of that very moment";
    }
    EXPECT_EQ(history.list().size(), 4U);
    EXPECT_TRUE(fs::is_symlink(nameOf(1)) && fs::is_symlink(nameOf(2)) && fs::exists(nameOf(3) / "inside"));
    EXPECT_EQ(readFile(outside), backupBytes(backupOf(tree())).value());
}

TEST_F(HostileFolder, noNameLeadsOutOfIt) {
    ASSERT_FALSE(writeBackup(backupOf(tree()), home / "secret.quorviSettings"));
    EXPECT_EQ(history.read({"../secret.quorviSettings", {}, {}}).fault, BackupFault::noSuchFile);
    EXPECT_EQ(history.read({"", {}, {}}).fault, BackupFault::noSuchFile);
}

TEST_F(HostileFolder, whatIsNoCopyByItsNameIsLeftAlone) {
    writeFile(folder / "notes.txt", "mine");
    writeFile(folder / "2026-10-01.quorviSettings", "mine");
    for (int rate = 1; rate <= 12; ++rate)
        ASSERT_EQ(keep(rate), 0);
    EXPECT_EQ(readFile(folder / "notes.txt"), "mine");
    EXPECT_EQ(readFile(folder / "2026-10-01.quorviSettings"), "mine");
    EXPECT_EQ(history.list().size(), kCopiesOfToday);
}

TEST_F(HostileFolder, garbageAndHugeFilesAreListedAndSayWhatTheyAreWhenRead) {
    writeFile(nameOf(1), "garbage");
    writeFile(nameOf(2), "");
    fs::resize_file(nameOf(2), std::uint64_t{1} << 40U);
    writeFile(nameOf(3), "");
    const auto copies = history.list();
    ASSERT_EQ(copies.size(), 3U);
    EXPECT_EQ(history.read(copies[0]).fault, BackupFault::damaged);
    EXPECT_EQ(history.read(copies[1]).fault, BackupFault::tooLarge);
    EXPECT_EQ(history.read(copies[2]).fault, BackupFault::damaged);
    EXPECT_EQ(keep(), 0);
    EXPECT_EQ(rateOf(history.read(history.list()[0])), 500);
    EXPECT_LE(history.list().size(), 2U) << "a huge file is beyond what all may have";
}

TEST_F(HostileFolder, ofThousandsOfFilesIsCutDownInNoTime) {
    for (int file = 0; file < 5000; ++file)
        writeFile(
            folder / datedCopy(noon(2026, 1, 1) + std::chrono::hours(file), CopyReason::beforeRestore).name,
            "x");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(history.list().size(), 5000U);
    EXPECT_EQ(keep(), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_LE(history.list().size(), kDaysWithCopies + kCopiesOfToday + kMonthsWithCopies + 1);
}

TEST_F(HostileFolder, thatIsNoFolderSaysSo) {
    const fs::path file = home / "file";
    writeFile(file, "mine");
    EXPECT_EQ(History(file).keep(tree(), CopyReason::beforeRestore), ENOTDIR);
    EXPECT_EQ(History(file / "history").keep(tree(), CopyReason::beforeRestore), ENOTDIR);
    EXPECT_TRUE(History(file).list().empty());
    EXPECT_EQ(readFile(file), "mine");
    ASSERT_EQ(::mkfifo(home.path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(History(home / "fifo").keep(tree(), CopyReason::beforeRestore), ENOTDIR);
}

TEST(HostileBytes, areNeverABackupThatCannotBeTaken) {
    std::mt19937 random(20261122);
    const std::string whole = backupBytes(backupOf(tree())).value();
    int taken = 0;
    for (int round = 0; round < 3000; ++round) {
        plist::Data bytes(whole.begin(), whole.end());
        for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
            const std::size_t place = random() % bytes.size();
            if (random() % 4 == 0)
                bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(place),
                    bytes.begin() +
                        static_cast<std::ptrdiff_t>(std::min(bytes.size(), place + random() % 40)));
            else
                bytes[place] =
                    static_cast<std::uint8_t>(random() % 3 == 0 ? "<>/0k"[random() % 5] : random());
        }
        const auto read = backupIn(bytes);
        ASSERT_EQ(static_cast<bool>(read), read.fault == BackupFault::none);
        if (!read)
            continue;
        ++taken;
        const auto live = tree();
        restoreEverything(live, read.backup);
        EXPECT_GE(live.array("profiles").size(), 1U);
        addProfile(live, read.backup, {u"P", u"M"});
        EXPECT_TRUE(backupBytes(backupOf(live)));
        EXPECT_TRUE(restoreEverything(plist::Dictionary::create(), backupOf(live)).empty())
            << "what was taken is whole";
    }
    EXPECT_GT(taken, 100);
    EXPECT_LT(taken, 2900);
}

} // namespace
} // namespace quorvi::test
