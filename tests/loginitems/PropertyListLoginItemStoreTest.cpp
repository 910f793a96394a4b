#include "loginitems/PropertyListLoginItemStore.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include "loginitems/FailingCalls.h"
#include "loginitems/LoginItems.h"
#include "plist/Reader.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

namespace {

constexpr const char* kFile = "loginWindow.plist";
constexpr const char* kListKey = "AutoLaunchedApplicationDictionary";
const std::string kListedHelper = "/opt/quorvi/KyvarQuorviHelper.app";

std::string propertyList(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + content + "</plist>\n";
}

class PropertyListLoginItemStoreTest : public ::testing::Test {
  protected:
    Status add() {
        PropertyListLoginItemStore store(m_folder.path(), m_calls);
        return AddLoginItem(store, kListedHelper, std::nullopt, false, true, nullptr);
    }
    Status remove(const std::string& suffix) {
        m_removed = 9;
        PropertyListLoginItemStore store(m_folder.path(), m_calls);
        return RemoveLoginItem(store, suffix, &m_removed);
    }
    [[nodiscard]] plist::Dictionary root() const {
        return plist::readPropertyListFile(m_folder.path(kFile)).value.dictionary();
    }
    [[nodiscard]] std::string content() const { return m_folder.read(kFile); }

    TemporaryFolder m_folder;
    FailingCalls m_calls;
    std::int16_t m_removed = 9;
};

/// The file of the one item that the panel adds.
void expectOnlyTheHelper(const plist::Dictionary& root) {
    EXPECT_EQ(root.size(), 1U);
    const auto list = root.array(kListKey);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list.dictionary(0).size(), 2U);
    EXPECT_EQ(list.dictionary(0).value("Hide"), plist::Value(false));
    EXPECT_EQ(list.dictionary(0).value("Path"), plist::Value(u"/opt/quorvi/KyvarQuorviHelper.app"));
}

} // namespace

TEST_F(PropertyListLoginItemStoreTest, AddingCreatesTheFile) {
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(content().rfind("<?xml", 0), 0U);
    expectOnlyTheHelper(root());
}

TEST_F(PropertyListLoginItemStoreTest, AddingReplacesWhatIsNoPropertyList) {
    for (const char* broken : {"", "no property list", "<plist version=\"1.0\"><dict><key>A</key>"}) {
        m_folder.write(kFile, broken);
        EXPECT_EQ(add(), 0);
        expectOnlyTheHelper(root());
    }
}

TEST_F(PropertyListLoginItemStoreTest, AddingToAFileWithoutTheListKeepsItsOtherKeys) {
    m_folder.write(kFile, propertyList("<dict><key>Zoom</key><integer>7</integer></dict>"));
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(root().size(), 2U);
    EXPECT_EQ(root().integer("Zoom"), 7);
    EXPECT_EQ(root().array(kListKey).size(), 1U);
}

TEST_F(PropertyListLoginItemStoreTest, UnknownKeysAndElementsStayInTheirOrder) {
    m_folder.write(kFile,
        propertyList("<dict><key>Before</key><date>2009-01-02T03:04:05Z</date>"
                     "<key>AutoLaunchedApplicationDictionary</key><array>"
                     "<string>no item</string>"
                     "<dict><key>Alias</key><data>AAEC</data><key>Path</key><string>/a/Other.app</string>"
                     "<key>Hide</key><integer>1</integer></dict>"
                     "<dict><key>Hide</key><true/></dict>"
                     "<dict><key>Path</key><string>/a/KyvarQuorviHelper.app</string></dict>"
                     "<dict><key>Path</key><integer>5</integer></dict>"
                     "</array><key>After</key><array><real>1.5</real></array></dict>"));
    const auto before = root();
    EXPECT_EQ(add(), 0);

    const auto after = root();
    ASSERT_EQ(after.size(), 3U);
    EXPECT_EQ(after.entries()[0].key, "Before");
    EXPECT_EQ(after.entries()[0].value, before.value("Before"));
    EXPECT_EQ(after.entries()[1].key, kListKey);
    EXPECT_EQ(after.entries()[2].key, "After");
    EXPECT_EQ(after.entries()[2].value, before.value("After"));
    const auto list = after.array(kListKey);
    ASSERT_EQ(list.size(), 5U);
    EXPECT_EQ(list.value(0), plist::Value(u"no item"));
    EXPECT_EQ(list.value(1), before.array(kListKey).value(1));
    EXPECT_EQ(list.dictionary(1).entries()[0].key, "Alias");
    EXPECT_EQ(list.value(2), before.array(kListKey).value(2));
    EXPECT_EQ(list.dictionary(3).string("Path"), u"/opt/quorvi/KyvarQuorviHelper.app");
    EXPECT_EQ(list.value(4), before.array(kListKey).value(4));
}

