#include "layouts/KeymapNames.h"

#include <gtest/gtest.h>

#include <map>

using namespace quorvi;

namespace {

KeymapNames inEnvironment(const std::map<std::string, const char*>& variables) {
    return keymapNamesInEnvironment([&variables](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second;
    });
}

TEST(KeymapNames, inTheConfigurationFile) {
    const KeymapNames names = keymapNamesInText("# KEYBOARD CONFIGURATION FILE\n"
                                                "\n"
                                                "XKBMODEL=\"pc105\"\n"
                                                "XKBLAYOUT=\"de,ru\"\n"
                                                "XKBVARIANT=\"nodeadkeys,\"\n"
                                                "XKBOPTIONS=\"grp:alt_shift_toggle\"\n"
                                                "BACKSPACE=\"guess\"\n");
    EXPECT_EQ(names, (KeymapNames{"", "pc105", "de,ru", "nodeadkeys,", "grp:alt_shift_toggle"}));
}

TEST(KeymapNames, withoutQuotesWithCommentsAndWithBlanks) {
    EXPECT_EQ(keymapNamesInText("XKBLAYOUT=fr").layout, "fr");
    EXPECT_EQ(keymapNamesInText("  XKBLAYOUT=fr # mine\n").layout, "fr");
    EXPECT_EQ(
        keymapNamesInText("XKBLAYOUT=fr\r\nXKBMODEL=pc104\r\n"), (KeymapNames{"", "pc104", "fr", "", ""}));
    EXPECT_EQ(keymapNamesInText("XKBLAYOUT='se' # mine").layout, "se");
    EXPECT_EQ(keymapNamesInText("XKBLAYOUT=\"se").layout, "se");
    EXPECT_EQ(keymapNamesInText("XKBLAYOUT=us\nXKBLAYOUT=gb\n").layout, "gb");
}

TEST(KeymapNames, otherLinesArePassedOver) {
    for (const char* text : {"", "\n\n", "=", "=us", "XKBLAYOUT", "#XKBLAYOUT=us", "MYXKBLAYOUT=us",
             "XKBLAYOUT=", "XKBLAYOUT=\"\"", "XKBLAYOUT=#us"})
        EXPECT_EQ(keymapNamesInText(text), KeymapNames()) << text;
}

TEST(KeymapNames, inTheEnvironment) {
    EXPECT_EQ(inEnvironment({{"XKB_DEFAULT_RULES", "base"}, {"XKB_DEFAULT_MODEL", "pc101"},
                  {"XKB_DEFAULT_LAYOUT", "us"}, {"XKB_DEFAULT_VARIANT", "dvorak"},
                  {"XKB_DEFAULT_OPTIONS", "ctrl:nocaps"}}),
        (KeymapNames{"base", "pc101", "us", "dvorak", "ctrl:nocaps"}));
    EXPECT_EQ(inEnvironment({}), KeymapNames());
}

TEST(KeymapNames, firstNamesGoBeforeSecondOnes) {
    const KeymapNames first{"r1", "", "l1", "", "o1"};
    const KeymapNames second{"r2", "m2", "l2", "v2", "o2"};
    EXPECT_EQ(mergedKeymapNames(first, second), (KeymapNames{"r1", "m2", "l1", "", "o1"}));
    EXPECT_EQ(mergedKeymapNames(second, first), second);
    EXPECT_EQ(mergedKeymapNames({}, second), second);
}

TEST(KeymapNames, variantDoesNotGoWithoutItsLayout) {
    const KeymapNames variantOnly{"", "", "", "dvorak", ""};
    EXPECT_EQ(
        mergedKeymapNames(variantOnly, {"", "", "fr", "oss", ""}), (KeymapNames{"", "", "fr", "oss", ""}));
    EXPECT_EQ(mergedKeymapNames(variantOnly, {}), KeymapNames());
    EXPECT_EQ(mergedKeymapNames({}, variantOnly), KeymapNames());
}

} // namespace
