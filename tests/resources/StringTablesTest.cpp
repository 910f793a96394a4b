// Rules for the string table of every language, including English. A new language folder is tested
// automatically.
#include "resources/StringTables.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/Unicode.h"
#include "plist/PlainTexts.h"
#include "plist/Reader.h"
#include "resources/InterfaceFiles.h"
#include "support/Files.h"

namespace quorvi::test {

namespace {

class StringTables : public testing::TestWithParam<std::string> {
  protected:
    const StringTable m_table = readStringTable(GetParam());
};

std::size_t countOf(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

} // namespace

TEST_P(StringTables, canBeReadAndHoldNothingButTexts) {
    const auto contents = plist::readPropertyListFile(stringTablePath(GetParam()));
    ASSERT_EQ(contents.status, plist::FileStatus::Ok);
    EXPECT_EQ(m_table.size(), contents.value.dictionary().size());
    EXPECT_GT(m_table.size(), 300U);
}

// The window would be there later, and nobody would see why.
TEST_P(StringTables, areOfTheFormThatIsReadFast) {
    const std::string file = readFile(stringTablePath(GetParam()));
    const auto texts =
        plist::readPlainTexts({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()});
    ASSERT_TRUE(texts);
    StringTable read;
    for (const auto& [key, text] : *texts)
        read.emplace(toUtf8(key), toUtf8(text));
    EXPECT_EQ(read, m_table);
}

// The later one of two would count, and the translator wonder.
TEST_P(StringTables, giveEachTextOnce) {
    EXPECT_EQ(countOf("<key>", readFile(stringTablePath(GetParam()))), m_table.size());
}

TEST_P(StringTables, haveExactlyTheTextsOfEnglish) {
    const StringTable english = readStringTable("en");
    for (const auto& [key, text] : english)
        EXPECT_TRUE(m_table.contains(key)) << "missing: " << key;
    for (const auto& [key, text] : m_table)
        EXPECT_TRUE(english.contains(key)) << "unknown: " << key;
}

TEST_P(StringTables, haveWordsForEveryText) {
    for (const auto& [key, text] : m_table)
        EXPECT_NE(text.find_first_not_of(" \t\n"), std::string::npos) << key;
}

TEST_P(StringTables, keepThePlaceholders) {
    for (const auto& [key, text] : m_table)
        EXPECT_EQ(placeholdersOf(text), placeholdersOf(key)) << key << "\n" << text;
}

// A name has room for 20 units: this one, and a blank and two digits behind it when it is taken. A longer one
// would be cut where the counter stands.
TEST_P(StringTables, nameNewProfilesAndMacrosSoThatACounterFitsBehindThem) {
    constexpr std::size_t kUnits = 17;
    for (const char* key : {"Untitled Profile", "Untitled Macro"}) {
        const std::u16string name = toUtf16(m_table.at(key));
        EXPECT_LE(name.size(), kUnits) << m_table.at(key);
        EXPECT_FALSE(name.empty());
    }
}

// A label shows a line feed as a new line, and nothing else.
TEST_P(StringTables, breakLinesWhereEnglishDoes) {
    for (const auto& [key, text] : m_table) {
        EXPECT_EQ(text.find('\r'), std::string::npos) << key;
        EXPECT_EQ(std::ranges::count(text, '\n'), std::ranges::count(key, '\r')) << key << "\n" << text;
    }
}

TEST_P(StringTables, markAccessKeysWhereEnglishDoes) {
    for (const auto& [key, text] : m_table) {
        EXPECT_EQ(accessKeysOf(text).size(), accessKeysOf(key).size()) << key << "\n" << text;
        for (const std::string& accessKey : accessKeysOf(text))
            EXPECT_EQ(accessKey.find_first_of(" .:()"), std::string::npos) << text;
    }
}

// The underline breaks the joining: such a word is drawn wider than it is measured, and cut at its end.
TEST_P(StringTables, markNoLetterThatIsJoinedToAnother) {
    for (const auto& [key, text] : m_table)
        EXPECT_FALSE(joinsAnAccessKey(text)) << key << "\n" << text;
}

TEST_P(StringTables, shareNoAccessKeyAmongTextsShownTogether) {
    const auto places = textsShownTogether();
    ASSERT_GT(places.size(), 5U);
    for (const TextsOfPlace& place : places) {
        std::map<std::string, std::string> owners;
        for (const std::string& key : place.texts) {
            const auto known = m_table.find(key);
            const std::string& text = known == m_table.end() ? key : known->second;
            for (const std::string& accessKey : accessKeysOf(text)) {
                const auto [owner, isFirst] = owners.emplace(accessKey, text);
                EXPECT_TRUE(isFirst) << place.place << ": " << text << "\n" << owner->second;
            }
        }
    }
}

// "1200 × 2400" would be turned round within a text from the right.
TEST_P(StringTables, readAResolutionFromTheLeft) {
    if (GetParam() == "ar") {
        EXPECT_EQ(m_table.at("^1 × ^2"), "\u2066^1 × ^2\u2069");
    } else {
        EXPECT_EQ(m_table.at("^1 × ^2"), "^1 × ^2");
    }
}

// Programs that put the parts together get what the panel shows.
TEST(EnglishPatterns, sayWhatTheTextsSayThatANameFollows) {
    const StringTable english = readStringTable("en");
    for (const char* text : {"Press", "Release", "Press button", "Profile:", "Macro:", "Press Key"})
        EXPECT_EQ(english.at(std::string(text) + " ^1"), english.at(text) + " ^1");
}

INSTANTIATE_TEST_SUITE_P(Languages, StringTables, testing::ValuesIn(languages()),
    [](const auto& tested) { return testNameOf(tested.param); });

TEST(ShownTexts, haveNoAccessKeys) {
    EXPECT_EQ(shownText("Ma&cros (up to 12):"), "Macros (up to 12):");
    EXPECT_EQ(shownText("ヘルプ(&H)"), "ヘルプ");
    EXPECT_EQ(shownText("الأز&رار"), "الأزرار");
    EXPECT_EQ(shownText("this && that"), "this & that");
}

TEST(Placeholders, areFoundInEveryForm) {
    EXPECT_EQ(placeholdersOf("X = %d,  Y = %d DPI"), (std::vector<std::string>{"%d", "%d"}));
    EXPECT_EQ(placeholdersOf("%2 %@ 100 % ^1 %1"), (std::vector<std::string>{"%1", "%2", "%@", "^1"}));
}

TEST(AccessKeys, areWhatFollowsTheMark) {
    EXPECT_EQ(accessKeysOf("Ma&Cros"), (std::vector<std::string>{"c"}));
    EXPECT_EQ(accessKeysOf("&Ключ (&K)"), (std::vector<std::string>{"к", "k"}));
    EXPECT_EQ(accessKeysOf("this && that"), std::vector<std::string>());
}

TEST(AccessKeys, areJoinedOnEitherSide) {
    EXPECT_TRUE(joinsAnAccessKey("الح&ساسية"));
    EXPECT_TRUE(joinsAnAccessKey("&مساعدة"));   // only behind it
    EXPECT_TRUE(joinsAnAccessKey("الحساسي&ة")); // only before it
    EXPECT_FALSE(joinsAnAccessKey("مساعد&ة"));
    EXPECT_FALSE(joinsAnAccessKey("&الحساسية"));
    EXPECT_FALSE(joinsAnAccessKey("Ma&cros"));
}

TEST(TextsShownTogether, areThoseOfATabAndWhatStandsAroundIt) {
    const auto places = textsShownTogether();
    const auto page = std::ranges::find(places, "tabDevice", &TextsOfPlace::place);
    ASSERT_NE(page, places.end());
    const auto has = [&](const char* text) { return std::ranges::count(page->texts, text); };
    EXPECT_EQ(has("&Help"), 1);
    EXPECT_EQ(has("&Buttons"), 1);
    EXPECT_EQ(has("&Device"), 1);
    EXPECT_EQ(has("Polling &rate:"), 1);
    EXPECT_EQ(has("&1  Left button"), 0);
}

} // namespace quorvi::test