TEST_F(PropertyListLoginItemStoreTest, ABinaryFileIsReadAndWrittenAsXml) {
    const auto binary = std::string("bplist00\xD1\x01\x02") + '\x5F' + "\x10\x21" + kListKey + '\xA0' +
                        "\x08\x0B\x2F" + std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + "\x03" +
                        std::string(15, '\0') + "\x30";
    m_folder.write(kFile, binary);
    ASSERT_EQ(root().array(kListKey).size(), 0U);
    ASSERT_TRUE(root().has(kListKey));
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(content().rfind("<?xml", 0), 0U);
    expectOnlyTheHelper(root());
}

TEST_F(PropertyListLoginItemStoreTest, RemovingFromAMissingFileCreatesItEmptyAndFindsNoList) {
    EXPECT_EQ(remove("Helper.app"), -192);
    EXPECT_EQ(m_removed, 0);
    EXPECT_TRUE(m_folder.has(kFile));
    EXPECT_EQ(content(), "");
}

TEST_F(PropertyListLoginItemStoreTest, RemovingFromAFileThatHoldsNoListIsNotFound) {
    for (const std::string& file : {std::string("broken"), std::string(), propertyList("<dict/>"),
             propertyList("<dict><key>AutoLaunchedApplicationDictionary</key><dict/></dict>"),
             propertyList("<array/>")}) {
        m_folder.write(kFile, file);
        EXPECT_EQ(remove("Helper.app"), -192);
        EXPECT_EQ(m_removed, 0);
        EXPECT_EQ(content(), file);
    }
}

TEST_F(PropertyListLoginItemStoreTest, APropertyListOfAnotherShapeIsNotAddedTo) {
    for (const std::string& file : {propertyList("<array/>"), propertyList("<string>x</string>"),
             propertyList("<dict><key>AutoLaunchedApplicationDictionary</key><string>x</string></dict>")}) {
        m_folder.write(kFile, file);
        EXPECT_EQ(add(), -192);
        EXPECT_EQ(content(), file);
    }
}

TEST_F(PropertyListLoginItemStoreTest, RemovalKeepsTheOtherElementsAsTheyAre) {
    m_folder.write(
        kFile, propertyList("<dict><key>AutoLaunchedApplicationDictionary</key><array>"
                            "<integer>3</integer><dict><key>Path</key><string>/a/Helper.app</string></dict>"
                            "<dict><key>Kind</key><string>x</string><key>Path</key><string>/b</string></dict>"
                            "</array></dict>"));
    EXPECT_EQ(remove("Helper.app"), 0);
    EXPECT_EQ(m_removed, 1);
    const auto list = root().array(kListKey);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list.value(0), plist::Value(3));
    EXPECT_EQ(list.dictionary(1).string("Kind"), u"x");
}

TEST_F(PropertyListLoginItemStoreTest, AMissingFolderIsNotReached) {
    PropertyListLoginItemStore store(m_folder.path("none"));
    EXPECT_EQ(AddLoginItem(store, kListedHelper, std::nullopt, false, true, nullptr), -43);
    EXPECT_FALSE(m_folder.has("none"));
    m_folder.write("file", "x");
    PropertyListLoginItemStore below(m_folder.path("file"));
    EXPECT_EQ(AddLoginItem(below, kListedHelper, std::nullopt, false, true, nullptr), -43);
}

TEST_F(PropertyListLoginItemStoreTest, WhatIsNoFileIsNotRead) {
    std::filesystem::create_directory(m_folder.path(kFile));
    EXPECT_EQ(add(), -192);
    EXPECT_EQ(remove("x"), -192);
    std::filesystem::remove(m_folder.path(kFile));
    ASSERT_EQ(::mkfifo(m_folder.path(kFile).c_str(), 0600), 0);
    EXPECT_EQ(add(), -192);
}

TEST_F(PropertyListLoginItemStoreTest, AFailedCreationGivesItsOwnStatus) {
    m_calls.failOpen = true;
    EXPECT_EQ(add(), -34);
    m_calls.error = EACCES;
    EXPECT_EQ(add(), -54);
    m_calls.error = EIO;
    EXPECT_EQ(remove("x"), -36);
    EXPECT_FALSE(m_folder.has(kFile));
}

TEST_F(PropertyListLoginItemStoreTest, AFailedWriteLeavesTheFileAndOnlyRemovalTells) {
    const auto file =
        propertyList("<dict><key>AutoLaunchedApplicationDictionary</key><array>"
                     "<dict><key>Path</key><string>/a/Helper.app</string></dict></array></dict>");
    m_folder.write(kFile, file);
    m_calls.failWrite = true;
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(content(), file);
    EXPECT_EQ(remove("Helper.app"), -36);
    EXPECT_EQ(m_removed, 0);
    EXPECT_EQ(content(), file);
}

} // namespace quorvi::test
