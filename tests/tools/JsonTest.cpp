// quorvictl's output for scripts.
#include "tools/Json.h"

#include <algorithm>
#include <limits>

#include "tools/PrintedJson.h"

namespace quorvi::test {
namespace {

using tools::Json;

class ForScripts : public testing::Test {
  protected:
    /// A settings file with these lists, in XML.
    std::string settingsWith(const std::string& profiles, const std::string& macros) {
        writeFile(settings,
            "<plist version=\"1.0\"><dict><key>quorvi</key><dict><key>version</key><integer>6</integer>"
            "<key>settings</key><dict><key>profileid</key><integer>2</integer></dict><key>profiles</key>"
            "<array>" +
                profiles + "</array><key>macros</key><array>" + macros + "</array></dict></dict></plist>");
        return settings;
    }
    static std::string profileXml(const std::string& name, const std::string& driver = "") {
        return "<dict><key>name</key><string>" + name +
               "</string><key>stages</key><array/><key>buttons</key>"
               "<dict/><key>driver</key><dict>" +
               driver + "</dict></dict>";
    }

    TemporaryFolder folder;
    std::string settings = folder / "settings.plist";
};

TEST_F(ForScripts, ProfilesHaveNumberNameAndApplication) {
    settingsWith(profileXml("Desk") + profileXml("Game", "<key>application</key><string>Sokoban</string>"
                                                         "<key>autoswitch</key><true/>"),
        "");
    expectJson({"profiles", "--json", settings},
        R"({"profiles":[{"number":1,"current":false,"name":"Desk","application":null,"automatic":false},
                        {"number":2,"current":true,"name":"Game","application":"Sokoban","automatic":true}]})");
}

TEST_F(ForScripts, MacrosHaveIdentifierStepsAndName) {
    settingsWith("", "<dict><key>macroid</key><integer>7</integer><key>name</key><string>Jump</string>"
                     "<key>steps</key><array><dict/><dict/></array></dict><string>none</string>");
    expectJson({"--json", "macros", settings},
        R"({"macros":[{"id":7,"steps":2,"name":"Jump"},{"id":0,"steps":0,"name":""}]})");
}

TEST_F(ForScripts, ListsMayBeEmpty) {
    settingsWith("", "");
    expectJson({"profiles", settings, "--json"}, R"({"profiles":[]})");
    expectJson({"macros", settings, "--json"}, R"({"macros":[]})");
}

TEST_F(ForScripts, NamesAreWholeWhateverTheyHold) {
    const std::string nasty = "\"},{\"\\ \t\n/</script>\x7F '%s' \u202E\u2028 ä漢😀";
    std::string xml;
    for (const char c : nasty)
        xml += c == '<' ? std::string("&lt;") : std::string(1, c);
    settingsWith(profileXml(xml), "");
    const auto profiles = printedJson({"profiles", settings, "--json"})["profiles"].toArray();
    ASSERT_EQ(profiles.size(), 1);
    EXPECT_EQ(profiles[0].toObject()["name"].toString().toStdString(), nasty);
}

TEST_F(ForScripts, CommandsAreThoseThatLinesList) {
    const auto commands = printedJson({"commands", "--json"})["commands"].toArray();
    const auto lines = quorvictl({"commands"}).output;
    EXPECT_EQ(commands.size(), std::count(lines.begin(), lines.end(), '\n'));
    EXPECT_EQ(commands[0].toObject(),
        jsonObject(R"({"code":1,"inputs":["buttons"],"group":"Clicks","title":"Primary Click"})"));
    EXPECT_EQ(commands[4].toObject(),
        jsonObject(R"({"code":5,"inputs":["buttons","wheel"],"group":"Clicks","title":"Back"})"));
}

TEST_F(ForScripts, CheckSaysThatSettingsAreValid) {
    expectJson({"check", "--json", vectorPath("case-000.plist")}, R"({"valid":true})");
}

TEST_F(ForScripts, ARefusalIsAnObjectWithTheReasonOfStandardError) {
    settingsWith("", "");
    const auto result = quorvictl({"check", "--json", settings});
    const auto printed = printedJson({"check", "--json", settings}, 1);
    EXPECT_EQ(printed.keys(), QStringList{"error"});
    EXPECT_EQ("quorvictl: " + printed["error"].toString().toStdString() + "\n", result.error);
    EXPECT_EQ(printed["error"].toString().toStdString(),
        settings +
            ": none of its profiles can be encoded; a profile needs \"name\", \"stages\" and \"buttons\"");
}

TEST_F(ForScripts, AFileNameThatIsNoTextIsShownAsWellAsCanBe) {
    const auto printed = printedJson({"profiles", "--json", folder / "\xFF\"\x01"}, 1);
    EXPECT_EQ(printed["error"].toString().toStdString(), (folder / "\uFFFD\"?: there is no such file"));
}

TEST_F(ForScripts, AWrongCommandLinePrintsNothingOnStandardOutput) {
    expectMisused({"--json"}, "no command given");
    expectMisused({"--json", "check"}, "check takes SETTINGS.plist");
    expectMisused({"commands", "--json", "all"}, "commands takes no arguments");
    expectMisused({"--json", "press", "1"}, "press prints no JSON");
    expectMisused({"encode", "--json", "a", "b"}, "encode takes SETTINGS.plist RECORD.bin");
}

TEST(JsonText, ReplacesWhatIsNoUnicode) {
    EXPECT_EQ(Json(u"a\xD800"
                   u"b\xDC00")
                  .text(),
        "\"a\uFFFDb\uFFFD\"");
    EXPECT_EQ(Json(u"\U0001F600").text(), "\"\U0001F600\"");
    EXPECT_EQ(Json("a\xC3(\xED\xA0\x80").text(), "\"a\uFFFD(\uFFFD\uFFFD\uFFFD\"");
}

TEST(JsonText, EscapesControlCharactersQuotesAndBackslashes) {
    std::u16string controls;
    for (char16_t c = 0; c < 0x20; ++c)
        controls += c;
    controls += u"\x7F\"\\";
    const auto text = "{\"k\":" + Json(controls).text() + "}";
    EXPECT_EQ(std::count_if(text.begin(), text.end(), [](unsigned char c) { return c < 0x20; }), 0);
    EXPECT_EQ(jsonObject(text.c_str())["k"].toString().toStdU16String(), controls);
}

TEST(JsonText, HasNumbersAsNumbersAndNothingAsNull) {
    EXPECT_EQ(Json(std::numeric_limits<std::int64_t>::min()).text(), "-9223372036854775808");
    EXPECT_EQ(Json(std::uint8_t{200}).text(), "200");
    EXPECT_EQ(Json(std::numeric_limits<std::uint64_t>::max()).text(), "18446744073709551615");
    EXPECT_EQ(Json(true).text(), "true");
    EXPECT_EQ(Json().text(), "null");
    EXPECT_EQ(Json::array({}).text(), "[]");
    EXPECT_EQ(Json::object({}).text(), "{}");
    EXPECT_EQ(
        Json::object({{"a", Json::array({1, "b"})}, {"c", Json()}}).text(), R"({"a":[1,"b"],"c":null})");
}

} // namespace
} // namespace quorvi::test
