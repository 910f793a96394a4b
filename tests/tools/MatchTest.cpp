#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

/// A profile whose driver dictionary holds these strings.
std::string boundProfile(const std::vector<std::pair<std::string, std::string>>& binding, bool automatic) {
    std::string text = "<dict><key>driver</key><dict>";
    for (const auto& [key, value] : binding)
        text.append("<key>").append(key).append("</key><string>").append(value).append("</string>");
    return text + "<key>autoswitch</key>" + (automatic ? "<true/>" : "<false/>") + "</dict></dict>";
}

class Match : public testing::Test {
  protected:
    Match() {
        writeFile(path, "<plist version=\"1.0\"><dict><key>quorvi</key><dict><key>profiles</key><array>" +
                            boundProfile({}, true) + boundProfile({{"application", "Bild"}}, false) +
                            boundProfile({{"application", "Bild"}, {"identifier", "org.bild"}}, true) +
                            boundProfile({{"signature", "ÄÖ"}}, true) +
                            boundProfile({{"executable", "/usr/bin/x"}}, true) +
                            "</array></dict></dict></plist>");
    }
    void expectIndex(std::vector<std::string> options, const std::string& index) {
        options.insert(options.begin(), {"match", path});
        expectDone(options, index + "\n");
    }
    TemporaryFolder folder;
    std::string path = folder / "settings.plist";
};

TEST_F(Match, PrintsTheIndexOfTheProfileThatAgreesOnMostKeys) {
    expectIndex({"--application", "Bild"}, "1");
    expectIndex({"--application", "Bild", "--identifier", "org.bild"}, "2");
    expectIndex({"--signature", "ÄÖ"}, "3");
    expectIndex({"--executable", "/usr/bin/x"}, "4");
}

TEST_F(Match, TakesOnlyAutomaticProfilesOnRequest) {
    expectIndex({"--auto", "--application", "Bild"}, "2");
    expectIndex({"--application", "Bild", "--auto"}, "2");
}

TEST_F(Match, PrintsMinusOneWhenNoneAgrees) {
    expectIndex({}, "-1");
    expectIndex({"--application", "bild"}, "-1");
    expectIndex({"--application", ""}, "-1");
    expectIndex({"--application", "Other", "--identifier", "org.bild"}, "-1");
}

TEST_F(Match, TakesTheFileAnywhereAmongItsOptions) {
    expectDone({"match", "--application", "Bild", path, "--auto"}, "2\n");
}

TEST_F(Match, IsMisusedWithOtherOptions) {
    expectMisused({"match", path, "--application"}, "--application needs a value");
    expectMisused({"match", path, "--Auto"}, "match has no option --Auto");
    expectMisused({"match", path, path}, "match takes one settings file");
    expectMisused({"match", "--auto"}, "match needs a settings file");
}

} // namespace
} // namespace quorvi::test
