// Settings as one file.

#include "history/Backup.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include "history/Histories.h"
#include "plist/Reader.h"
#include "plist/Writer.h"
#include "support/Files.h"

namespace quorvi::test {
namespace {

using plist::Value;

class BackupFile : public testing::Test {
  protected:
    [[nodiscard]] BackupFault faultOf(const plist::Dictionary& top) const {
        writeFile(file, plist::writeXml(top).value());
        return readBackup(file).fault;
    }
    [[nodiscard]] static plist::Dictionary top(const plist::Dictionary& tree) {
        return dict({{"format", 1}, {"contents", u"everything"}, {"quorvi", tree}});
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "a.quorviSettings";
};

TEST_F(BackupFile, ofEverythingHoldsTheWholeTree) {
    const auto live = tree();
    live.set("somebody's", u"own");
    ASSERT_FALSE(writeBackup(backupOf(live), file));
    const auto read = readBackup(file);
    EXPECT_EQ(read.fault, BackupFault::none);
    EXPECT_EQ(read.backup.contents, BackupContents::everything);
    EXPECT_EQ(Value(read.backup.tree), Value(live));
}

TEST_F(BackupFile, isAPropertyListWithFormatContentsAndTree) {
    ASSERT_FALSE(writeBackup(backupOf(tree()), file));
    EXPECT_TRUE(readFile(file).starts_with("<?xml"));
    EXPECT_EQ(plist::readPropertyListFile(file).value, Value(top(tree())));
}

TEST_F(BackupFile, sharesNothingWithTheTree) {
    const auto live = tree();
    const auto backup = backupOf(live);
    live.array("profiles").dictionary(0).set("name", u"Other");
    EXPECT_EQ(Value(backup.tree), Value(tree()));
}

TEST_F(BackupFile, ofAProfileHoldsItAndTheMacrosThatItRunsAlone) {
    const auto live = tree(list({profile(u"First"), profileThatRuns({9, 7, 9, 40}, u"Second")}),
        list({macro(7, u"Seven"), macro(8, u"Eight"), macro(9, u"Nine")}));
    ASSERT_FALSE(writeBackup(backupOfProfile(live, 1), file));
    const auto read = readBackup(file);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.backup.contents, BackupContents::oneProfile);
    const auto held = read.backup.tree;
    EXPECT_EQ(Value(held.array("profiles")), Value(list({live.array("profiles").value(1)})));
    EXPECT_EQ(Value(held.array("macros")), Value(list({macro(9, u"Nine"), macro(7, u"Seven")})));
    EXPECT_FALSE(backupOfProfile(live, 2));
    EXPECT_FALSE(backupOfProfile({}, 0));
}

TEST_F(BackupFile, isNotWrittenWithoutATreeOrBeyondWhatIsRead) {
    EXPECT_EQ(writeBackup(backupOf({}), file), std::errc::invalid_argument);
    const auto large = tree();
    large.set("text", std::u16string(kBackupBytes, u'x'));
    EXPECT_EQ(writeBackup(backupOf(large), file), std::errc::invalid_argument);
    const auto many = list();
    for (std::uint64_t i = 0; i < kBackupValues; ++i)
        many.append(Value(true));
    const auto ofMany = tree();
    ofMany.set("many", many);
    EXPECT_EQ(writeBackup(backupOf(ofMany), file), std::errc::invalid_argument);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(BackupFile, saysWhatKeepsItFromBeingWritten) {
    EXPECT_EQ(writeBackup(backupOf(tree()), folder / "none/a.quorviSettings"),
        std::errc::no_such_file_or_directory);
}

TEST_F(BackupFile, thatIsMissingOrNoFileSaysSo) {
    EXPECT_EQ(readBackup(folder / "none").fault, BackupFault::noSuchFile);
    EXPECT_EQ(readBackup(folder.path()).fault, BackupFault::notReadable);
    ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(readBackup(folder / "fifo").fault, BackupFault::notReadable);
}

TEST_F(BackupFile, thatIsTooLargeIsNotRead) {
    writeFile(file, "");
    std::filesystem::resize_file(file, kBackupBytes + 1);
    EXPECT_EQ(readBackup(file).fault, BackupFault::tooLarge);
    const auto many = list();
    for (std::uint64_t i = 0; i < kBackupValues; ++i)
        many.append(Value(true));
    const auto ofMany = top(tree());
    ofMany.set("many", many);
    EXPECT_EQ(faultOf(ofMany), BackupFault::tooLarge);
}

TEST_F(BackupFile, thatIsCutShortAtAnyPlaceIsDamaged) {
    const std::string whole = backupBytes(backupOf(tree())).value();
    const std::size_t last = whole.find("</plist>");
    for (std::size_t length = 0; length < last; length += 13) {
        writeFile(file, whole.substr(0, length));
        EXPECT_EQ(readBackup(file).fault, BackupFault::damaged) << length;
    }
}

TEST_F(BackupFile, ofANewerFormatSaysSoWhateverElseIsInIt) {
    EXPECT_EQ(faultOf(dict({{"format", 2}})), BackupFault::newerFormat);
    EXPECT_EQ(faultOf(dict({{"format", std::int64_t{1} << 32U}})), BackupFault::newerFormat);
    for (const Value& format : {Value(0), Value(-1), Value(u"1"), Value(true), Value(1.0)})
        EXPECT_EQ(faultOf(dict({{"format", format}, {"contents", u"everything"}, {"quorvi", tree()}})),
            BackupFault::noSettings);
}

TEST_F(BackupFile, withoutValidSettingsIsNone) {
    EXPECT_EQ(faultOf(top(tree())), BackupFault::none);
    for (const char* key : {"version", "settings", "profiles", "macros"})
        EXPECT_EQ(faultOf(top(without(tree(), key))), BackupFault::noSettings) << key;
    for (const char* key : {"settings", "profiles", "macros"}) {
        const auto spoilt = tree();
        spoilt.set(key, u"a text");
        EXPECT_EQ(faultOf(top(spoilt)), BackupFault::noSettings) << key;
    }
    for (const char* key : {"format", "contents", "quorvi"})
        EXPECT_EQ(faultOf(without(top(tree()), key)), BackupFault::noSettings) << key;
    const auto other = top(tree());
    other.set("contents", u"something");
    EXPECT_EQ(faultOf(other), BackupFault::noSettings);
    EXPECT_EQ(faultOf(top(tree(list(), list()))), BackupFault::noSettings);
    EXPECT_EQ(faultOf(top(tree(list({without(profile(), "buttons")}), list()))), BackupFault::noSettings);
    EXPECT_EQ(faultOf(profile()), BackupFault::noSettings);
}

TEST_F(BackupFile, ofOneProfileHoldsOne) {
    const auto two = top(tree(list({profile(), profile()}), list()));
    two.set("contents", u"profile");
    EXPECT_EQ(faultOf(two), BackupFault::noSettings);
}

} // namespace
} // namespace quorvi::test
