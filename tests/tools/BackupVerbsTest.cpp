// Backups, single profiles with their macros, and the dated copies on the command line.

#include "history/History.h"
#include "model/SettingsDocument.h"
#include "model/Trees.h"
#include "plist/Reader.h"
#include "support/EnvironmentVariable.h"
#include "tools/PrintedJson.h"

namespace quorvi::test {
namespace {

using plist::Value;
namespace fs = std::filesystem;

plist::Dictionary profileWithMacro(std::u16string name, int macroId) {
    auto result = profile(std::move(name));
    result.set("buttons", dict({{"01", assignment(65, macroId, 1)}}));
    return result;
}

plist::Dictionary twoProfiles() {
    auto result = tree(list({profile(u"Desk"), profileWithMacro(u"Draw", 8)}),
        list({macro(7, u"Jump"), macro(8, u"Paste")}));
    result.dictionary("settings").set("profileid", 2);
    return result;
}

class BackupVerbs : public testing::Test {
  protected:
    BackupVerbs() {
        fs::create_directories(own.parent_path());
        write(own, twoProfiles());
    }
    static void write(const fs::path& file, const plist::Dictionary& settingsTree) {
        if (!saveSettings(settingsTree, file))
            throw std::runtime_error("no settings to begin with");
    }
    [[nodiscard]] static Value treeIn(const fs::path& file) { return getDefaultSettings(file); }
    [[nodiscard]] std::vector<DatedCopy> copies() const { return History(historyFolder(home.path())).list(); }

