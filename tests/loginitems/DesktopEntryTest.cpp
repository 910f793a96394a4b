#include "loginitems/DesktopEntry.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include <sys/stat.h>

#include "loginitems/AutostartLoginItemStore.h"
#include "loginitems/LoginItems.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

namespace {

/// Folder names that every layer of quoting could take for something else.
const std::vector<std::string> kHardNames = {
    "plain",
    "two  words",
    "quote\"d",
    "it's",
    "back\\slash",
    "back\\\\slashes\\",
    "100%",
    "%U%%f",
    "a=b",
    "$HOME",
    "`id`",
    "a;b&c|d<e>f(g)h*i?j#k~l",
    "\\\"$`%",
    "[group]",
    "new\nline",
    "tab\there",
    " ends with blanks ",
    "Größe 日本",
};

bool isInstalled(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
}

} // namespace

TEST(DesktopEntryTest, TheTextIsAnApplicationEntry) {
    EXPECT_EQ(desktopEntryText({"/opt/My App.app/", true, false}, "/opt/My App.app/Contents/Linux/My App"),
        "[Desktop Entry]\n"
        "Type=Application\n"
        "Name=My App\n"
        "Exec=\"/opt/My App.app/Contents/Linux/My App\"\n"
        "TryExec=/opt/My App.app/Contents/Linux/My App\n"
        "X-KyvarQuorvi-Path=/opt/My App.app/\n"
        "X-KyvarQuorvi-Hide=true\n");
}

TEST(DesktopEntryTest, ASwitchedOffEntryIsHidden) {
    EXPECT_EQ(desktopEntryText({"/A", false, true}, "/A/x"),
        "[Desktop Entry]\nType=Application\nName=A\nExec=\"/A/x\"\nTryExec=/A/x\nHidden=true\n"
        "X-KyvarQuorvi-Path=/A\nX-KyvarQuorvi-Hide=false\n");
}

TEST(DesktopEntryTest, ALiteralBackslashTakesFourInTheFile) {
    const auto text = desktopEntryText({"/a\\b", false, false}, "/a\\b$c");
    ASSERT_TRUE(text);
    EXPECT_NE(text->find("\nExec=\"/a\\\\\\\\b\\\\$c\"\n"), std::string::npos);
    EXPECT_NE(text->find("\nX-KyvarQuorvi-Path=/a\\\\b\n"), std::string::npos);
}

TEST(DesktopEntryTest, WhatNoEntryCanSayGivesNoText) {
    for (const char* path : {"", "/a\x01", "/a\x7F", "/a\xFF", "/a\x1B[0m"}) {
        EXPECT_FALSE(desktopEntryText({path, false, false}, "/x"));
        EXPECT_FALSE(desktopEntryText({"/x", false, false}, path));
    }
}

TEST(DesktopEntryTest, ReadingTakesTheKeysOfItsOwnGroupAlone) {
    const auto entry = parseDesktopEntry("# X-KyvarQuorvi-Path=/no\n"
                                         "[Other]\nX-KyvarQuorvi-Path=/other\nHidden=true\n"
                                         "[Desktop Entry]\r\n"
                                         "X-KyvarQuorvi-Path[de]=/de\n"
                                         " X-KyvarQuorvi-Path = /a\\\\b\\sc \r\n"
                                         "X-KyvarQuorvi-Path=/second\n"
                                         "X-KyvarQuorvi-Hide=true\n"
                                         "[Desktop Action x]\nHidden=true");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->applicationPath, "/a\\b c");
    EXPECT_TRUE(entry->hide);
    EXPECT_FALSE(entry->disabled);
}

TEST(DesktopEntryTest, EntriesOfOthersAndBrokenOnesAreNothing) {
    for (const char* text :
        {"", "X-KyvarQuorvi-Path=/a", "[Desktop Entry]\nExec=/a\n", "[Desktop Entry]\nX-KyvarQuorvi-Path=\n",
            "[Desktop Entry]\nX-KyvarQuorvi-Path=/\xFF\n", "[Desktop Entry]\nX-KyvarQuorvi-Path\n"})
        EXPECT_FALSE(parseDesktopEntry(text)) << text;
}

TEST(DesktopEntryTest, EitherSwitchOfADesktopCounts) {
    const std::string entry = "[Desktop Entry]\nX-KyvarQuorvi-Path=/a\n";
    EXPECT_FALSE(parseDesktopEntry(entry)->disabled);
    EXPECT_FALSE(parseDesktopEntry(entry + "Hidden=false\nX-GNOME-Autostart-enabled=true\n")->disabled);
    EXPECT_TRUE(parseDesktopEntry(entry + "Hidden=true\n")->disabled);
    EXPECT_TRUE(parseDesktopEntry(entry + "X-GNOME-Autostart-enabled=false\n")->disabled);
}

TEST(DesktopEntryTest, NamesAreThoseThatPeopleRead) {
    EXPECT_EQ(displayName("/opt/KyvarQuorviHelper.app"), "KyvarQuorviHelper");
    EXPECT_EQ(displayName("/opt/Helper.app//"), "Helper");
    EXPECT_EQ(displayName("Helper"), "Helper");
    EXPECT_EQ(displayName("/opt/.app"), ".app");
    EXPECT_EQ(displayName("/"), "/");
    EXPECT_EQ(displayName(""), "");
}

TEST(DesktopEntryTest, HardPathsComeBackAsTheyWere) {
    for (const auto& name : kHardNames) {
        const std::string path = "/opt/" + name;
        const auto text = desktopEntryText({path, true, true}, path);
        ASSERT_TRUE(text) << name;
        const auto entry = parseDesktopEntry(*text);
        ASSERT_TRUE(entry) << name;
        EXPECT_EQ(entry->applicationPath, path);
        EXPECT_TRUE(entry->hide);
        EXPECT_TRUE(entry->disabled);
    }
}

TEST(DesktopEntryTest, TheValidatorAcceptsWhatIsWritten) {
    if (!isInstalled("desktop-file-validate"))
        GTEST_SKIP() << "desktop-file-validate is not installed";
    for (const auto& name : kHardNames) {
        TemporaryFolder folder;
        AutostartLoginItemStore store(
            folder.path(), [](const auto& path) { return path + "/Contents/Linux/x"; });
        ASSERT_EQ(AddLoginItem(store, "/opt/" + name + "/A.app", std::nullopt, false, true, nullptr), 0);
        ASSERT_TRUE(folder.has("A.desktop"));
        EXPECT_EQ(std::system(("desktop-file-validate " + folder.path("A.desktop")).c_str()), 0)
            << name << "\n"
            << folder.read("A.desktop");
    }
}

// The launcher of a widely used desktop library, as the second opinion on the quoting.
TEST(DesktopEntryTest, ADesktopStartsTheProgramThatIsMeant) {
    if (!isInstalled("gio"))
        GTEST_SKIP() << "gio is not installed";
    for (const auto& name : kHardNames) {
        TemporaryFolder folder;
        const std::string program = folder.write(name + "/program", "#!/bin/sh\n: > \"${0%/*}/started\"\n");
        ::chmod(program.c_str(), 0755);
        folder.write("x.desktop", desktopEntryText({"/A.app", false, false}, program).value());
        ASSERT_EQ(std::system(("gio launch " + folder.path("x.desktop")).c_str()), 0) << name;
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!folder.has(name + "/started") && std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        EXPECT_TRUE(folder.has(name + "/started")) << name;
    }
}

} // namespace quorvi::test
