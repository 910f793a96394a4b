// The naming rule of profiles and macros.

#include "model/NamingRule.h"

#include <gtest/gtest.h>

#include <random>

namespace quorvi {
namespace {

plist::Array named(std::initializer_list<const char16_t*> names) {
    auto array = plist::Array::create();
    for (const char16_t* name : names) {
        auto item = plist::Dictionary::create();
        item.set("name", name);
        array.append(item);
    }
    return array;
}

std::u16string unique(
    const char16_t* name, std::initializer_list<const char16_t*> names, std::int32_t ignoring = -1) {
    return makeNameUnique(name, u"Untitled Profile", named(names), "name", ignoring);
}

TEST(NamingRule, ACounterGoesOnFromTwo) {
    EXPECT_EQ(
        unique(u"Untitled Profile", {u"Untitled Profile", u"Untitled Profile 2"}), u"Untitled Profile 3");
    EXPECT_EQ(unique(u"Work 7", {u"Work 7"}), u"Work 2");
    EXPECT_EQ(unique(u"Work 0", {u"Work 0"}), u"Work 0 2");
    EXPECT_EQ(unique(u"Work 99", {u"Work 99"}), u"Work 2");
    EXPECT_EQ(unique(u"Work 100", {u"Work 100"}), u"Work 100 2");
    EXPECT_EQ(unique(u"Work -5", {u"Work -5"}), u"Work 2");
}

TEST(NamingRule, ANameWithoutAClashIsKeptWithItsCounter) {
    EXPECT_EQ(unique(u"Work 7", {u"Work"}), u"Work 7");
    EXPECT_EQ(unique(u"work", {u"Work"}), u"work");
}

TEST(NamingRule, LongNamesAreCutToTwentyUnitsAndTheirBaseToSeventeen) {
    EXPECT_EQ(unique(u"ABCDEFGHIJKLMNOPQRSTUVWXY", {}), u"ABCDEFGHIJKLMNOPQRST");
    EXPECT_EQ(unique(u"ABCDEFGHIJKLMNOPQRSTUVWXY", {u"ABCDEFGHIJKLMNOPQRST"}), u"ABCDEFGHIJKLMNOPQ 2");
}

TEST(NamingRule, TheOwnRowIsNoClash) {
    EXPECT_EQ(unique(u"Work", {u"Home", u"Work"}, 1), u"Work");
    EXPECT_EQ(unique(u"Work", {u"Home", u"Work"}, 0), u"Work 2");
}

TEST(NamingRule, AnEmptyNameTakesTheDefault) {
    EXPECT_EQ(unique(u"", {}), u"Untitled Profile");
    EXPECT_EQ(unique(u"", {u"Untitled Profile"}), u"Untitled Profile 2");
}

TEST(NamingRule, ANameThatIsNoTextClashesWithNothing) {
    auto array = named({u"Work"});
    array.dictionary(0).set("name", 7);
    EXPECT_EQ(makeNameUnique(u"7", u"Untitled", array, "name", -1), u"7");
}

// A second, simple implementation of the rule, without regard to speed.

using Names = std::vector<std::u16string>;

bool naiveClash(const Names& names, const std::u16string& candidate, int ignored) {
    for (int row = 0; row < static_cast<int>(names.size()); ++row)
        if (row != ignored && names[static_cast<std::size_t>(row)] == candidate)
            return true;
    return false;
}

bool naiveCounter(const std::u16string& piece) {
    if (piece.empty() || piece.size() > 2)
        return false;
    const std::string ascii(piece.begin(), piece.end());
    return std::atoi(ascii.c_str()) != 0;
}

std::u16string naiveUnique(std::u16string name, const Names& names, int ignored) {
    if (name.empty())
        name = u"Untitled";
    name = name.substr(0, 20);
    std::u16string base = name;
    const auto blank = name.find_last_of(u' ');
    if (blank != std::u16string::npos && naiveCounter(name.substr(blank + 1)))
        base = name.substr(0, blank);
    base = base.substr(0, 17);
    std::u16string candidate = name;
    int counter = 1;
    while (naiveClash(names, candidate, ignored)) {
        const std::string digits = std::to_string(++counter);
        candidate = base + u" " + std::u16string(digits.begin(), digits.end());
    }
    return candidate;
}

class RandomNames {
  public:
    std::u16string name() {
        // Few letters and many counters, so that clashes are frequent.
        static constexpr std::u16string_view pieces[] = {u"a", u"A", u" ", u" 2", u" 3", u" 10", u" -5",
            u" 0", u"Work", u"\u5B57\u00E4", u"abcdefghijklmnopq", u"  ", u" 2x", u"\xD83D\xDE00"};
        std::u16string result;
        for (int count = number(4); count > 0; --count)
            result += pieces[number(static_cast<int>(std::size(pieces)))];
        return result;
    }
    int number(int below) { return std::uniform_int_distribution(0, below - 1)(m_engine); }

  private:
    std::mt19937 m_engine{20}; // NOLINT: the same lists in every run
};

TEST(NamingRule, TenThousandRandomListsNeverClashAndAgreeWithTheNaiveRule) {
    RandomNames random;
    int clashes = 0;
    for (int round = 0; round < 10000; ++round) {
        Names names;
        auto array = plist::Array::create();
        for (int count = random.number(13); count > 0; --count) {
            names.push_back(random.name());
            auto item = plist::Dictionary::create();
            item.set("name", names.back());
            array.append(item);
        }
        const int ignored = random.number(14) - 1;
        const std::u16string wanted = random.name();
        const std::u16string unique = makeNameUnique(wanted, u"Untitled", array, "name", ignored);
        ASSERT_EQ(unique, naiveUnique(wanted, names, ignored)) << "round " << round;
        ASSERT_LE(unique.size(), 20U);
        ASSERT_FALSE(naiveClash(names, unique, ignored));
        clashes += unique != wanted.substr(0, 20) ? 1 : 0;
    }
    EXPECT_GT(clashes, 1000); // so that the lists really test the rule
}

} // namespace
} // namespace quorvi
