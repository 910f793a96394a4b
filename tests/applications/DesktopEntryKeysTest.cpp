#include "applications/DesktopEntryKeys.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "support/TemporaryFolder.h"

namespace quorvi::test {

namespace {

using List = std::vector<std::string>;

std::optional<std::string> valueIn(std::string_view text, std::string_view key) {
    return DesktopEntryKeys(text).value(key);
}

} // namespace

TEST(DesktopEntryKeysTest, ValuesAreEscapedBothWays) {
    const std::vector<std::pair<std::string, std::string>> values = {
        {"plain", "plain"},
        {"a b", "a b"},
        {"  a b ", "\\s\\sa b\\s"},
        {"   ", "\\s\\s\\s"},
        {"a\\sb", "a\\\\sb"},
        {"a\nb\tc\rd", "a\\nb\\tc\\rd"},
        {"", ""},
    };
    for (const auto& [plain, escaped] : values) {
        EXPECT_EQ(escapedValue(plain), escaped);
        EXPECT_EQ(unescapedValue(escaped), plain);
    }
    EXPECT_EQ(unescapedValue("a\\qb"), "a\\qb");
    EXPECT_EQ(unescapedValue("a\\"), "a\\");
}

TEST(DesktopEntryKeysTest, AKeysOfItsGroupAloneCount) {
    const std::string text = "# Name=comment\n"
                             "Name=before\n"
                             "[Other]\nName=other\n"
                             "[Desktop Entry]\r\n"
                             "#Name=comment\n"
                             "Name[de]=Deutsch\n"
                             "  Name = My  Ä \r\n"
                             "Name=second\n"
                             "junk\n"
                             "[Desktop Action x]\nName=action\nExec=action";
    EXPECT_EQ(valueIn(text, "Name"), "My  Ä");
    EXPECT_EQ(valueIn(text, "Name[de]"), "Deutsch");
    EXPECT_EQ(valueIn(text, "Exec"), std::nullopt);
    EXPECT_EQ(valueIn(text, "#Name"), std::nullopt);
}

TEST(DesktopEntryKeysTest, ValuesMayHoldAnything) {
    EXPECT_EQ(valueIn("[Desktop Entry]\nName=\n", "Name"), "");
    EXPECT_EQ(valueIn("[Desktop Entry]\nName=a=b=c", "Name"), "a=b=c");
    EXPECT_EQ(valueIn("[Desktop Entry]\nName=\\sa\\nb\\\\n\\s", "Name"), " a\nb\\n ");
    EXPECT_EQ(valueIn(std::string("[Desktop Entry]\nName=a\0b\n", 25), "Name"), std::string("a\0b", 3));
    EXPECT_EQ(valueIn("", "Name"), std::nullopt);
    EXPECT_EQ(valueIn("[Desktop Entry]", "Name"), std::nullopt);
}

TEST(DesktopEntryKeysTest, TheBestLocaleWins) {
    const DesktopEntryKeys keys("[Desktop Entry]\nName=x\nName[sr]=sr\nName[sr@latin]=latin\n"
                                "Name[sr_YU]=YU\nName[pt_BR]=BR\nName[pt]=pt\n");
    EXPECT_EQ(keys.localizedValue("Name", {"sr_YU@latin"}), "YU");
    EXPECT_EQ(keys.localizedValue("Name", {"sr_RS@latin"}), "latin");
    EXPECT_EQ(keys.localizedValue("Name", {"sr_RS"}), "sr");
    EXPECT_EQ(keys.localizedValue("Name", {"pt_BR", "sr"}), "BR");
    EXPECT_EQ(keys.localizedValue("Name", {"fr_FR", "pt_PT"}), "pt");
    EXPECT_EQ(keys.localizedValue("Name", {"fr_FR"}), "x");
    EXPECT_EQ(keys.localizedValue("Name", {}), "x");
    EXPECT_EQ(keys.localizedValue("Icon", {"sr"}), std::nullopt);
}

TEST(DesktopEntryKeysTest, OnlyTrueIsTrue) {
    const DesktopEntryKeys keys("[Desktop Entry]\na=true\nb=false\nc=1\nd=True\ne=\n");
    EXPECT_TRUE(keys.boolean("a"));
    for (const char* key : {"b", "c", "d", "e", "f"})
        EXPECT_FALSE(keys.boolean(key)) << key;
}

TEST(DesktopEntryKeysTest, ListsAreSplitAtSemicolons) {
    const DesktopEntryKeys keys(
        "[Desktop Entry]\na=KDE;GNOME;\nb=KDE;GNOME\nc=\nd=x\\;y;z\\\\;\\sw;\ne=a;;b;\n");
    EXPECT_EQ(keys.list("a"), (List{"KDE", "GNOME"}));
    EXPECT_EQ(keys.list("b"), (List{"KDE", "GNOME"}));
    EXPECT_EQ(keys.list("c"), List{});
    EXPECT_EQ(keys.list("d"), (List{"x;y", "z\\", " w"}));
    EXPECT_EQ(keys.list("e"), (List{"a", "", "b"}));
    EXPECT_EQ(keys.list("f"), List{});
}

TEST(DesktopEntryFileTextTest, NoFileIsWaitedForAndNoneIsTooLarge) {
    const TemporaryFolder folder;
    const std::string largest(1024UL * 1024UL, 'x');
    EXPECT_EQ(desktopEntryFileText(folder.write("a", "text\n")), "text\n");
    EXPECT_EQ(desktopEntryFileText(folder.write("b", largest)).size(), 1048576U);
    EXPECT_EQ(desktopEntryFileText(folder.write("c", largest + "x")), "");
    EXPECT_EQ(desktopEntryFileText(folder.path("missing")), "");
    EXPECT_EQ(desktopEntryFileText(folder.path()), "");
    ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(desktopEntryFileText(folder.path("fifo")), "");
}

} // namespace quorvi::test
