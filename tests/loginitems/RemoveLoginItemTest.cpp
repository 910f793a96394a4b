#include <gtest/gtest.h>

#include "loginitems/AutostartLoginItemStore.h"
#include "loginitems/LoginItemLists.h"
#include "loginitems/LoginItems.h"
#include "loginitems/UserFolders.h"
#include "support/EnvironmentVariable.h"

namespace quorvi::test {

namespace {

constexpr const char* kTwoItems =
    "<plist version=\"1.0\"><dict><key>AutoLaunchedApplicationDictionary</key><array>"
    "<dict><key>Path</key><string>/a/Helper.app</string></dict>"
    "<dict><key>Path</key><string>/b/Other.app</string></dict></array></dict></plist>";

class RemoveLoginItemTest : public ::testing::TestWithParam<ListKind> {
  protected:
    Status remove(const std::string& suffix) { return RemoveLoginItem(m_list->store(), suffix, &m_removed); }

    std::unique_ptr<ListOnDisk> m_list = GetParam().make();
    std::int16_t m_removed = -1;
};

INSTANTIATE_TEST_SUITE_P(Lists, RemoveLoginItemTest, ::testing::ValuesIn(kListKinds),
    [](const auto& list) { return list.param.name; });

} // namespace

TEST_P(RemoveLoginItemTest, EveryItemWithTheSuffixGoes) {
    m_list->seed({{"/a/Helper.app"}, {"/x/Other.app", true}, {"/b/OldHelper.app"}, {"/y/Other.app"}});
    EXPECT_EQ(remove("Helper.app"), 0);
    EXPECT_EQ(m_removed, 2);
    EXPECT_EQ(m_list->contents(), (Items{{"/x/Other.app", true}, {"/y/Other.app"}}));
}

TEST_P(RemoveLoginItemTest, TheSuffixIsComparedWithCase) {
    m_list->seed({{"/a/helper.app"}, {"/b/Helper.app"}});
    EXPECT_EQ(remove("/Helper.app"), 0);
    EXPECT_EQ(m_removed, 1);
    EXPECT_EQ(m_list->contents(), (Items{{"/a/helper.app"}}));
}

TEST_P(RemoveLoginItemTest, NothingMatchingWritesNothing) {
    m_list->seed({{"/a/Helper.app"}});
    const auto before = m_list->snapshot();
    EXPECT_EQ(remove("Another.app"), 0);
    EXPECT_EQ(m_removed, 0);
    EXPECT_EQ(m_list->snapshot(), before);
}

TEST_P(RemoveLoginItemTest, AnEmptySuffixMatchesNothing) {
    m_list->seed({{"/a/Helper.app"}});
    EXPECT_EQ(remove(""), 0);
    EXPECT_EQ(m_removed, 0);
    EXPECT_EQ(m_list->contents(), (Items{{"/a/Helper.app"}}));
}

TEST_P(RemoveLoginItemTest, OnlySixteenGoInOnePass) {
    m_list->seed(copiesOfHelper(18));
    EXPECT_EQ(remove("KyvarQuorviHelper.app"), 0);
    EXPECT_EQ(m_removed, 16);
    EXPECT_EQ(m_list->contents(), (Items{{"/17/KyvarQuorviHelper.app"}, {"/18/KyvarQuorviHelper.app"}}));
    EXPECT_EQ(remove("KyvarQuorviHelper.app"), 0);
    EXPECT_EQ(m_removed, 2);
    EXPECT_EQ(m_list->contents(), Items{});
}

TEST_P(RemoveLoginItemTest, TheCountMayBeLeftOut) {
    m_list->seed({{"/a/Helper.app"}});
    EXPECT_EQ(RemoveLoginItem(m_list->store(), "Helper.app", nullptr), 0);
    EXPECT_EQ(m_list->contents(), Items{});
}

TEST(RemoveLoginItemStatusTest, FailuresCountNothing) {
    MemoryStore store;
    store.list = {{"/a/Helper.app", false, 0, false}};
    std::int16_t removed = 9;
    EXPECT_EQ(RemoveLoginItem(store, std::nullopt, &removed), -50);
    EXPECT_EQ(removed, 0);
    EXPECT_EQ(store.reads, 0);

    removed = 9;
    store.readStatus = -192;
    EXPECT_EQ(RemoveLoginItem(store, "Helper.app", &removed), -192);
    EXPECT_EQ(removed, 0);

    removed = 9;
    store.readStatus = 0;
    store.writeStatus = -36; // unlike adding, removing says when the file did not take it
    EXPECT_EQ(RemoveLoginItem(store, "Helper.app", &removed), -36);
    EXPECT_EQ(removed, 0);
}

TEST(RemoveLoginItemInFolderTest, TheFolderHoldsTheFile) {
    TemporaryFolder folder;
    folder.write("loginWindow.plist", kTwoItems);
    std::int16_t removed = -1;
    EXPECT_EQ(RemoveLoginItemInFolder(folder.path().native(), "Helper.app", &removed), 0);
    EXPECT_EQ(removed, 1);
    EXPECT_EQ(folder.read("loginWindow.plist").find("/a/Helper.app"), std::string::npos);
    EXPECT_NE(folder.read("loginWindow.plist").find("/b/Other.app"), std::string::npos);
}

TEST(RemoveLoginItemInFolderTest, MissingArgumentsAreParameterErrors) {
    TemporaryFolder folder;
    std::int16_t removed = 9;
    EXPECT_EQ(RemoveLoginItemInFolder(std::nullopt, "x", &removed), -50);
    EXPECT_EQ(removed, 0);
    removed = 9;
    EXPECT_EQ(RemoveLoginItemInFolder(folder.path().native(), std::nullopt, &removed), -50);
    EXPECT_EQ(removed, 0);
    EXPECT_FALSE(folder.has("loginWindow.plist"));
}

TEST(RemoveLoginItemInFolderTest, AMissingFolderIsNotReachedAndNotCreated) {
    TemporaryFolder folder;
    std::int16_t removed = 9;
    EXPECT_EQ(RemoveLoginItemInFolder(folder.path("none"), "x", &removed), -43);
    EXPECT_EQ(removed, 0);
    EXPECT_FALSE(folder.has("none"));
}

TEST(RemoveLoginItemForUserTest, TheFileLiesInThePreferencesOfTheHomeFolder) {
    TemporaryFolder home;
    home.write("Library/Preferences/loginWindow.plist", kTwoItems);
    std::int16_t removed = -1;
    EXPECT_EQ(RemoveLoginItemForUser(home.path().native(), "/Other.app", &removed), 0);
    EXPECT_EQ(removed, 1);
    EXPECT_EQ(home.read("Library/Preferences/loginWindow.plist").find("Other"), std::string::npos);
}

TEST(RemoveLoginItemForUserTest, MissingArgumentsAreParameterErrors) {
    std::int16_t removed = 9;
    EXPECT_EQ(RemoveLoginItemForUser(std::nullopt, "x", &removed), -50);
    EXPECT_EQ(removed, 0);
    removed = 9;
    EXPECT_EQ(RemoveLoginItemForUser("/nowhere", std::nullopt, &removed), -50);
    EXPECT_EQ(removed, 0);
    EXPECT_EQ(RemoveLoginItemForUser("/nowhere", "x", nullptr), -43);
}

TEST(RemoveLoginItemForUserTest, AHomeFolderOfAThousandBytesIsTheLongest) {
    TemporaryFolder folder;
    std::string home = folder.path().native() + "/";
    while (home.size() < 1000 - 200)
        home += std::string(199, 'h') + "/";
    home += std::string(1000 - home.size(), 'h');
    ASSERT_EQ(home.size(), 1000U);
    const std::string preferences = home + "/Library/Preferences";
    std::filesystem::create_directories(preferences);
    std::ofstream(preferences + "/loginWindow.plist") << kTwoItems;
    std::int16_t removed = -1;
    EXPECT_EQ(RemoveLoginItemForUser(home, "Helper.app", &removed), 0);
    EXPECT_EQ(removed, 1);

    const std::string longer = home + "h";
    std::filesystem::rename(home, longer);
    EXPECT_EQ(RemoveLoginItemForUser(longer, "Other.app", &removed), -2110);
    EXPECT_EQ(removed, 0);
}

TEST(RemoveLoginItemOfThisUserTest, TheOwnPreferencesAreMeant) {
    TemporaryFolder home;
    const EnvironmentVariable variable("HOME", home.path());
    home.write("Library/Preferences/loginWindow.plist", kTwoItems);
    std::int16_t removed = -1;
    EXPECT_EQ(RemoveLoginItem("Helper.app", &removed), 0);
    EXPECT_EQ(removed, 1);
    removed = 9;
    EXPECT_EQ(RemoveLoginItem(std::nullopt, &removed), -50);
    EXPECT_EQ(removed, 0);
}

class RemoveFromBothListsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        bool before = true;
        ASSERT_EQ(AddLoginItem(m_desktop, "/a/Helper.app", std::nullopt, false, true, &before), 0);
        ASSERT_FALSE(before);
    }

    TemporaryFolder m_home;
    EnvironmentVariable m_variable{"HOME", m_home.path()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", ""};
    AutostartLoginItemStore m_desktop{
        userAutostartFolder().value_or(""), [](const std::string& path) { return path + "/program"; }};
    std::int16_t m_removed = -1;
};

