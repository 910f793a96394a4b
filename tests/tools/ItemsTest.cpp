// Profiles and macros on the command line.

#include <unistd.h>

#include "plist/Reader.h"
#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

std::string profileXml(const std::string& name, const std::string& application = "") {
    return "<dict><key>name</key><string>" + name +
           "</string><key>ledstate</key><integer>3</integer><key>defaultstage</key><integer>1</integer>"
           "<key>stages</key><array/><key>buttons</key><dict/><key>driver</key><dict><key>application</key>"
           "<string>" +
           application + "</string></dict></dict>";
}

std::string macroXml(int id, const std::string& name) {
    return "<dict><key>macroid</key><integer>" + std::to_string(id) + "</integer><key>name</key><string>" +
           name + "</string><key>steps</key><array><dict/><dict/></array></dict>";
}

std::string plistXml(const std::string& content) {
    return "<plist version=\"1.0\">" + content + "</plist>";
}

class Items : public testing::Test {
  protected:
    Items() { writeSettings({profileXml("Desk"), profileXml("Spiel", "Bild")}, {macroXml(7, "Jump")}); }

    void writeSettings(const std::vector<std::string>& profiles, const std::vector<std::string>& macros) {
        std::string text = "<dict><key>other</key><integer>5</integer><key>quorvi</key><dict>"
                           "<key>settings</key><dict><key>profileid</key><integer>2</integer></dict>"
                           "<key>profiles</key><array>";
        for (const auto& profile : profiles)
            text += profile;
        text += "</array><key>macros</key><array>";
        for (const auto& macro : macros)
            text += macro;
        writeFile(settings, plistXml(text + "</array></dict></dict>"));
    }
    std::string fileWith(const std::string& content) {
        writeFile(file, plistXml(content));
        return file;
    }

    TemporaryFolder folder;
    std::string settings = folder / "settings.plist";
    std::string file = folder / "item";
};

TEST_F(Items, ProfilesAreListedWithNumberNameAndApplicationAndTheCurrentOneIsMarked) {
    expectDone({"profiles", settings}, "1\tDesk\t\n2*\tSpiel\tBild\n");
}

TEST_F(Items, MacrosAreListedWithIdentifierStepsAndName) {
    expectDone({"macros", settings}, "7\t2\tJump\n");
}

TEST_F(Items, AListStaysOneLineAnItemWhateverTheNames) {
    writeSettings({profileXml("a\nb\tc")}, {});
    expectDone({"profiles", settings}, "1\ta?b?c\t\n");
}

TEST_F(Items, AnImportedProfileGetsAUniqueNameAndTheRestOfTheFileStays) {
    expectDone({"import", settings, fileWith(profileXml("Desk"))}, "Desk 2\n");
    expectDone({"import", settings, file}, "Desk 3\n");
    expectDone({"profiles", settings}, "1\tDesk\t\n2*\tSpiel\tBild\n3\tDesk 2\t\n4\tDesk 3\t\n");
    EXPECT_EQ(plist::readPropertyListFile(settings).value.dictionary().integer("other"), 5);
}

TEST_F(Items, AnImportedMacroKeepsItsIdentifier) {
    expectDone({"import", settings, fileWith(macroXml(7, "Jump"))}, "Jump 2\n");
    expectDone({"macros", settings}, "7\t2\tJump\n7\t2\tJump 2\n");
}

TEST_F(Items, AnExportedItemIsTheOneThatIsImported) {
    expectDone({"export", settings, "profile", "2", file}, "");
    EXPECT_EQ(plist::readPropertyListFile(file).value.dictionary().string("name"), u"Spiel");
    expectDone({"export", settings, "macro", "7", file}, "");
    expectDone({"import", settings, file}, "Jump 2\n");
}

TEST_F(Items, AFullListTakesNoMore) {
    writeSettings(
        std::vector<std::string>(5, profileXml("P")), std::vector<std::string>(12, macroXml(1, "M")));
    const std::string before = readFile(settings);
    expectRefused(
        {"import", settings, fileWith(profileXml("Q"))}, settings + ": it holds 5 of at most 5 profiles");
    expectRefused(
        {"import", settings, fileWith(macroXml(2, "N"))}, settings + ": it holds 12 of at most 12 macros");
    EXPECT_EQ(readFile(settings), before);
}