    TemporaryFolder home;
    EnvironmentVariable homeVariable{"HOME", home.path().string()};
    EnvironmentVariable state{"XDG_STATE_HOME", std::nullopt};
    EnvironmentVariable zone{"TZ", "UTC"};
    fs::path own = userSettingsPath(home.path());
    std::string other = home / "other.plist";
    std::string file = home / "a.quorviSettings";
};

TEST_F(BackupVerbs, ABackupIsRestoredAsItWas) {
    expectDone({"backup", own, file}, "");
    write(own, tree());
    expectDone({"restore", own, file}, "");
    EXPECT_EQ(treeIn(own), Value(twoProfiles()));
}

TEST_F(BackupVerbs, WithoutASettingsFileTheyAreTheUsersOwn) {
    expectDone({"backup", file}, "");
    write(own, tree());
    expectDone({"restore", file}, "");
    EXPECT_EQ(treeIn(own), Value(twoProfiles()));
    ASSERT_FALSE(copies().empty()); // of what was there before
    expectDone({"history", "restore", "1"}, "");
    EXPECT_EQ(treeIn(own).dictionary().value("profiles"), tree().value("profiles"));
}

TEST_F(BackupVerbs, ABackupIsRestoredWhereNoSettingsAreYet) {
    expectDone({"backup", own, file}, "");
    fs::remove_all(home / "Library");
    expectDone({"restore", own, file}, "");
    expectDone({"restore", other, file}, "");
    EXPECT_EQ(treeIn(own), Value(twoProfiles()));
    EXPECT_EQ(treeIn(other), Value(twoProfiles()));
    expectRefused({"restore", home / "none/settings.plist", file},
        home.path("none/settings.plist") + ": it cannot be written");
}

TEST_F(BackupVerbs, RestoringKeepsTheOtherKeysOfTheFile) {
    expectDone({"backup", own, file}, "");
    writeFile(other,
        "<plist version=\"1.0\"><dict><key>other</key><integer>5</integer><key>quorvi</key><dict/>"
        "</dict></plist>");
    expectDone({"restore", other, file}, "");
    EXPECT_EQ(treeIn(other), Value(twoProfiles()));
    EXPECT_EQ(plist::readPropertyListFile(other).value.dictionary().integer("other"), 5);
}

TEST_F(BackupVerbs, RestoringKeepsADatedCopyOfTheUsersOwnSettingsAlone) {
    expectDone({"backup", own, file}, "");
    write(other, tree());
    expectDone({"restore", other, file}, "");
    EXPECT_TRUE(copies().empty());
    write(own, tree());
    expectDone({"restore", own, file}, "");
    ASSERT_EQ(copies().size(), 1U);
    EXPECT_EQ(copies()[0].reason, CopyReason::beforeRestore);
    EXPECT_EQ(Value(History(historyFolder(home.path())).read(copies()[0]).backup.tree), Value(tree()));
}

TEST_F(BackupVerbs, RestoringSaysWhatWasLeftOut) {
    const auto many = twoProfiles();
    for (int number = 3; number <= 6; ++number)
        many.array("profiles").append(profile(u"P"));
    ASSERT_FALSE(writeBackup(backupOf(many), file));
    const auto result = quorvictl({"restore", own, file});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "quorvictl: " + file + ": left out: profile 6 (P): there is room for 5\n");
}

TEST_F(BackupVerbs, WhatIsNoBackupIsRefusedAndNothingChanges) {
    writeFile(file, "garbage");
    expectRefused({"restore", own, file}, file + ": it is not a property list");
    writeFile(file, "<plist version=\"1.0\"><dict><key>format</key><integer>2</integer></dict></plist>");
    expectRefused({"restore", own, file}, file + ": a newer version of this program has written it");
    expectRefused({"import", own, file}, file + ": a newer version of this program has written it");
    expectRefused({"restore", own, own}, own.string() + ": it is not a backup of settings");
    expectRefused({"restore", own, home / "none"}, home.path("none") + ": there is no such file");
    expectRefused({"restore", own, home.path()}, home.path().string() + ": it is a directory");
    expectRefused({"backup", home / "none", file}, home.path("none") + ": there is no such file");
    EXPECT_EQ(treeIn(own), Value(twoProfiles()));
    EXPECT_TRUE(copies().empty());
}

TEST_F(BackupVerbs, WhatCouldNotBeReadBackIsNotBackedUp) {
    write(other, tree(list(), list()));
    expectRefused({"backup", other, file}, other + ": it has no valid settings with a profile");
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(BackupVerbs, AProfileTakesItsMacrosAlong) {
    expectDone({"export", own, "profile", "2", file, "--with-macros"}, "");
    write(other, tree());
    expectDone({"import", other, file}, "Draw\n");
    expectDone({"profiles", other}, "1\tGame\t\n2*\tDraw\t\n");
    expectDone({"macros", other}, "7\t2\tJump\n");
    const auto bound = treeIn(other).dictionary().array("profiles").dictionary(1).dictionary("buttons");
    EXPECT_EQ(bound.dictionary("01").integer("param1"), 7) << "Paste does what Jump does";
}

TEST_F(BackupVerbs, WithoutTheOptionAnExportIsWhatItWas) {
    expectDone({"export", own, "profile", "2", file}, "");
    EXPECT_EQ(plist::readPropertyListFile(file).value, Value(profileWithMacro(u"Draw", 8)));
    expectMisused({"export", own, "macro", "8", file, "--with-macros"},
        "export takes SETTINGS.plist profile|macro NUMBER FILE [--with-macros]");
    expectMisused({"export", own, "profile", "2", file, "--all"},
        "export takes SETTINGS.plist profile|macro NUMBER FILE [--with-macros]");
    expectRefused(
        {"export", own, "profile", "3", file, "--with-macros"}, own.string() + ": it has no profile 3");
}

TEST_F(BackupVerbs, ASingleProfileIsImportedAndEverythingRestored) {
    expectDone({"export", own, "profile", "2", file, "--with-macros"}, "");
    expectRefused({"restore", own, file}, file + ": it holds a single profile, which import adds");
    expectDone({"backup", own, file}, "");
    expectRefused({"import", own, file}, file + ": it holds all settings, which restore brings back");
}

TEST_F(BackupVerbs, AProfileWithoutRoomIsLeftOut) {
    expectDone({"export", own, "profile", "2", file, "--with-macros"}, "");
    for (int number = 3; number <= 5; ++number)
        expectDone({"import", own, file}, "Draw " + std::to_string(number - 1) + "\n");
    const auto result = quorvictl({"import", own, file});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "quorvictl: " + file +
                                ": left out: profile 1 (Draw): there is room for 5\nquorvictl: " +
                                own.string() + ": the profile was not added\n");
}

TEST_F(BackupVerbs, TheFirstChangeOfADayKeepsADatedCopyOfTheUsersOwnSettings) {
    write(other, tree());
    expectDone({"export", own, "profile", "1", file}, "");
    expectDone({"import", other, file}, "Desk\n");
    EXPECT_TRUE(copies().empty());
    expectDone({"import", own, file}, "Desk 2\n");
    expectDone({"import", own, file}, "Desk 3\n");
    ASSERT_EQ(copies().size(), 1U);
    EXPECT_EQ(copies()[0].reason, CopyReason::firstChangeOfDay);
    EXPECT_EQ(Value(History(historyFolder(home.path())).read(copies()[0]).backup.tree), Value(twoProfiles()));
}

TEST_F(BackupVerbs, ACopyThatFailsIsToldAndStopsNothing) {
    expectDone({"export", own, "profile", "1", file}, "");
    writeFile(home / ".local", "a file where the state folder should be");
    const auto result = quorvictl({"import", own, file});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "Desk 2\n");
    EXPECT_EQ(result.error, "quorvictl: " + home.path(".local/state/kyvar-quorvi/history") +
                                ": no copy of the earlier settings was kept: Not a directory\n");
}

