// The text formats of game launchers.
#include "applications/games/TextTree.h"

#include <gtest/gtest.h>

namespace quorvi::test {
namespace {

using games::readJson;
using games::readKeyValues;
using games::TextTree;

constexpr char kValves[] =
    "// a comment\n\"AppState\"\n{\n\t\"appid\"\t\"440\"\n\t\"name\" \"A \\\"B\\\" \\\\ C\"\n"
    "\tplain word\n\t\"deep\" { \"deeper\" { \"x\" \"1\" } }\n}\n";
constexpr char kJson[] = R"({"games": [{"app_name": "q", "n": -1.5e3, "t": true, "no": null},
    {"title": "A \"B\" \u00e9 \ud83d\ude00 \\ \/ \n"}, [], {}], "last": "x"})";

std::size_t countOf(const TextTree& tree) {
    std::size_t count = 1;
    for (const auto& [name, member] : tree.members)
        count += countOf(member);
    return count;
}

std::string nested(std::size_t times, const char* open, const char* close, const char* inside) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += open;
    text += inside;
    for (std::size_t i = 0; i < times; ++i)
        text += close;
    return text;
}

TEST(KeyValues, AreReadWithTheirEscapesAndComments) {
    const auto tree = readKeyValues(kValves);
    EXPECT_EQ(tree["appstate"]["AppID"].text, "440");
    EXPECT_EQ(tree["AppState"]["name"].text, "A \"B\" \\ C");
    EXPECT_EQ(tree["AppState"]["plain"].text, "word");
    EXPECT_EQ(tree["AppState"]["deep"]["deeper"]["x"].text, "1");
    EXPECT_EQ(tree["AppState"]["none"]["none"].text, "");
}

TEST(Json, IsReadWithItsEscapes) {
    const auto tree = readJson(kJson);
    const auto& games = tree["games"].members;
    ASSERT_EQ(games.size(), 4U);
    EXPECT_EQ(games[0].second["app_name"].text, "q");
    EXPECT_EQ(games[0].second["n"].text, "-1.5e3");
    EXPECT_EQ(games[0].second["t"].text, "true");
    EXPECT_EQ(games[0].second["no"].text, "");
    EXPECT_EQ(games[1].second["title"].text, "A \"B\" \u00e9 \U0001F600 \\ / \n");
    EXPECT_EQ(tree["last"].text, "x");
}

TEST(TextsOfLaunchers, AreReadUpToTheirFault) {
    const auto open = readKeyValues("\"a\" \"1\" \"b\" { \"c\" \"2\"");
    EXPECT_EQ(open["b"]["c"].text, "2");
    const auto closed = readKeyValues("\"a\" \"1\" } \"b\" \"2\"");
    EXPECT_EQ(closed["a"].text, "1");
    EXPECT_EQ(closed["b"].text, "");
    const auto cut = readJson(R"({"a": "1", "b": {"c": "2")");
    EXPECT_EQ(cut["b"]["c"].text, "2");
    const auto nameless = readJson(R"({"a": "1", b})");
    EXPECT_EQ(nameless["a"].text, "1");
    EXPECT_EQ(readJson("").text, "");
}

TEST(TextsOfLaunchers, MayBeCutAnywhereAndSpoiltAnywhere) {
    for (const std::string_view text : {std::string_view(kValves), std::string_view(kJson)}) {
        const std::string whole(text);
        const auto most = std::max(countOf(readKeyValues(whole)), countOf(readJson(whole)));
        for (std::size_t size = 0; size <= whole.size(); ++size) {
            EXPECT_LE(countOf(readKeyValues(whole.substr(0, size))), most);
            EXPECT_LE(countOf(readJson(whole.substr(0, size))), most + 1);
            for (const char bad : {'\0', '"', '\\', '{', '}', '[', ']', ',', '\xFF', 'u'}) {
                auto spoilt = whole;
                spoilt[std::min(size, whole.size() - 1)] = bad;
                EXPECT_LE(countOf(readKeyValues(spoilt)), whole.size());
                EXPECT_LE(countOf(readJson(spoilt)), whole.size());
            }
        }
    }
}

TEST(TextsOfLaunchers, AreNotFollowedIntoTheDeep) {
    EXPECT_EQ(countOf(readKeyValues(nested(20, "a {", "}", "x y"))), 22U);
    EXPECT_EQ(countOf(readJson(nested(20, "[", "]", "1"))), 21U);
    EXPECT_LT(countOf(readKeyValues(nested(200'000, "a {", "}", "x y"))), 40U);
    EXPECT_LT(countOf(readJson(nested(200'000, "[", "]", "1"))), 40U);
}

TEST(TextsOfLaunchers, AreNotReadWithoutEnd) {
    EXPECT_LE(countOf(readKeyValues(nested(150'000, "a b\n", "", ""))), 100'002U);
    EXPECT_LE(countOf(readJson("[" + nested(150'000, "1,", "", "1") + "]")), 100'002U);
}

} // namespace
} // namespace quorvi::test
