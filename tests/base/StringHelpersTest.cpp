#include "base/StringHelpers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quorvi::test {

namespace {

using Bytes = std::vector<unsigned char>;

Bytes pascal(const std::string& text) {
    Bytes bytes(text.size() + 1, static_cast<unsigned char>(text.size()));
    std::copy(text.begin(), text.end(), bytes.begin() + 1);
    return bytes;
}

/// The buffers have exactly maximum + 1 bytes, so that the sanitizers see any access beyond.
Bytes filled(std::size_t maximum, const std::string& text) {
    Bytes bytes = pascal(text);
    bytes.resize(maximum + 1, 0xEE);
    return bytes;
}

std::string textOf(const Bytes& bytes) {
    return {bytes.begin() + 1, bytes.begin() + 1 + bytes.front()};
}

std::string copied(const std::string& source, std::size_t maximum) {
    Bytes destination = filled(maximum, "");
    PStringCopy(destination.data(), pascal(source).data(), maximum);
    return textOf(destination);
}

std::string appended(const std::string& text, const std::string& more, std::size_t maximum) {
    Bytes destination = filled(maximum, text);
    PStringCat(destination.data(), pascal(more).data(), maximum);
    return textOf(destination);
}

int compared(const std::string& a, const std::string& b) {
    const int difference = PStringCmp(pascal(a).data(), pascal(b).data());
    EXPECT_EQ(difference < 0, CStringCmp(a.c_str(), b.c_str()) < 0) << a << ", " << b;
    EXPECT_EQ(difference > 0, CStringCmp(a.c_str(), b.c_str()) > 0) << a << ", " << b;
    return difference;
}

} // namespace

TEST(PascalStringTest, CopyTakesWhatFits) {
    EXPECT_EQ(copied("Helper", 255), "Helper");
    EXPECT_EQ(copied("Helper", 6), "Helper");
    EXPECT_EQ(copied("Helper", 5), "Helpe");
    EXPECT_EQ(copied("Helper", 0), "");
    EXPECT_EQ(copied("", 4), "");
    EXPECT_EQ(copied(std::string(255, 'x'), 255), std::string(255, 'x'));
    EXPECT_EQ(copied(std::string(255, 'x'), 254), std::string(254, 'x'));
    EXPECT_EQ(copied(std::string("a\0b", 3), 10), std::string("a\0b", 3));
}

TEST(PascalStringTest, CopyLeavesTheRestOfTheBuffer) {
    Bytes destination(6, 0xEE);
    PStringCopy(destination.data(), pascal("ab").data(), 5);
    EXPECT_EQ(destination, (Bytes{2, 'a', 'b', 0xEE, 0xEE, 0xEE}));
}

TEST(PascalStringTest, AMaximumAboveALengthByteIs255) {
    Bytes destination(256, 0xEE);
    PStringCopy(destination.data(), pascal(std::string(255, 'x')).data(), 100000);
    EXPECT_EQ(textOf(destination), std::string(255, 'x'));
    PStringCat(destination.data(), pascal("y").data(), 100000);
    EXPECT_EQ(textOf(destination), std::string(255, 'x'));
    CStringPCopy(destination.data(), std::string(300, 'z').c_str(), 300);
    EXPECT_EQ(textOf(destination), std::string(255, 'z'));
}

TEST(PascalStringTest, AppendTakesWhatFits) {
    EXPECT_EQ(appended("Kyvar", "Quorvi", 255), "KyvarQuorvi");
    EXPECT_EQ(appended("Kyvar", "Quorvi", 11), "KyvarQuorvi");
    EXPECT_EQ(appended("Kyvar", "Quorvi", 10), "KyvarQuorv");
    EXPECT_EQ(appended("Kyvar", "Quorvi", 5), "Kyvar");
    EXPECT_EQ(appended("", "Quorvi", 3), "Quo");
    EXPECT_EQ(appended("Kyvar", "", 8), "Kyvar");
    EXPECT_EQ(appended(std::string(200, 'a'), std::string(200, 'b'), 255),
        std::string(200, 'a') + std::string(55, 'b'));
}

TEST(PascalStringTest, ADestinationLongerThanItsMaximumStays) {
    Bytes destination = pascal("Kyvar");
    PStringCat(destination.data(), pascal("Q").data(), 3);
    EXPECT_EQ(textOf(destination), "Kyvar");
    CStringPCat(destination.data(), "Q", 0);
    EXPECT_EQ(textOf(destination), "Kyvar");
}

TEST(PascalStringTest, AStringMayBeAppendedToItself) {
    Bytes destination = filled(8, "abcde");
    PStringCat(destination.data(), destination.data(), 8);
    EXPECT_EQ(textOf(destination), "abcdeabc");
}

