// The helper hears of what the command line did to the user's settings, as it hears it from the panel.

#include "events/BusFixture.h"
#include "events/EventTypes.h"
#include "plist/Reader.h"
#include "support/EnvironmentVariable.h"
#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

class HelperNews : public BusTest {
  protected:
    HelperNews() {
        std::filesystem::create_directories(settings.parent_path());
        writeFile(settings, readFile(QUORVI_TEST_DATA "/everyday-settings.plist"));
    }
    /// What the helper has been told by now: the parameter of each message of a save.
    [[nodiscard]] std::vector<std::int32_t> news() {
        EXPECT_EQ(bus->findProcessByName("nobody", nullptr), procNotFound); // behind what was sent
        bus->process();
        return m_news;
    }
    void beTheHelper() {
        ASSERT_EQ(bus->ownName("KyvarQuorviHelper"), NameResult::owned);
        bus->installHandler(
            kEventClassQuorvi, kEventCommand, [this](const Event& event, const ProcessSerialNumber&, Event&) {
                FourCharCode message = 0;
                std::int32_t parameter = 0;
                EXPECT_EQ(event.getMagnitude(keyDirectObject, message), noErr);
                EXPECT_EQ(event.getInteger(kKeyCommandParameter, parameter), noErr);
                EXPECT_EQ(message, kMessageSettingsSaved);
                m_news.push_back(parameter);
                return noErr;
            });
    }
    [[nodiscard]] int profileIndex() const {
        const auto tree = plist::readPropertyListFile(settings).value.dictionary().dictionary("quorvi");
        return tree.dictionary("settings").integer("profileid") - 1;
    }

    TemporaryFolder folder;
    EnvironmentVariable home{"HOME", folder.path()};
    EnvironmentVariable state{"XDG_STATE_HOME", std::nullopt};
    std::filesystem::path settings = folder / "Library/Preferences/com.kyvar.quorvi.settings.plist";

  private:
    std::vector<std::int32_t> m_news;
};

TEST_F(HelperNews, ComeWithTheIndexOfTheCurrentProfileWhenAnItemWasImported) {
    beTheHelper();
    const std::string file = folder / "item";
    ASSERT_EQ(quorvictl({"export", settings, "profile", "1", file}).exitCode, 0);
    EXPECT_TRUE(news().empty());
    ASSERT_EQ(quorvictl({"import", settings, file}).exitCode, 0);
    EXPECT_EQ(news(), std::vector{profileIndex()});
}

TEST_F(HelperNews, ComeWhenTheRecordOfAMouseWasTakenOver) {
    beTheHelper();
    ASSERT_EQ(quorvictl({"decode", vectorPath("case-004.bin"), settings}).exitCode, 0);
    EXPECT_EQ(news(), std::vector{profileIndex()});
}

TEST_F(HelperNews, ComeWhenSettingsWereRestoredOrAProfileCameWithItsMacros) {
    beTheHelper();
    const std::string backup = folder / "all.quorviSettings";
    const std::string profile = folder / "one.quorviSettings";
    ASSERT_EQ(quorvictl({"backup", settings, backup}).exitCode, 0);
    ASSERT_EQ(quorvictl({"export", settings, "profile", "1", profile, "--with-macros"}).exitCode, 0);
    EXPECT_TRUE(news().empty());
    ASSERT_EQ(quorvictl({"restore", settings, backup}).exitCode, 0);
    ASSERT_EQ(quorvictl({"history", "restore", settings, "1"}).exitCode, 0);
    ASSERT_EQ(quorvictl({"import", settings, profile}).exitCode, 0);
    EXPECT_EQ(news(), std::vector<std::int32_t>(3, profileIndex()));
}

TEST_F(HelperNews, ComeAlsoWhenTheFileWasNamedInAnotherWay) {
    beTheHelper();
    const auto link = folder / "link.plist";
    std::filesystem::create_symlink(settings, link);
    ASSERT_EQ(quorvictl({"decode", vectorPath("case-004.bin"), link}).exitCode, 0);
    EXPECT_EQ(news().size(), 1u);
}

TEST_F(HelperNews, DoNotComeOfOtherFilesNorOfWhatWasRefused) {
    beTheHelper();
    ASSERT_EQ(quorvictl({"decode", vectorPath("case-004.bin"), folder / "other.plist"}).exitCode, 0);
    ASSERT_EQ(quorvictl({"import", settings, settings}).exitCode, 1);
    ASSERT_EQ(quorvictl({"check", settings}).exitCode, 0);
    EXPECT_TRUE(news().empty());
}

TEST_F(HelperNews, AreNotMissedWithoutAHelperOrABus) {
    expectDone({"decode", vectorPath("case-004.bin"), settings}, "");
    const EnvironmentVariable nowhere("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    expectDone({"decode", vectorPath("case-000.bin"), settings}, "");
}

} // namespace
} // namespace quorvi::test
