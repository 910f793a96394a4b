#include "plist/Reader.h"
#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

class Records : public testing::Test {
  protected:
    TemporaryFolder folder;
    std::string settings = folder / "settings.plist";
    std::string record = folder / "record.bin";
};

TEST_F(Records, OfTheExampleSettingsAreEncodedByteForByte) {
    for (const char* name : {"case-000", "case-002", "case-008", "case-023"}) {
        expectDone({"encode", vectorPath(name + std::string(".plist")), record}, "");
        EXPECT_TRUE(readFile(record) == readFile(vectorPath(name + std::string(".bin")))) << name;
    }
    EXPECT_EQ(folder.names(), std::set<std::string>{"record.bin"});
}

TEST_F(Records, OfTheExamplesAreDecodedIntoTheirSettings) {
    for (const char* name : {"case-000", "case-002", "case-023"}) {
        expectDone({"decode", vectorPath(name + std::string(".bin")), settings}, "");
        const auto written = plist::readPropertyListFile(settings);
        const auto expected = plist::readPropertyListFile(vectorPath(name + std::string(".decoded.plist")));
        ASSERT_EQ(expected.status, plist::FileStatus::Ok);
        EXPECT_TRUE(written.value == expected.value) << name;
        expectDone({"check", settings}, "");
        std::filesystem::remove(settings);
    }
}

TEST_F(Records, AreDecodedBesideTheOtherKeysOfTheFile) {
    writeFile(settings, "<plist version=\"1.0\"><dict><key>window</key><string>640 480</string>"
                        "<key>quorvi</key><string>old</string></dict></plist>");
    expectDone({"decode", vectorPath("case-000.bin"), settings}, "");
    const std::string text = readFile(settings);
    EXPECT_NE(text.find("<string>640 480</string>"), std::string::npos);
    EXPECT_EQ(text.find("<string>old</string>"), std::string::npos);
    expectDone({"check", settings}, "");
}

TEST_F(Records, ThatTheFilesCannotGiveAreRefused) {
    const std::string noProfile = vectorPath("case-001.plist");
    const std::string noSettings = vectorPath("case-015.plist");
    expectRefused({"encode", noProfile, record},
        noProfile +
            ": none of its profiles can be encoded; a profile needs \"name\", \"stages\" and \"buttons\"");
    expectRefused({"encode", noSettings, record}, noSettings + ": it has no \"settings\" dictionary");
    EXPECT_EQ(folder.names(), std::set<std::string>{});
}

TEST_F(Records, OfAnotherLengthAreRefused) {
    std::string bytes = readFile(vectorPath("case-000.bin"));
    bytes.push_back('\0');
    writeFile(record, bytes);
    expectRefused({"decode", record, settings}, record + ": it has 13233 bytes; a record has 13232");
    writeFile(record, bytes.substr(0, 13231));
    expectRefused({"decode", record, settings}, record + ": it has 13231 bytes; a record has 13232");
    writeFile(record, "");
    expectRefused({"decode", record, settings}, record + ": it has 0 bytes; a record has 13232");
    EXPECT_EQ(folder.names(), std::set<std::string>{"record.bin"});
}

TEST_F(Records, LeaveTheOldFileAloneWhenTheInputIsRefused) {
    writeFile(settings, "old settings");
    writeFile(record, "old record");
    const std::string missing = folder / "missing";
    expectRefused({"encode", missing, record}, missing + ": there is no such file");
    expectRefused({"decode", missing, settings}, missing + ": there is no such file");
    EXPECT_EQ(readFile(settings), "old settings");
    EXPECT_EQ(readFile(record), "old record");
}

TEST_F(Records, ThatCannotBeWrittenAreReported) {
    const std::string nowhere = folder / "nowhere/out";
    const std::string itself = folder.path();
    const std::string input = vectorPath("case-000.plist");
    expectRefused({"encode", input, nowhere}, nowhere + ": it cannot be written");
    expectRefused({"encode", input, itself}, itself + ": it cannot be written");
    expectRefused({"decode", vectorPath("case-000.bin"), nowhere}, nowhere + ": it cannot be written");
    expectRefused({"decode", vectorPath("case-000.bin"), itself}, itself + ": it cannot be written");
    EXPECT_EQ(folder.names(), std::set<std::string>{});
}

} // namespace
} // namespace quorvi::test
