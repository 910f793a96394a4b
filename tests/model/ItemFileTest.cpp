// Single profiles and macros in files of their own.

#include <gtest/gtest.h>

#include "model/ItemFile.h"
#include "model/Trees.h"
#include "plist/Writer.h"
#include "support/Files.h"

namespace quorvi::test {
namespace {

class ItemFile : public testing::Test {
  protected:
    /// The file with that content.
    std::filesystem::path fileOf(const plist::Value& value) {
        writeFile(path, plist::writeXml(value).value());
        return path;
    }
    static plist::Dictionary without(plist::Dictionary item, std::string_view key) {
        item.remove(key);
        return item;
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder / "item.quorviProfile";
};

TEST_F(ItemFile, AnExportedProfileReadBackEqualsTheOneThatWasWritten) {
    auto written = profile(u"字Ж");
    written.set("someone's", plist::Data{1, 2, 3});
    ASSERT_TRUE(writeItemFile(written, path));
    EXPECT_EQ(plist::Value(readProfileFile(path)), plist::Value(written));
    EXPECT_TRUE(readFile(path).starts_with("<?xml"));
    EXPECT_EQ(folder.names(), std::set<std::string>{"item.quorviProfile"});
}

TEST_F(ItemFile, AnExportedMacroReadBackEqualsTheOneThatWasWritten) {
    ASSERT_TRUE(writeItemFile(macro(7), path));
    EXPECT_EQ(plist::Value(readMacroFile(path)), plist::Value(macro(7)));
}

TEST_F(ItemFile, AProfileNeedsItsFourKeysAndNoName) {
    for (const char* key : {"ledstate", "defaultstage", "stages", "buttons"})
        EXPECT_FALSE(readProfileFile(fileOf(without(profile(), key)))) << key;
    EXPECT_TRUE(readProfileFile(fileOf(without(without(profile(), "name"), "driver"))));
}

TEST_F(ItemFile, AMacroNeedsANameAndStepsOfAnyType) {
    EXPECT_FALSE(readMacroFile(fileOf(without(macro(7), "name"))));
    EXPECT_FALSE(readMacroFile(fileOf(without(macro(7), "steps"))));
    EXPECT_TRUE(readMacroFile(fileOf(dict({{"name", 5}, {"steps", u"none"}}))));
}

TEST_F(ItemFile, WhatIsNoDictionaryHoldsNothing) {
    for (const char* content : {"", "profile", "<plist><array/></plist>", "bplist00", "<plist><dict>"}) {
        writeFile(path, content);
        EXPECT_FALSE(readProfileFile(path)) << content;
        EXPECT_FALSE(readMacroFile(path)) << content;
    }
    EXPECT_FALSE(readProfileFile(folder / "missing"));
    EXPECT_FALSE(readMacroFile(folder.path()));
    std::string deep = "<plist>";
    for (int level = 0; level < 200000; ++level)
        deep += "<array>";
    writeFile(path, deep);
    EXPECT_FALSE(readMacroFile(path));
}

TEST_F(ItemFile, WritingNothingOrIntoNoFolderFailsAndLeavesNothing) {
    EXPECT_FALSE(writeItemFile({}, path));
    EXPECT_FALSE(writeItemFile(profile(), folder / "none" / "x"));
    EXPECT_TRUE(folder.names().empty());
}

TEST(AppendItem, MakesTheNameUniqueAndKeepsTheRest) {
    const auto macros = list({macro(7), macro(8, u"Jump 2")});
    const auto added = macro(7);
    appendItem(macros, added, u"Untitled");
    ASSERT_EQ(macros.size(), 3U);
    EXPECT_EQ(plist::Value(macros.dictionary(2)), plist::Value(macro(7, u"Jump 3")));
}

TEST(AppendItem, AMissingNameOrOneThatIsNoTextBecomesTheDefault) {
    const auto profiles = list({profile(u"Untitled")});
    auto nameless = profile();
    nameless.remove("name");
    appendItem(profiles, nameless, u"Untitled");
    auto number = profile();
    number.set("name", 3);
    appendItem(profiles, number, u"Untitled");
    EXPECT_EQ(profiles.dictionary(1).string("name"), u"Untitled 2");
    EXPECT_EQ(profiles.dictionary(2).string("name"), u"Untitled 3");
}

TEST(AppendItem, ANameOfAMillionUnitsIsCut) {
    const auto profiles = list();
    appendItem(profiles, profile(std::u16string(1000000, u'x')), u"Untitled");
    EXPECT_EQ(profiles.dictionary(0).string("name"), std::u16string(20, u'x'));
}

} // namespace
} // namespace quorvi::test
