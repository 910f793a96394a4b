#include "keyboard/MacRoman.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace quorvi;

namespace {

// 0x80 to 0xFF in order; the private-use character at 0xF0.
constexpr std::u16string_view kUpperHalf = u"ÄÅÇÉÑÖÜáàâäãåçéèêëíìîïñóòôöõúùûü†°¢£§•¶ß®©™´¨≠ÆØ∞±≤≥¥µ∂∑∏π∫ªºΩæø"
                                           u"¿¡¬√ƒ≈∆«»…\u00A0ÀÃÕŒœ–—“”‘’÷◊ÿŸ⁄€‹›ﬁﬂ‡·‚„‰ÂÊÁËÈÍÎÏÌÓÔ"
                                           u"\uF8FFÒÚÛÙıˆ˜¯˘˙˚¸˝˛ˇ";

TEST(MacRoman, lowerHalfIsAscii) {
    for (unsigned byte = 0; byte < 0x80; ++byte) {
        EXPECT_EQ(MacRomanToUnicode(static_cast<std::uint8_t>(byte)), static_cast<char16_t>(byte));
        EXPECT_EQ(UnicodeToMacRoman(static_cast<char16_t>(byte)), byte);
    }
}

TEST(MacRoman, upperHalfBothWays) {
    ASSERT_EQ(kUpperHalf.size(), 128U);
    for (unsigned index = 0; index < 128; ++index) {
        EXPECT_EQ(MacRomanToUnicode(static_cast<std::uint8_t>(0x80 + index)), kUpperHalf[index]) << index;
        EXPECT_EQ(UnicodeToMacRoman(kUpperHalf[index]), 0x80 + index) << index;
    }
}

TEST(MacRoman, whatTheSetDoesNotHoldIsAQuestionMark) {
    for (const char16_t unit : std::u16string(u"\u0080\u009F¤×Ýşжאあ\xD83D\xDE00\xFFFF"))
        EXPECT_EQ(UnicodeToMacRoman(unit), '?') << static_cast<unsigned>(unit);
}

TEST(MacRoman, everyUnitComesBackOrIsAQuestionMark) {
    int held = 0;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const std::uint8_t byte = UnicodeToMacRoman(static_cast<char16_t>(unit));
        if (MacRomanToUnicode(byte) == unit)
            ++held;
        else
            ASSERT_EQ(byte, '?') << unit;
    }
    EXPECT_EQ(held, 256);
}

} // namespace
