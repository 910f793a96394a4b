#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "plist/Samples.h"
#include "plist/Value.h"

namespace quorvi::plist {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Case {
    Value value;
    std::int32_t integer;
    bool boolean;
    double real;
};

void expectConversions(const std::vector<Case>& cases) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE("case " + std::to_string(i));
        EXPECT_EQ(cases[i].value.integer(), cases[i].integer);
        EXPECT_EQ(cases[i].value.boolean(), cases[i].boolean);
        EXPECT_EQ(cases[i].value.real(), cases[i].real);
    }
}

TEST(ScalarConversion, TakesTheLow32BitsOfAnInteger) {
    expectConversions({
        {0, 0, false, 0},
        {5, 5, true, 5},
        {-7, -7, true, -7},
        {std::int64_t{4294967301}, 5, true, 4294967301.0},
        {std::int64_t{2147483648}, -2147483647 - 1, true, 2147483648.0},
        {std::int64_t{4294967296}, 0, true, 4294967296.0},
        {std::numeric_limits<std::int64_t>::min(), 0, true, -9223372036854775808.0},
    });
}

TEST(ScalarConversion, TruncatesRealsTowardZeroWithinTheRange) {
    expectConversions({
        {3.99, 3, true, 3.99},
        {-3.99, -3, true, -3.99},
        {0.25, 0, true, 0.25},
        {0.0, 0, false, 0},
        {1e20, 2147483647, true, 1e20},
        {-1e20, -2147483647 - 1, true, -1e20},
        {2147483646.5, 2147483646, true, 2147483646.5},
        {kInfinity, 2147483647, true, kInfinity},
        {0.3F, 0, true, static_cast<double>(0.3F)},
    });
    const Value notANumber(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(notANumber.integer(), 0);
    EXPECT_TRUE(std::isnan(notANumber.real()));
}

TEST(ScalarConversion, TakesBooleansAsZeroAndOne) {
    expectConversions({{true, 1, true, 1}, {false, 0, false, 0}});
}

TEST(ScalarConversion, TakesTheLeadingNumberOfAString) {
    expectConversions({
        {u"", 0, false, 0},
        {u"12abc", 12, true, 12},
        {u" -7", -7, true, -7},
        {u"\t\n+8", 8, true, 8},
        {u"99999999999", 2147483647, true, 99999999999.0},
        {u"-99999999999", -2147483647 - 1, true, -99999999999.0},
        {u"2147483648", 2147483647, true, 2147483648.0},
        {u"-2147483648", -2147483647 - 1, true, -2147483648.0},
        {u"00012", 12, true, 12},
        {u"000", 0, false, 0},
        {u"1.75", 1, true, 1.75},
        {u"-2.5e2x", -2, true, -250},
        {u".5", 0, false, 0.5},
        {u"- 5", 0, false, 0},
        {u"--5", 0, false, 0},
        {u"+-5", 0, false, 0},
        {u"abc", 0, false, 0},
        {u"0x1F", 0, false, 0},
        {u"1e400", 1, true, kInfinity},
        {u"-1e400", -1, true, -kInfinity},
        {u"1e-400", 1, true, 0},
        {u"inf", 0, false, 0},
        {u"nan", 0, false, 0},
    });
    EXPECT_EQ(Value(std::u16string(500, u'9')).real(), kInfinity);
    EXPECT_EQ(Value(u"0." + std::u16string(500, u'0') + u"1").real(), 0);
}

TEST(ScalarConversion, FindsTruthInAStringsFirstLetter) {
    for (const char16_t* text : {u"YES", u"yes", u"True", u"t", u" y", u"-Y", u"+0009", u"\n1"})
        EXPECT_TRUE(Value(text).boolean());
    for (const char16_t* text : {u"NO", u"no", u"False", u"0", u"-0", u" ", u"on", u"xY", u"--1"})
        EXPECT_FALSE(Value(text).boolean());
}

TEST(ScalarConversion, ReadsEverythingElseAsZero) {
    auto array = Array::create();
    array.append(5);
    expectConversions({
        {Value(), 0, false, 0},
        {Data{1, 2}, 0, false, 0},
        {Dictionary::create(), 0, false, 0},
        {array, 0, false, 0},
        {samples::readBody("<date>2020-01-02T03:04:05Z</date>"), 0, false, 0},
    });
}

TEST(ScalarConversion, TakesTheLowBitsOfAnIntegerAboveTheSignedRange) {
    expectConversions({
        {samples::readBody("<integer>18446744073709551615</integer>"), -1, true, 18446744073709551615.0},
        {samples::readBody("<integer>9223372036854775813</integer>"), 5, true, 9223372036854775813.0},
    });
}

} // namespace
} // namespace quorvi::plist
