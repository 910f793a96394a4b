#include <gtest/gtest.h>

#include "plist/Samples.h"
#include "plist/Writer.h"

namespace quorvi::plist {
namespace {

using samples::Binary;
using samples::read;

Value single(const std::string& object) {
    Binary file;
    file.add(object);
    return read(file.bytes());
}

TEST(BinaryReading, ReadsEachType) {
    Binary file;
    file.addDictionary({1, 2, 3, 4, 5, 6, 7, 8}, {9, 10, 11, 12, 13, 14, 15, 16});
    for (const char* text : {"s", "u", "i", "r", "t", "f", "d", "a"})
        file.addText(text);
    file.addText("plain");
    file.addUtf16(u"\u00E9\U0001F600");
    file.add("\x11\x01\x2C");
    file.add(std::string("\x23\x40\x04") + std::string(6, '\0'));
    file.add("\x09");
    file.add("\x08");
    file.add("\x43\x01\x02\x03");
    file.addArray({});
    const auto d = read(file.bytes()).dictionary();
    ASSERT_EQ(d.size(), 8U);
    EXPECT_EQ(d.value("s"), Value(u"plain"));
    EXPECT_EQ(d.value("u"), Value(u"\u00E9\U0001F600"));
    EXPECT_EQ(d.value("i"), Value(300));
    EXPECT_EQ(d.value("r"), Value(2.5));
    EXPECT_EQ(d.value("t"), Value(true));
    EXPECT_EQ(d.value("f"), Value(false));
    EXPECT_EQ(d.value("d"), Value(Data{1, 2, 3}));
    EXPECT_TRUE(d.array("a"));
}

TEST(BinaryReading, ReadsIntegersOfEveryWidth) {
    EXPECT_EQ(single("\x10\xFF"), Value(255));
    EXPECT_EQ(single("\x12\xFF\xFF\xFF\xFF"), Value(std::int64_t{4294967295}));
    EXPECT_EQ(single(std::string("\x13") + std::string(7, '\xFF') + "\xFB"), Value(-5));
    EXPECT_EQ(single(std::string("\x14") + std::string(15, '\0') + "\x07"), Value(7));
    const auto big = single(std::string("\x14") + std::string(8, '\0') + std::string(8, '\xFF'));
    EXPECT_EQ(big.integer(), -1);
    EXPECT_EQ(big.real(), 18446744073709551615.0);
    EXPECT_NE(writeXml(big).value_or("").find("<integer>18446744073709551615</integer>"), std::string::npos);
}

TEST(BinaryReading, Keeps32BitReals) {
    EXPECT_EQ(single("\x22\x3E\x99\x99\x9A"), Value(static_cast<double>(0.3F)));
}

TEST(BinaryReading, ReadsLongTextsAndArrays) {
    const std::string text(1000, 'x');
    EXPECT_EQ(single(Binary::head(0x50, 1000) + text), Value(std::u16string(1000, u'x')));
    Binary file;
    file.addArray(Binary::References(300, 1));
    file.addText("a");
    const auto array = read(file.bytes()).array();
    ASSERT_EQ(array.size(), 300U);
    EXPECT_EQ(array.value(299), Value(u"a"));
}

TEST(BinaryReading, ExpandsSharedObjectsIntoIndependentOnes) {
    Binary file;
    file.addArray({1, 1});
    file.addArray({});
    const auto array = read(file.bytes()).array();
    ASSERT_EQ(array.size(), 2U);
    EXPECT_FALSE(array.value(0).array().isSameAs(array.value(1).array()));
}

TEST(BinaryReading, LetsTheLaterOfEqualKeysWin) {
    Binary file;
    file.addDictionary({1, 2, 1}, {3, 3, 4});
    file.addText("a");
    file.addText("b");
    file.add("\x10\x01");
    file.add("\x10\x02");
    const auto d = read(file.bytes()).dictionary();
    ASSERT_EQ(d.size(), 2U);
    EXPECT_EQ(d.entries()[0].key, "a");
    EXPECT_EQ(d.integer("a"), 2);
    EXPECT_EQ(d.integer("b"), 1);
}

TEST(BinaryReading, KeepsAZeroUnitInATextButRefusesItInAKey) {
    const std::u16string withZero{u'a', u'\0', u'b'};
    Binary text;
    text.addUtf16(withZero);
    EXPECT_EQ(read(text.bytes()), Value(withZero));
    Binary key;
    key.addDictionary({1}, {2});
    key.addUtf16(withZero);
    key.add("\x09");
    EXPECT_TRUE(read(key.bytes()).isNothing());
}

TEST(BinaryReading, RefusesAKeyThatIsNoText) {
    Binary file;
    file.addDictionary({1}, {1});
    file.add("\x10\x01");
    EXPECT_TRUE(read(file.bytes()).isNothing());
}

} // namespace
} // namespace quorvi::plist