TEST_F(Items, WhatIsNeitherAProfileNorAMacroIsRefused) {
    const std::string reason =
        ": it is neither a profile, which needs \"ledstate\", \"defaultstage\", \"stages\" "
        "and \"buttons\", nor a macro, which needs \"name\" and \"steps\"";
    expectRefused(
        {"import", settings, fileWith("<dict><key>name</key><string>x</string></dict>")}, file + reason);
    expectRefused({"import", settings, fileWith("<array/>")}, file + reason);
    expectRefused(
        {"import", settings, folder / "none"}, (folder / "none").string() + ": there is no such file");
}

TEST_F(Items, AFileThatIsDamagedTooLargeOrOfTooManyStepsIsRefused) {
    const std::string before = readFile(settings);
    writeFile(file, "<plist><dict><key>name</key>");
    expectRefused({"import", settings, file}, file + ": it is not a property list");
    std::string steps;
    for (int step = 0; step < 17; ++step)
        steps += "<dict/>";
    const std::string macro = "<dict><key>name</key><string>m</string><key>steps</key><array>";
    expectRefused({"import", settings, fileWith(macro + steps + "</array></dict>")},
        file + ": it is a macro of more than 16 steps");
    for (int step = 0; step < 150'000; ++step)
        steps += "<dict/>";
    expectRefused({"import", settings, fileWith(macro + steps + "</array></dict>")},
        file + ": it is too large; an item has at most 1048576 bytes and 16384 values");
    EXPECT_EQ(readFile(settings), before);
}

TEST_F(Items, AnImportedProfileWhoseMacrosAreNotThereIsWarnedOf) {
    const std::string button = "<dict><key>command</key><integer>65</integer><key>param1</key><integer>";
    std::string profile = profileXml("Draw");
    profile.replace(profile.find("<dict/>"), 7,
        "<dict><key>04</key>" + button + "9</integer></dict><key>05</key>" + button +
            "7</integer></dict><key>09</key>" + button + "8</integer></dict></dict>");
    const auto result = quorvictl({"import", settings, fileWith(profile)});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "Draw\n");
    EXPECT_EQ(result.error, "quorvictl: " + settings + ": buttons whose macro is missing: 4, 9\n");
}

TEST_F(Items, AnExportDoesNotFollowALinkThatSomebodyElseHasPutIntoASharedFolder) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a link to another user";
    const std::filesystem::path shared = folder / "shared";
    const std::filesystem::path link = shared / "link";
    std::filesystem::create_directory(shared);
    ASSERT_EQ(::chmod(shared.c_str(), 01777), 0);
    writeFile(file, "precious");
    std::filesystem::create_symlink(file, link);
    ASSERT_EQ(::lchown(link.c_str(), 54321, 54321), 0);
    expectRefused({"export", settings, "profile", "1", link},
        link.string() + ": it cannot be written: Permission denied");
    EXPECT_EQ(readFile(file), "precious");
}

TEST_F(Items, AnItemThatIsNotThereIsNotExported) {
    expectRefused({"export", settings, "profile", "0", file}, settings + ": it has no profile 0");
    expectRefused({"export", settings, "profile", "3", file}, settings + ": it has no profile 3");
    expectRefused({"export", settings, "macro", "8", file}, settings + ": it has no macro 8");
    expectRefused(
        {"export", settings, "macro", "0xFFFFFFFF", file}, settings + ": it has no macro 4294967295");
    expectRefused({"export", settings, "macro", "7", folder / "none" / "x"},
        (folder / "none" / "x").string() + ": it cannot be written: No such file or directory");
    EXPECT_EQ(folder.names(), std::set<std::string>{"settings.plist"});
}

TEST_F(Items, AWrongCommandLineIsMisused) {
    expectMisused({"profiles"}, "profiles takes SETTINGS.plist");
    expectMisused({"macros", "a", "b"}, "macros takes SETTINGS.plist");
    expectMisused({"import", settings}, "import takes SETTINGS.plist FILE");
    expectMisused({"export", settings, "stage", "1", file},
        "export takes SETTINGS.plist profile|macro NUMBER FILE [--with-macros]");
    expectMisused({"export", settings, "profile", "one", file}, "one is not a 32-bit number, decimal or 0x");
}

} // namespace
} // namespace quorvi::test
