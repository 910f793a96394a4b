// Finding applications by their desktop entries.
#include "helper/front/DesktopEntries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "support/EnvironmentVariable.h"
#include "support/Files.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;
using front::DesktopEntries;

class EntriesOfThisComputer : public testing::Test {
  protected:
    /// Folder "1" counts more than folder "2".
    void add(const std::string& path, const std::string& keys) const {
        const fs::path file = folder / path;
        fs::create_directories(file.parent_path());
        writeFile(file, "[Desktop Entry]\nType=Application\n" + keys);
    }
    [[nodiscard]] static std::string idOf(const front::DesktopEntry* entry) {
        return entry ? entry->id : "none";
    }

    TemporaryFolder folder;
    DesktopEntries entries{{folder / "1", folder / "2"}};
};

TEST_F(EntriesOfThisComputer, AreKnownByTheirIds) {
    add("1/drawing.desktop", "Name=Drawing\nExec=/opt/drawing/bin/drawing %F\n");
    add("1/kde/org.example.Writing.desktop", "Name=Writing\nExec=env A=1 writing\n");
    entries.refresh();
    ASSERT_EQ(idOf(entries.withId("drawing")), "drawing");
    EXPECT_EQ(entries.withId("drawing")->name, "Drawing");
    EXPECT_EQ(entries.withId("drawing")->executable, "drawing");
    EXPECT_EQ(idOf(entries.withId("drawing.desktop")), "drawing");
    EXPECT_EQ(idOf(entries.withId("DRAWING")), "drawing");
    EXPECT_EQ(idOf(entries.withId("kde-org.example.Writing")), "kde-org.example.Writing");
    EXPECT_EQ(idOf(entries.withId("writing")), "none");
    EXPECT_EQ(idOf(entries.withId("")), "none");
}

TEST_F(EntriesOfThisComputer, AreKnownByTheClassThatTheySay) {
    add("1/one.desktop", "Name=One\nExec=one\nStartupWMClass=two\n");
    add("1/two.desktop", "Name=Two\nExec=two\n");
    add("1/org.example.Three.desktop", "Name=Three\nExec=three\n");
    entries.refresh();
    EXPECT_EQ(idOf(entries.withWindowClass("two")), "one");
    EXPECT_EQ(idOf(entries.withWindowClass("Two")), "two");
    EXPECT_EQ(idOf(entries.withWindowClass("three")), "org.example.Three");
    EXPECT_EQ(idOf(entries.withWindowClass("example")), "none");
    EXPECT_EQ(idOf(entries.withWindowClass("")), "none");
}

TEST_F(EntriesOfThisComputer, AreKnownByTheirProgramWhenItIsTheirsAlone) {
    add("1/writer.desktop", "Name=Writer\nExec=office --writer\n");
    add("1/solver.desktop", "Name=Solver\nExec=\"/opt/a b/solver\" %u\n");
    entries.refresh();
    EXPECT_EQ(idOf(entries.withExecutable("solver")), "solver");
    EXPECT_EQ(idOf(entries.withExecutable("office")), "writer");
    add("1/calc.desktop", "Name=Calc\nExec=office --calc\n");
    fs::last_write_time(folder / "1", fs::file_time_type::clock::now() + std::chrono::hours(1));
    entries.refresh();
    EXPECT_EQ(idOf(entries.withExecutable("office")), "none");
    EXPECT_EQ(idOf(entries.withExecutable("")), "none");
}

TEST_F(EntriesOfThisComputer, AreKnownByTheGameThatTheyStart) {
    add("1/Hats.desktop", "Name=Hats\nExec=steam steam://rungameid/440\n");
    entries.refresh();
    EXPECT_EQ(idOf(entries.withSteamGame("440")), "Hats");
    EXPECT_EQ(idOf(entries.withSteamGame("44")), "none");
    EXPECT_EQ(idOf(entries.withSteamGame("")), "none");
}

TEST_F(EntriesOfThisComputer, CountByTheirFirstFolder) {
    add("1/drawing.desktop", "Name=Mine\nExec=drawing\n");
    add("2/drawing.desktop", "Name=Theirs\nExec=drawing\n");
    add("1/hidden.desktop", "Name=Hidden\nExec=hidden\nHidden=true\n");
    add("2/hidden.desktop", "Name=Hidden\nExec=hidden\n");
    add("2/link.desktop", "Type=Link\nName=Link\n");
    writeFile(folder / "2/nothing.desktop", "");
    entries.refresh();
    ASSERT_NE(entries.withId("drawing"), nullptr);
    EXPECT_EQ(entries.withId("drawing")->name, "Mine");
    EXPECT_EQ(idOf(entries.withId("hidden")), "none");
    EXPECT_EQ(idOf(entries.withId("nothing")), "none");
}

TEST_F(EntriesOfThisComputer, AreShownInTheUsersLanguage) {
    const EnvironmentVariable language("LANGUAGE", "de");
    const EnvironmentVariable locale("LC_ALL", "de_DE.UTF-8");
    add("1/drawing.desktop", "Name=Drawing\nName[de]=Zeichnen\nExec=drawing\n");
    entries.refresh();
    ASSERT_NE(entries.withId("drawing"), nullptr);
    EXPECT_EQ(entries.withId("drawing")->name, "Drawing");
    EXPECT_EQ(entries.withId("drawing")->shownName, "Zeichnen");
}

TEST_F(EntriesOfThisComputer, AreReadAgainWhenAFolderHasChanged) {
    entries.refresh();
    EXPECT_EQ(idOf(entries.withId("drawing")), "none");
    add("2/deep/drawing.desktop", "Name=Drawing\nExec=drawing\n");
    entries.refresh();
    EXPECT_EQ(idOf(entries.withId("deep-drawing")), "deep-drawing");
    fs::remove(folder / "2/deep/drawing.desktop");
    fs::last_write_time(folder / "2/deep", fs::file_time_type::clock::now() + std::chrono::hours(1));
    entries.refresh();
    EXPECT_EQ(idOf(entries.withId("deep-drawing")), "none");
}

TEST(FoldersOfEntries, AreThoseOfTheUserAndOfTheSystem) {
    const EnvironmentVariable home("XDG_DATA_HOME", "/h");
    const EnvironmentVariable system("XDG_DATA_DIRS", "/a:relative::/b:/a");
    const auto folders = front::desktopEntryFolders();
    ASSERT_GE(folders.size(), 3U);
    EXPECT_EQ(folders[0], "/h/applications");
    EXPECT_EQ(folders[1], "/a/applications");
    EXPECT_EQ(folders[2], "/b/applications");
    EXPECT_NE(
        std::ranges::find(folders, fs::path("/var/lib/flatpak/exports/share/applications")), folders.end());
    EXPECT_EQ(std::ranges::count(folders, fs::path("/a/applications")), 1);
}

} // namespace
} // namespace quorvi::test