TEST_F(RemoveFromBothListsTest, WhatThePanelRegisteredGoesFromTheOwnList) {
    ASSERT_TRUE(m_home.has(".config/autostart/Helper.desktop"));
    EXPECT_EQ(RemoveLoginItem("Helper.app", &m_removed), 0);
    EXPECT_EQ(m_removed, 1);
    EXPECT_FALSE(m_home.has(".config/autostart/Helper.desktop"));
    EXPECT_FALSE(m_home.has("Library")) << "a list that is not there is not made to remove from it";
}

TEST_F(RemoveFromBothListsTest, WhatThePanelRegisteredGoesFromThatUsersList) {
    EXPECT_EQ(RemoveLoginItemForUser(m_home.path().native(), "Helper.app", &m_removed), 0);
    EXPECT_EQ(m_removed, 1);
    EXPECT_FALSE(m_home.has(".config/autostart/Helper.desktop"));
}

TEST_F(RemoveFromBothListsTest, BothListsAreCounted) {
    m_home.write("Library/Preferences/loginWindow.plist", kTwoItems);
    EXPECT_EQ(RemoveLoginItem("Helper.app", &m_removed), 0);
    EXPECT_EQ(m_removed, 2);
    EXPECT_FALSE(m_home.has(".config/autostart/Helper.desktop"));
    EXPECT_EQ(m_home.read("Library/Preferences/loginWindow.plist").find("Helper"), std::string::npos);
}

TEST_F(RemoveFromBothListsTest, AListOfAnotherShapeDoesNotStandInTheWay) {
    m_home.write("Library/Preferences/loginWindow.plist", "damaged");
    EXPECT_EQ(RemoveLoginItem("Helper.app", &m_removed), 0);
    EXPECT_EQ(m_removed, 1);
    EXPECT_EQ(m_home.read("Library/Preferences/loginWindow.plist"), "damaged");
}

} // namespace quorvi::test
