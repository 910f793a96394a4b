#include <sys/stat.h>

#include "helper/HelperFixture.h"

namespace quorvi::test {
namespace {

std::string vectorFile(const std::string& name) {
    return readFile(QUORVI_TEST_DATA "/vectors/" + name);
}

class HelperSettings : public HelperTest {
  protected:
    void SetUp() override {
        HelperTest::SetUp();
        writeFile(userSettings, vectorFile("case-000.plist"));
        writeFile(defaults, vectorFile("case-002.plist"));
    }
};

TEST_F(HelperSettings, AreWrittenToTheMouseAtTheStart) {
    start();
    EXPECT_EQ(record().size(), 13232u);
    EXPECT_TRUE(record() == vectorFile("case-000.bin"));
}

TEST_F(HelperSettings, AreWrittenAgainWhenThePanelHasSavedThem) {
    start();
    writeFile(userSettings, vectorFile("case-004.plist"));
    EXPECT_TRUE(record() == vectorFile("case-000.bin")) << "not before it is told";
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    EXPECT_TRUE(record() == vectorFile("case-004.bin"));
    writeFile(userSettings, vectorFile("case-005.plist"));
    EXPECT_EQ(ask(kMessageSettingsSaved, -1), 1);
    EXPECT_TRUE(record() == vectorFile("case-005.bin"));
}

TEST_F(HelperSettings, ComeFromTheBundleWhenTheUserHasNone) {
    std::filesystem::remove(userSettings);
    start();
    EXPECT_TRUE(record() == vectorFile("case-002.bin"));
}

TEST_F(HelperSettings, ComeFromTheBundleWhenTheUsersAreOfAnOldVersion) {
    std::string old = vectorFile("case-000.plist");
    const std::string version = "<key>version</key>";
    const auto number = old.find("<integer>6</integer>", old.find(version));
    ASSERT_NE(number, std::string::npos);
    old.replace(number, 20, "<integer>5</integer>");
    writeFile(userSettings, old);
    start();
    EXPECT_TRUE(record() == vectorFile("case-002.bin"));
}

TEST_F(HelperSettings, StayAsTheyWereWhenTheNewOnesGiveNoRecord) {
    start();
    writeFile(userSettings, vectorFile("case-001.plist"));
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 0);
    EXPECT_TRUE(record() == vectorFile("case-000.bin"));
    std::filesystem::remove(userSettings);
    std::filesystem::remove(defaults);
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 0);
    EXPECT_TRUE(record() == vectorFile("case-000.bin"));
}

TEST_F(HelperSettings, StayAsTheyWereWhenTheFileIsThereAndCannotBeUsed) {
    start();
    const auto staysWith = [this](const char* what) {
        EXPECT_EQ(ask(kMessageSettingsSaved, 0), 0) << what;
        EXPECT_TRUE(record() == vectorFile("case-000.bin")) << what;
        std::filesystem::remove_all(userSettings);
    };
    writeFile(userSettings, vectorFile("case-004.plist").substr(0, 1000));
    staysWith("damaged");
    writeFile(userSettings, "");
    staysWith("empty");
    std::string old = vectorFile("case-004.plist");
    const auto number = old.find("<integer>6</integer>", old.find("<key>version</key>"));
    ASSERT_NE(number, std::string::npos);
    writeFile(userSettings, old.replace(number, 20, "<integer>5</integer>"));
    staysWith("old");
    std::filesystem::create_directory(userSettings);
    staysWith("a folder");
    std::filesystem::create_symlink(userSettings.filename(), userSettings);
    staysWith("a link to itself");
    std::filesystem::create_symlink("/dev/null", userSettings);
    staysWith("a device");
    // One that is not there is no fault: the user has not changed anything yet.
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    EXPECT_TRUE(record() == vectorFile("case-002.bin"));
}

TEST_F(HelperSettings, OfAFileThatCannotBeUsedAreTheDefaultsOnlyWhereTheMouseHasNone) {
    writeFile(userSettings, "damaged");
    start();
    EXPECT_TRUE(record() == vectorFile("case-002.bin"));
    writeFile(userSettings, vectorFile("case-004.plist"));
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    writeFile(userSettings, "damaged");
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 0);
    EXPECT_TRUE(record() == vectorFile("case-004.bin"));
}

TEST_F(HelperSettings, ThatStandInForUnusableOnesAreWhatTheMouseRuns) {
    writeFile(userSettings, "damaged");
    // In these the second profile is in use.
    writeFile(defaults, readFile(QUORVI_TEST_DATA "/everyday-settings.plist"));
    start();
    std::uint32_t profile = 0;
    EXPECT_EQ(getSimulatedMouseProfile(*bus, psn, profile), noErr);
    EXPECT_EQ(profile, 2u);
}

TEST_F(HelperSettings, AreNotNeededToServeThePanel) {
    std::filesystem::remove(defaults);
    std::filesystem::remove(userSettings);
    ASSERT_EQ(mkfifo(userSettings.c_str(), 0600), 0) << "nobody will ever write into it";
    start();
    EXPECT_EQ(record(), "");
    EXPECT_EQ(ask(kMessagePaneShown, 1), 1);
}

} // namespace
} // namespace quorvi::test
