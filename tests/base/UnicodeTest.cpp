#include "base/Unicode.h"

#include <gtest/gtest.h>

namespace quorvi {
namespace {

TEST(Unicode, ConvertsEveryLengthOfCharacterBothWays) {
    const std::string utf8 = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF";
    const std::u16string utf16 = u"a\u00E9\u20AC\U0001F600\U0010FFFF";
    EXPECT_EQ(toUtf16(utf8), utf16);
    EXPECT_EQ(toUtf8(utf16), utf8);
    EXPECT_EQ(toUtf16(""), u"");
    EXPECT_EQ(toUtf8(u""), "");
}

TEST(Unicode, KeepsEveryCharacter) {
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF)
            continue;
        std::u16string text;
        if (c >= 0x10000) {
            text.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10U)));
            text.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FFU)));
        } else {
            text.push_back(static_cast<char16_t>(c));
        }
        ASSERT_EQ(toUtf16(toUtf8(text)), text) << static_cast<std::uint32_t>(c);
    }
}

TEST(Unicode, ReplacesWhatIsNotUtf8) {
    const struct {
        const char* utf8;
        std::u16string expected;
    } cases[] = {
        {"a\x80z", u"a\uFFFDz"},                           // a byte that only continues
        {"\xC0\x80", u"\uFFFD\uFFFD"},                     // overlong
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},           // overlong
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},           // a surrogate
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, // above U+10FFFF
        {"\xE2\x82z", u"\uFFFDz"},                         // cut short
        {"\xE2\x82", u"\uFFFD"},
        {"\xF0\x9F\x98", u"\uFFFD"},
        {"\xC3", u"\uFFFD"},
        {"\xFF\xFE", u"\uFFFD\uFFFD"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(toUtf16(c.utf8), c.expected) << c.utf8;
}

TEST(Unicode, ReplacesLoneSurrogates) {
    const char16_t high = 0xD83D;
    const char16_t low = 0xDE00;
    EXPECT_EQ(toUtf8(std::u16string{high}), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(std::u16string{low, high}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(std::u16string{high, high, low}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
    EXPECT_EQ(toUtf8(std::u16string{high, u'a'}), "\xEF\xBF\xBD"
                                                  "a");
}

TEST(Unicode, ReplacesWhatXmlCannotHold) {
    const std::u16string text{
        u'\0', u'\x1', u'\x1F', u'\t', u'\n', u'\r', u' ', 0x7F, 0xFFFD, 0xFFFE, 0xFFFF};
    const std::string bad = "\xEF\xBF\xBD";
    EXPECT_EQ(toXmlUtf8(text), bad + bad + bad + "\t\n\r \x7F" + bad + bad + bad);
    EXPECT_EQ(toUtf8(u"\x1"), "\x1");
}

} // namespace
} // namespace quorvi
