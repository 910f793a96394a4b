#include "loginitems/AutostartLoginItemStore.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include "loginitems/FailingCalls.h"
#include "loginitems/LoginItems.h"
#include "support/Files.h"
#include "support/UmaskGuard.h"

namespace quorvi::test {

namespace {

const std::string kHelperApplication = "/opt/quorvi/KyvarQuorviHelper.app";
constexpr const char* kHelperFile = "autostart/KyvarQuorviHelper.desktop";
constexpr const char* kForeign = "[Desktop Entry]\nType=Application\nName=KyvarQuorviHelper\n"
                                 "Exec=/opt/quorvi/KyvarQuorviHelper.app\n";

std::string entryOf(const std::string& path, const std::string& more = "") {
    return "[Desktop Entry]\nType=Application\nName=x\nExec=x\nX-KyvarQuorvi-Path=" + path + "\n" + more;
}

class AutostartLoginItemStoreTest : public ::testing::Test {
  protected:
    AutostartLoginItemStore makeStore() {
        return {m_folder.path("autostart"),
            [](const std::string& path) { return path + "/Contents/Linux/Run"; }, m_calls};
    }
    Status add(const std::string& path = kHelperApplication) {
        auto store = makeStore();
        return AddLoginItem(store, path, std::nullopt, false, true, nullptr);
    }
    Status remove(const std::string& suffix) {
        auto store = makeStore();
        return RemoveLoginItem(store, suffix, &m_removed);
    }