TEST_F(BackupVerbs, TheHistoryIsListedShownAndRestored) {
    expectDone({"history"}, "");
    using namespace std::chrono;
    History history(historyFolder(home.path()));
    const auto time = sys_days(2026y / 11 / 20) + 9h + 5s;
    ASSERT_EQ(history.keep(tree(), CopyReason::beforeDeletion, time), 0);
    ASSERT_EQ(history.keep(twoProfiles(), CopyReason::firstChangeOfDay, time + 24h), 0);
    write(own, tree(list({profile(u"Now")}), list({macro(7)})));
    expectDone({"history"},
        "1\t2026-11-21 09:00:05\tfirst change of the day\n2\t2026-11-20 09:00:05\tdeletion of a profile\n");
    expectDone({"history", "show", "1"},
        "profile\t1\tDesk\t\nprofile\t2*\tDraw\t\nmacro\t7\t2\tJump\nmacro\t8\t2\tPaste\n"
        "difference\tProfile “Draw” was there\ndifference\tMacro “Paste” was there\n"
        "difference\tProfile “Now” was named “Desk”\ndifference\tCurrent profile: Draw → Missing profile\n");
    expectDone({"history", "restore", own, "2"}, "");
    EXPECT_EQ(treeIn(own).dictionary().array("profiles").dictionary(0).string("name"), u"Game");
    ASSERT_EQ(copies().size(), 3U);
    EXPECT_EQ(copies()[0].reason, CopyReason::beforeRestore);
    expectDone({"history", "restore", own, "1"}, "");
    EXPECT_EQ(treeIn(own).dictionary().array("profiles").dictionary(0).string("name"), u"Now")
        << "the newest one is what was there before the last restoring";
}

TEST_F(BackupVerbs, TheHistoryIsAnObjectForScriptsWithWhatIsDifferent) {
    expectJson({"history", "--json"}, R"({"history":[]})");
    using namespace std::chrono;
    const EnvironmentVariable elsewhere("TZ", "Asia/Tokyo");
    History history(historyFolder(home.path()));
    const auto time = sys_days(2026y / 11 / 20) + 9h + 5s;
    ASSERT_EQ(history.keep(twoProfiles(), CopyReason::beforeDeletion, time), 0);
    writeFile(historyFolder(home.path()) / "2026-11-20T09-00-06.000Z-day.quorviSettings", "garbage");
    auto now = twoProfiles();
    now.array("profiles").dictionary(0).dictionary("buttons").set("01", assignment(112, 0, 0));
    write(own, now);
    expectJson({"history", "--json"},
        R"({"history":[{"number":1,"time":"2026-11-20T09:00:06Z","reason":"first change of the day",
                        "differences":null},
                       {"number":2,"time":"2026-11-20T09:00:05Z","reason":"deletion of a profile",
                        "differences":["Button 1 of “Desk”: Primary Click → Copy"]}]})");
}

TEST_F(BackupVerbs, ACopyThatIsNotThereOrDamagedIsRefused) {
    expectRefused({"history", "show", "1"}, "there is no copy 1; there are 0");
    expectRefused({"history", "restore", own, "0"}, "there is no copy 0; there are 0");
    const auto folder = historyFolder(home.path());
    fs::create_directories(folder);
    const std::string copy = folder / "2026-11-20T09-00-05.000Z-day.quorviSettings";
    writeFile(copy, "garbage");
    expectRefused({"history", "restore", own, "1"}, copy + ": it is not a property list");
    for (const std::vector<std::string>& wrong :
        {std::vector<std::string>{"history", "show"}, {"history", "restore"}, {"history", "list"}})
        expectMisused(wrong, "history takes [show NUMBER | restore [SETTINGS.plist] NUMBER]");
    expectMisused({"history", "show", "first"}, "first is not a 32-bit number, decimal or 0x");
    expectMisused({"history", "show", "1", "--json"}, "history prints only its list as JSON");
}

TEST_F(BackupVerbs, ARecordThatTakesThePlaceOfTheUsersSettingsIsPrecededByACopy) {
    const std::string record = home / "record.bin";
    expectDone({"encode", own, record}, "");
    expectDone({"decode", record, own}, "");
    ASSERT_EQ(copies().size(), 1U);
    EXPECT_EQ(copies()[0].reason, CopyReason::beforeRestore);
}

} // namespace
} // namespace quorvi::test
