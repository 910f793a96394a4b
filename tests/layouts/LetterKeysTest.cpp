// The keys of letters in shortcuts, in installed layouts.
#include "layouts/LetterKeys.h"

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

#include "layouts/XkbKeyboardLayout.h"

namespace quorvi::test {
namespace {

std::array<std::uint16_t, 26> keysUnder(const char* layout, const char* variant = "") {
    const auto made = makeKeyboardLayout({"evdev", "pc105", layout, variant, ""});
    EXPECT_NE(made, nullptr);
    return made ? letterKeysOf(*made) : std::array<std::uint16_t, 26>{};
}

std::uint16_t keyOf(char letter, const std::array<std::uint16_t, 26>& keys) {
    return keys[static_cast<std::size_t>(letter - 'a')];
}

TEST(LetterKeys, OfTheUsLayoutAreWhereTheirNamesAre) {
    const std::array<std::uint16_t, 26> expected{KEY_A, KEY_B, KEY_C, KEY_D, KEY_E, KEY_F, KEY_G, KEY_H,
        KEY_I, KEY_J, KEY_K, KEY_L, KEY_M, KEY_N, KEY_O, KEY_P, KEY_Q, KEY_R, KEY_S, KEY_T, KEY_U, KEY_V,
        KEY_W, KEY_X, KEY_Y, KEY_Z};
    EXPECT_EQ(keysUnder("us"), expected);
}

TEST(LetterKeys, OfTheGermanLayoutHaveYAndZExchanged) {
    const auto keys = keysUnder("de");
    EXPECT_EQ(keyOf('z', keys), KEY_Y);
    EXPECT_EQ(keyOf('y', keys), KEY_Z);
    EXPECT_EQ(keyOf('c', keys), KEY_C);
}

TEST(LetterKeys, OfTheFrenchLayoutBeginInTheUpperRow) {
    const auto keys = keysUnder("fr");
    EXPECT_EQ(keyOf('a', keys), KEY_Q);
    EXPECT_EQ(keyOf('z', keys), KEY_W);
    EXPECT_EQ(keyOf('m', keys), KEY_SEMICOLON);
}

TEST(LetterKeys, OfDvorakAreElsewhere) {
    const auto keys = keysUnder("us", "dvorak");
    EXPECT_EQ(keyOf('c', keys), KEY_I);
    EXPECT_EQ(keyOf('v', keys), KEY_DOT);
}

TEST(LetterKeys, OfALayoutWithoutLatinLettersAreThoseOfTheOneForShortcuts) {
    EXPECT_EQ(keysUnder("ru"), keysUnder("us"));
    EXPECT_EQ(keyOf('z', keysUnder("ru,de")), KEY_Y);
}

} // namespace
} // namespace quorvi::test
