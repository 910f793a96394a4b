#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

class Check : public testing::Test {
  protected:
    /// A settings file with these entries in its tree.
    std::string settingsWith(const std::string& entries) {
        writeFile(m_folder / "settings.plist",
            "<plist version=\"1.0\"><dict><key>quorvi</key><dict>" + entries + "</dict></dict></plist>");
        return m_folder / "settings.plist";
    }
    void expectFault(const std::string& entries, const std::string& fault) {
        const std::string path = settingsWith(entries);
        expectRefused({"check", path}, path + ": " + fault);
    }

  private:
    TemporaryFolder m_folder;
};

const std::string kVersion = "<key>version</key><integer>6</integer>";
const std::string kSettings = "<key>settings</key><dict/>";
const std::string kMacros = "<key>macros</key><array/>";
const std::string kProfiles =
    "<key>profiles</key><array><dict><key>name</key><string>P</string><key>stages</key><array/>"
    "<key>buttons</key><dict/></dict></array>";

TEST_F(Check, AcceptsWhatThePanelAndTheDeviceTake) {
    expectDone({"check", vectorPath("case-000.plist")}, "");
    expectDone({"check", settingsWith(kVersion + kSettings + kProfiles + kMacros)}, "");
    expectDone(
        {"check", settingsWith("<key>version</key><integer>7</integer>" + kSettings + kProfiles + kMacros)},
        "");
}

TEST_F(Check, NamesWhatIsMissing) {
    expectFault(kVersion + kProfiles + kMacros, "it has no \"settings\"");
    expectFault(kVersion + kSettings + kMacros, "it has no \"profiles\"");
    expectFault(kVersion + kSettings + kProfiles, "it has no \"macros\"");
    expectFault("", "it has no \"settings\", no \"profiles\", no \"macros\"");
    expectFault(kSettings + kProfiles + kMacros, "it has no \"version\"");
}

TEST_F(Check, RefusesAnOldVersion) {
    expectFault("<key>version</key><integer>5</integer>" + kSettings + kProfiles + kMacros,
        "its version is 5; at least 6 is needed");
}

TEST_F(Check, RefusesWhatGivesNoRecord) {
    const std::string useless =
        "none of its profiles can be encoded; a profile needs \"name\", \"stages\" and \"buttons\"";
    expectFault(kVersion + kSettings + kMacros + "<key>profiles</key><array/>", useless);
    expectFault(kVersion + kSettings + kMacros + "<key>profiles</key><array><dict/></array>", useless);
    expectFault(kVersion + kSettings + kMacros + "<key>profiles</key><string>none</string>",
        "it has no \"profiles\" array");
    expectFault(kVersion + kProfiles + kMacros + "<key>settings</key><string>none</string>",
        "it has no \"settings\" dictionary");
}

} // namespace
} // namespace quorvi::test
