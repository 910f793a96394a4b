// The command line notifies the helper of changed settings, like the panel.

#include "tools/ListeningHelper.h"

namespace quorvi::test {
namespace {

using HelperNews = ListeningHelper;

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
