#include "layouts/DeadKeys.h"

#include <gtest/gtest.h>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace quorvi;

namespace {

TEST(DeadKeys, areTheKeysymsOfTheirRange) {
    EXPECT_FALSE(isDeadKey(0xFE4F));
    EXPECT_TRUE(isDeadKey(XKB_KEY_dead_grave));
    EXPECT_TRUE(isDeadKey(XKB_KEY_dead_greek));
    EXPECT_TRUE(isDeadKey(0xFE93));
    EXPECT_FALSE(isDeadKey(0xFE94));
    EXPECT_FALSE(isDeadKey(XKB_KEY_asciicircum));
}

TEST(DeadKeys, accentsByThemselves) {
    EXPECT_EQ(spacingAccent(XKB_KEY_dead_circumflex), u'^');
    EXPECT_EQ(spacingAccent(XKB_KEY_dead_acute), u'´');
    EXPECT_EQ(spacingAccent(XKB_KEY_dead_grave), u'`');
    EXPECT_EQ(spacingAccent(XKB_KEY_dead_tilde), u'~');
    EXPECT_EQ(spacingAccent(XKB_KEY_dead_diaeresis), u'¨');
    EXPECT_EQ(spacingAccent(XKB_KEY_dead_ogonek), u'˛');
    EXPECT_EQ(spacingAccent(XKB_KEY_dead_greek), std::nullopt);
    EXPECT_EQ(spacingAccent(XKB_KEY_a), std::nullopt);
}

TEST(DeadKeys, accentedLetters) {
    EXPECT_EQ(composeAccent(XKB_KEY_dead_circumflex, u'e'), u'ê');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_diaeresis, u'Y'), u'Ÿ');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_tilde, u'n'), u'ñ');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_cedilla, u'C'), u'Ç');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_abovering, u'a'), u'å');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_grave, u'U'), u'Ù');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_acute, u'y'), u'ý');
}

TEST(DeadKeys, spaceOrTheSameAccentGivesTheAccent) {
    EXPECT_EQ(composeAccent(XKB_KEY_dead_acute, u' '), u'´');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_acute, u'´'), u'´');
    EXPECT_EQ(composeAccent(XKB_KEY_dead_macron, u' '), u'¯');
}

TEST(DeadKeys, whatDoesNotGoTogetherIsNothing) {
    EXPECT_EQ(composeAccent(XKB_KEY_dead_acute, u'x'), std::nullopt);
    EXPECT_EQ(composeAccent(XKB_KEY_dead_acute, u'^'), std::nullopt);
    EXPECT_EQ(composeAccent(XKB_KEY_dead_macron, u'a'), std::nullopt);
    EXPECT_EQ(composeAccent(XKB_KEY_dead_greek, u' '), std::nullopt);
}

} // namespace