    TemporaryFolder m_folder;
    FailingCalls m_calls;
    std::int16_t m_removed = 9;
};

} // namespace

TEST_F(AutostartLoginItemStoreTest, TheEntryIsWrittenIntoAFolderThatIsCreated) {
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(m_folder.read(kHelperFile), "[Desktop Entry]\n"
                                          "Type=Application\n"
                                          "Name=KyvarQuorviHelper\n"
                                          "Exec=\"/opt/quorvi/KyvarQuorviHelper.app/Contents/Linux/Run\"\n"
                                          "TryExec=/opt/quorvi/KyvarQuorviHelper.app/Contents/Linux/Run\n"
                                          "X-KyvarQuorvi-Path=/opt/quorvi/KyvarQuorviHelper.app\n"
                                          "X-KyvarQuorvi-Hide=false\n");
    struct stat info = {};
    ASSERT_EQ(::stat(m_folder.path("autostart").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0700U);
}

// Tools of other users list what starts at log-in.
TEST_F(AutostartLoginItemStoreTest, ANewEntryIsForEverybodyToReadWhateverTheMask) {
    for (const mode_t mask : {0U, 077U, 0777U}) {
        m_folder.write("autostart/own.txt", ""); // the folder is there, with a mode of its own
        const UmaskGuard guard(mask);
        EXPECT_EQ(add(), 0);
        EXPECT_EQ(modeOf(m_folder.path(kHelperFile)), 0644U) << mask;
        EXPECT_EQ(remove("KyvarQuorviHelper.app"), 0);
    }
}

TEST_F(AutostartLoginItemStoreTest, FoldersAboveAreCreatedToo) {
    AutostartLoginItemStore store(m_folder.path("a/b/autostart"), [](const auto& path) { return path; });
    EXPECT_EQ(AddLoginItem(store, kHelperApplication, std::nullopt, false, true, nullptr), 0);
    EXPECT_TRUE(m_folder.has("a/b/autostart/KyvarQuorviHelper.desktop"));
}

TEST_F(AutostartLoginItemStoreTest, EntriesOfOthersAreNoItems) {
    m_folder.write("autostart/foreign.desktop", kForeign);
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(m_folder.read("autostart/foreign.desktop"), kForeign);
    EXPECT_TRUE(m_folder.has(kHelperFile));
    EXPECT_EQ(remove("KyvarQuorviHelper.app"), 0);
    EXPECT_EQ(m_removed, 1);
    EXPECT_EQ(m_folder.read("autostart/foreign.desktop"), kForeign);
    EXPECT_FALSE(m_folder.has(kHelperFile));
}

TEST_F(AutostartLoginItemStoreTest, ATakenFileNameGetsANumber) {
    m_folder.write(kHelperFile, kForeign);
    std::filesystem::create_directory(m_folder.path("autostart/KyvarQuorviHelper-2.desktop"));
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(m_folder.read(kHelperFile), kForeign);
    EXPECT_NE(m_folder.read("autostart/KyvarQuorviHelper-3.desktop"), "");
}

TEST_F(AutostartLoginItemStoreTest, WhatCannotBeReadIsSkipped) {
    m_folder.write("autostart/KyvarQuorviHelper.desktop.bak", entryOf(kHelperApplication));
    m_folder.write("autostart/binary.desktop", std::string("\0\xFF\x01", 3));
    m_folder.write("autostart/group.desktop", "[Other]\nX-KyvarQuorvi-Path=" + kHelperApplication + "\n");
    std::filesystem::create_directory(m_folder.path("autostart/folder.desktop"));
    ASSERT_EQ(::mkfifo(m_folder.path("autostart/fifo.desktop").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("nowhere", m_folder.path("autostart/link.desktop").c_str()), 0);
    EXPECT_EQ(remove("Helper.app"), 0);
    EXPECT_EQ(m_removed, 0);
    EXPECT_EQ(add(), 0);
    EXPECT_TRUE(m_folder.has(kHelperFile));
    EXPECT_TRUE(m_folder.has("autostart/KyvarQuorviHelper.desktop.bak"));
}

TEST_F(AutostartLoginItemStoreTest, ItemsComeInTheOrderOfTheirFileNames) {
    for (const char* name : {"b", "C", "a", "10", "9"})
        m_folder.write(std::string("autostart/") + name + ".desktop", entryOf(std::string("/") + name));
    auto store = makeStore();
    LoginItems items;
    ASSERT_EQ(store.read(LoginItemAccess::Add, items), 0);
    std::vector<std::string> paths;
    for (const auto& item : items)
        paths.push_back(*item.path);
    EXPECT_EQ(paths, (std::vector<std::string>{"/10", "/9", "/C", "/a", "/b"}));
}

TEST_F(AutostartLoginItemStoreTest, AReplacedItemKeepsItsFileAndTheOthersLoseTheirs) {
    m_folder.write("autostart/first.desktop", entryOf("/a/KyvarQuorviHelper.app"));
    m_folder.write("autostart/second.desktop", entryOf("/b/KyvarQuorviHelper.app"));
    EXPECT_EQ(add(), 0);
    EXPECT_NE(
        m_folder.read("autostart/first.desktop").find("X-KyvarQuorvi-Path=" + kHelperApplication + "\n"),
        std::string::npos);
    EXPECT_FALSE(m_folder.has("autostart/second.desktop"));
    EXPECT_FALSE(m_folder.has(kHelperFile));
}

TEST_F(AutostartLoginItemStoreTest, ASwitchedOffExactItemStaysAsItIs) {
    const auto off = entryOf(kHelperApplication, "Hidden=true\n");
    m_folder.write(kHelperFile, off);
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(m_folder.read(kHelperFile), off);
}

TEST_F(AutostartLoginItemStoreTest, TheItemOfAMovedApplicationStaysSwitchedOff) {
    for (const char* off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        m_folder.write(kHelperFile, entryOf("/old/KyvarQuorviHelper.app", off));
        EXPECT_EQ(add(), 0);
        EXPECT_NE(m_folder.read(kHelperFile).find("X-KyvarQuorvi-Path=" + kHelperApplication + "\n"),
            std::string::npos);
        EXPECT_NE(m_folder.read(kHelperFile).find("\nHidden=true\n"), std::string::npos);
    }
}

TEST_F(AutostartLoginItemStoreTest, TheItemThatTakesTheirPlaceIsOffWhenARemovedOneWas) {
    m_folder.write("autostart/first.desktop", entryOf("/old/KyvarQuorviHelper.app"));
    m_folder.write("autostart/second.desktop", entryOf(kHelperApplication, "Hidden=true\n"));
    EXPECT_EQ(add(), 0);
    EXPECT_NE(m_folder.read("autostart/first.desktop").find("\nHidden=true\n"), std::string::npos);
    EXPECT_FALSE(m_folder.has("autostart/second.desktop"));
}

TEST_F(AutostartLoginItemStoreTest, AnotherItemBeingOffSwitchesNothingOff) {
    m_folder.write("autostart/other.desktop", entryOf("/a/Other.app", "Hidden=true\n"));
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(m_folder.read(kHelperFile).find("Hidden"), std::string::npos);
}

TEST_F(AutostartLoginItemStoreTest, RemovingFromAMissingFolderIsNotFoundAndCreatesNothing) {
    EXPECT_EQ(remove("Helper.app"), -192);
    EXPECT_EQ(m_removed, 0);
    EXPECT_FALSE(m_folder.has("autostart"));
}

TEST_F(AutostartLoginItemStoreTest, AFileInThePlaceOfTheFolderIsNotReached) {
    m_folder.write("autostart", "x");
    EXPECT_EQ(add(), -43);
    EXPECT_EQ(remove("Helper.app"), -43);
    EXPECT_EQ(m_folder.read("autostart"), "x");
}

TEST_F(AutostartLoginItemStoreTest, AnApplicationWithoutAnExecutableIsRefusedBeforeAnythingIsWritten) {
    AutostartLoginItemStore store(m_folder.path("autostart"), [](const auto&) { return std::string(); });
    EXPECT_EQ(AddLoginItem(store, kHelperApplication, std::nullopt, false, true, nullptr), -108);
    EXPECT_FALSE(m_folder.has("autostart"));
}

TEST_F(AutostartLoginItemStoreTest, AFailedWriteRemovesNothing) {
    m_folder.write("autostart/first.desktop", entryOf("/a/KyvarQuorviHelper.app"));
    m_folder.write("autostart/second.desktop", entryOf("/b/KyvarQuorviHelper.app"));
    m_calls.failWrite = true;
    EXPECT_EQ(add(), 0); // adding does not check its write
    EXPECT_EQ(m_folder.read("autostart/first.desktop"), entryOf("/a/KyvarQuorviHelper.app"));
    EXPECT_EQ(m_folder.read("autostart/second.desktop"), entryOf("/b/KyvarQuorviHelper.app"));
}

TEST_F(AutostartLoginItemStoreTest, AFailedRemovalGivesItsOwnStatus) {
    m_folder.write(kHelperFile, entryOf(kHelperApplication));
    m_calls.failUnlink = true;
    m_calls.error = EPERM;
    EXPECT_EQ(remove("Helper.app"), -54);
    EXPECT_EQ(m_removed, 0);
    EXPECT_TRUE(m_folder.has(kHelperFile));
}

TEST_F(AutostartLoginItemStoreTest, NothingTemporaryStaysBehind) {
    EXPECT_EQ(add(), 0);
    const std::filesystem::directory_iterator files(m_folder.path("autostart"));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(AutostartLoginItemStoreTest, FileNamesArePortableAndNeverHidden) {
    EXPECT_EQ(add("/a/.Grüße an Kyvar/☃.app"), 0);
    EXPECT_TRUE(m_folder.has("autostart/___.desktop"));
    EXPECT_EQ(add("/a/.hidden.app"), 0);
    EXPECT_TRUE(m_folder.has("autostart/_hidden.desktop"));
    EXPECT_EQ(add("/"), 0);
    EXPECT_TRUE(m_folder.has("autostart/_.desktop"));
    EXPECT_EQ(add("/a/" + std::string(250, 'n')), 0);
    EXPECT_TRUE(m_folder.has("autostart/" + std::string(100, 'n') + ".desktop"));
}

} // namespace quorvi::test
