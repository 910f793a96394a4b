#include "plist/Writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "plist/Limits.h"
#include "plist/Samples.h"

namespace quorvi::plist {
namespace {

using samples::Binary;
using samples::read;
using samples::readBody;

std::string written(const Value& value) {
    return writeXml(value).value_or("nothing");
}

/// The text between the plist tags.
std::string body(const Value& value) {
    const std::string xml = written(value);
    const std::string open = "<plist version=\"1.0\">\n";
    const auto start = xml.find(open);
    const auto end = xml.rfind("\n</plist>\n");
    if (start == std::string::npos || end == std::string::npos)
        return "no property list: " + xml;
    return xml.substr(start + open.size(), end - start - open.size());
}

Value again(const Value& value) {
    return read(written(value));
}

TEST(Writer, WritesAnXmlPropertyList) {
    const auto items = Array::create();
    items.append(1);
    const auto d = Dictionary::create();
    d.set("name", u"a<b>&c");
    d.set("items", items);
    const std::string xml = written(d);
    EXPECT_EQ(xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist ", 0), 0U);
    EXPECT_EQ(body(d), "<dict>\n"
                       "\t<key>name</key>\n"
                       "\t<string>a&lt;b&gt;&amp;c</string>\n"
                       "\t<key>items</key>\n"
                       "\t<array>\n"
                       "\t\t<integer>1</integer>\n"
                       "\t</array>\n"
                       "</dict>");
}

TEST(Writer, WritesTheSameIntoRoomThatHoldsAnotherText) {
    const auto d = Dictionary::create();
    d.set("k", std::u16string(u"<a & b>"));
    EXPECT_EQ(writeXml(d, std::string(4096, 'x')), writeXml(d));
    EXPECT_EQ(writeXml(d, "x"), writeXml(d));
    EXPECT_EQ(writeXml(Value(), std::string(4096, 'x')), std::nullopt);
}

TEST(Writer, WritesEachScalar) {
    EXPECT_EQ(body(true), "<true/>");
    EXPECT_EQ(body(false), "<false/>");
    EXPECT_EQ(body(-7), "<integer>-7</integer>");
    EXPECT_EQ(body(2.5), "<real>2.5</real>");
    EXPECT_EQ(body(u""), "<string></string>");
    EXPECT_EQ(body(Data{1, 2, 3}), "<data>\nAQID\n</data>");
    EXPECT_EQ(body(Array::create()), "<array/>");
    EXPECT_EQ(body(Dictionary::create()), "<dict/>");
}

TEST(Writer, KeepsIntegersExactly) {
    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t number :
        {std::int64_t{0}, std::int64_t{-1}, std::int64_t{4294967301}, Limits::max(), Limits::min()})
        EXPECT_EQ(again(number), Value(number)) << number;
}

TEST(Writer, KeepsRealsExactly) {
    using Limits = std::numeric_limits<double>;
    for (const double number :
        {0.1, -0.1, 1.0 / 3, static_cast<double>(0.3F), 1e20, Limits::max(), Limits::lowest(), Limits::min(),
            Limits::denorm_min(), Limits::epsilon(), Limits::infinity(), -Limits::infinity()})
        EXPECT_EQ(again(number), Value(number)) << number;
    EXPECT_TRUE(std::isnan(again(Limits::quiet_NaN()).real()));
    EXPECT_EQ(again(0.3F), Value(static_cast<double>(0.3F)));
    EXPECT_EQ(body(0.3F), "<real>0.30000001192092896</real>");
}

TEST(Writer, KeepsDataOfEveryLength) {
    for (std::size_t length = 0; length < 200; ++length) {
        Data data(length);
        for (std::size_t i = 0; i < length; ++i)
            data[i] = static_cast<std::uint8_t>(i * 7 + length);
        EXPECT_EQ(again(data), Value(data)) << length;
    }
}

TEST(Writer, KeepsTexts) {
    for (const char16_t* text :
        {u"", u" ", u"a\nb\tc", u"  two  ", u"\u00E9\u4E2D\U0001F600", u"]]>", u"&amp;", u"\r", u"a\r\nb"})
        EXPECT_EQ(again(text), Value(text));
    const auto d = Dictionary::create();
    d.set("k<\xC3\xA9>&", 1);
    d.set("", 2);
    EXPECT_EQ(again(d), Value(d));
}

TEST(Writer, ReplacesWhatXmlCannotHold) {
    EXPECT_EQ(again(std::u16string{u'a', 0xD800, u'b'}), Value(u"a\uFFFDb"));
    EXPECT_EQ(again(std::u16string{u'a', u'\0', u'\x1', 0xFFFF}), Value(u"a\uFFFD\uFFFD\uFFFD"));
    const auto d = Dictionary::create();
    d.set(std::string("a\0b", 3), 1);
    d.set("\x02\xFF", 2);
    const auto copy = again(d).dictionary();
    EXPECT_EQ(copy.integer("a\xEF\xBF\xBD"
                           "b"),
        1);
    EXPECT_EQ(copy.integer("\xEF\xBF\xBD\xEF\xBF\xBD"), 2);
}

TEST(Writer, KeepsIntegersAboveTheSignedRange) {
    for (const char* text :
        {"<integer>18446744073709551615</integer>", "<integer>9223372036854775808</integer>"})
        EXPECT_EQ(body(readBody(text)), text);
}

TEST(Writer, KeepsDates) {
    for (const char* text : {"<date>2020-01-02T03:04:05Z</date>", "<date>1969-12-31T23:59:59Z</date>",
             "<date>1601-02-03T04:05:06Z</date>", "<date>2070-01-01T00:00:00Z</date>",
             "<date>2500-06-07T08:09:10Z</date>", "<date>9999-12-31T23:59:59Z</date>"})
        EXPECT_EQ(body(readBody(text)), text);
}

TEST(Writer, WritesBinaryDatesAndUids) {
    Binary date;
    date.add(std::string("\x33\x41\xE0") + std::string(6, '\0')); // 2^31 seconds after 2001-01-01
    EXPECT_EQ(body(read(date.bytes())), "<date>2069-01-19T03:14:08Z</date>");
    Binary uid;
    uid.add("\x80\x07");
    EXPECT_EQ(body(read(uid.bytes())), "<dict>\n\t<key>CF$UID</key>\n\t<integer>7</integer>\n</dict>");
}

TEST(Writer, EndsOnDatesOutsideEveryCalendar) {
    for (const char* real : {"\x7F\xF8", "\x7F\xF0", "\xFF\xF0", "\x43\xE0", "\xC3\xE0", "\x7F\xE0"}) {
        Binary date;
        date.add(std::string("\x33") + std::string(real, 2) + std::string(6, '\0'));
        EXPECT_FALSE(again(read(date.bytes())).isNothing()) << testing::PrintToString(real);
    }
    EXPECT_FALSE(again(readBody("<date>9223372036854775807-01-01T00</date>")).isNothing());
    EXPECT_FALSE(again(readBody("<date>hardly a date</date>")).isNothing());
}

TEST(Writer, WritesNothingForATreeThatHoldsNothing) {
    EXPECT_EQ(writeXml(Value()), std::nullopt);
    EXPECT_EQ(writeXml(Dictionary()), std::nullopt);
    const auto items = Array::create();
    items.append(1);
    const auto d = Dictionary::create();
    d.set("items", items);
    EXPECT_NE(writeXml(d), std::nullopt);
    items.append(Value());
    EXPECT_EQ(writeXml(d), std::nullopt);
    items.remove(1);
    d.set("none", Value());
    EXPECT_EQ(writeXml(d), std::nullopt);
}

Value nested(std::size_t depth) {
    Value value(true);
    for (std::size_t i = 0; i < depth; ++i) {
        const auto array = Array::create();
        array.append(value);
        value = array;
    }
    return value;
}

TEST(Writer, WritesToTheDepthLimitAndNoFurther) {
    EXPECT_EQ(again(nested(kMaxDepth)), nested(kMaxDepth));
    EXPECT_EQ(writeXml(nested(kMaxDepth + 1)), std::nullopt);
}

TEST(Writer, EndsOnAContainerWithinItself) {
    const auto array = Array::create();
    array.append(array);
    array.append(array);
    EXPECT_EQ(writeXml(array), std::nullopt);
    array.removeAll();
    const auto d = Dictionary::create();
    d.set("self", d);
    EXPECT_EQ(writeXml(d), std::nullopt);
    d.removeAll();
}

TEST(Writer, EndsOnATreeThatSharesExponentially) {
    Value value(true);
    for (int i = 0; i < 60; ++i) {
        const auto array = Array::create();
        array.append(value);
        array.append(value);
        value = array;
    }
    EXPECT_EQ(writeXml(value), std::nullopt);
}

TEST(Writer, WritesASharedContainerWhereverItOccurs) {
    const auto shared = Dictionary::create();
    shared.set("a", 1);
    const auto array = Array::create();
    array.append(shared);
    array.append(shared);
    EXPECT_EQ(again(array), Value(array));
}

} // namespace
} // namespace quorvi::plist