TEST(PascalStringTest, ComparingIgnoresTheCaseOfAsciiLettersAlone) {
    EXPECT_EQ(compared("KyvarQuorviHelper", "kyvarquorvihelper"), 0);
    EXPECT_EQ(compared("", ""), 0);
    EXPECT_LT(compared("a", "B"), 0);
    EXPECT_GT(compared("b", "A"), 0);
    EXPECT_NE(compared("[", "{"), 0); // 32 apart, like upper and lower case
    EXPECT_NE(compared("@", "`"), 0);
    EXPECT_NE(compared("\xC4", "\xE4"), 0);
    EXPECT_LT(compared("z", "\xC4"), 0); // bytes are unsigned
    EXPECT_GT(compared("a", "_"), 0);    // folded to lower case, not to upper
    EXPECT_GT(compared("A", "_"), 0);
}

TEST(PascalStringTest, TheShorterStringSortsFirstWhenTheRestIsEqual) {
    EXPECT_LT(compared("Helper", "Helper2"), 0);
    EXPECT_GT(compared("helper2", "HELPER"), 0);
    EXPECT_LT(compared("", "a"), 0);
    EXPECT_GT(compared("b", "aaaa"), 0); // the bytes decide before the length
    EXPECT_LT(compared(std::string(254, 'x'), std::string(255, 'X')), 0);
}

TEST(PascalStringTest, TerminatedStringsAreTakenUpToTheirZero) {
    Bytes destination = filled(6, "");
    CStringPCopy(destination.data(), "Kyvar", 6);
    EXPECT_EQ(textOf(destination), "Kyvar");
    CStringPCat(destination.data(), "Quorvi", 6);
    EXPECT_EQ(textOf(destination), "KyvarQ");
    CStringPCopy(destination.data(), "Quorvi", 6);
    EXPECT_EQ(textOf(destination), "Quorvi");
    CStringPCopy(destination.data(), "Quorvi", 0);
    EXPECT_EQ(textOf(destination), "");
}

TEST(PascalStringTest, NoMoreThanTheMaximumOfASourceIsRead) {
    const std::vector<char> unterminated{'a', 'b', 'c'};
    Bytes destination = filled(3, "");
    CStringPCopy(destination.data(), unterminated.data(), 3);
    EXPECT_EQ(textOf(destination), "abc");
    std::vector<char> text(4, '\xEE');
    CStringCopy(text.data(), unterminated.data(), 3);
    EXPECT_STREQ(text.data(), "abc");
}

TEST(TerminatedStringTest, CopyTakesWhatFits) {
    for (const auto& [maximum, expected] : std::vector<std::pair<std::size_t, std::string>>{
             {0, ""}, {1, "H"}, {5, "Helpe"}, {6, "Helper"}, {300, "Helper"}}) {
        std::vector<char> destination(maximum + 1, '\xEE');
        CStringCopy(destination.data(), "Helper", maximum);
        EXPECT_STREQ(destination.data(), expected.c_str());
    }
}

TEST(TerminatedStringTest, AppendTakesWhatFits) {
    for (const auto& [maximum, expected] : std::vector<std::pair<std::size_t, std::string>>{
             {5, "Kyvar"}, {6, "KyvarQ"}, {11, "KyvarQuorvi"}, {300, "KyvarQuorvi"}}) {
        std::vector<char> destination(maximum + 1, '\xEE');
        CStringCopy(destination.data(), "Kyvar", maximum);
        CStringCat(destination.data(), "Quorvi", maximum);
        EXPECT_STREQ(destination.data(), expected.c_str());
    }
}

TEST(TerminatedStringTest, AnUnterminatedDestinationIsClosedAtItsMaximum) {
    std::vector<char> destination{'a', 'b', 'c', 'd'};
    CStringCat(destination.data(), "x", 3);
    EXPECT_STREQ(destination.data(), "abc");
}

TEST(StringHelpersTest, NullPointersAreEmptyOrUntouched) {
    Bytes text = filled(5, "ab");
    PStringCat(text.data(), nullptr, 5);
    EXPECT_EQ(textOf(text), "ab");
    CStringPCat(text.data(), nullptr, 5);
    EXPECT_EQ(textOf(text), "ab");
    PStringCopy(text.data(), nullptr, 5);
    EXPECT_EQ(textOf(text), "");
    char terminated[3] = "a";
    CStringCat(terminated, nullptr, 2);
    EXPECT_STREQ(terminated, "a");
    CStringCopy(terminated, nullptr, 2);
    EXPECT_STREQ(terminated, "");
    PStringCopy(nullptr, text.data(), 5);
    PStringCat(nullptr, text.data(), 5);
    CStringPCopy(nullptr, "a", 5);
    CStringPCat(nullptr, "a", 5);
    CStringCopy(nullptr, "a", 5);
    CStringCat(nullptr, "a", 5);
    EXPECT_EQ(PStringCmp(nullptr, text.data()), 0);
    EXPECT_LT(CStringCmp(nullptr, "a"), 0);
}

} // namespace quorvi::test
