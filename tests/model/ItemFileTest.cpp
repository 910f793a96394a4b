// Single profiles and macros in their own files.

#include "model/ItemFile.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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
    ASSERT_FALSE(writeItemFile(written, path));
    EXPECT_EQ(plist::Value(readProfileFile(path).item), plist::Value(written));
    EXPECT_TRUE(readFile(path).starts_with("<?xml"));
    EXPECT_EQ(folder.names(), std::set<std::string>{"item.quorviProfile"});
}

TEST_F(ItemFile, AnExportedMacroReadBackEqualsTheOneThatWasWritten) {
    ASSERT_FALSE(writeItemFile(macro(7), path));
    EXPECT_EQ(plist::Value(readMacroFile(path).item), plist::Value(macro(7)));
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
    EXPECT_EQ(writeItemFile({}, path), std::errc::invalid_argument);
    EXPECT_EQ(writeItemFile(profile(), folder / "none" / "x"), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(ItemFile, AFileThatGivesNothingSaysWhy) {
    const auto readBytes = [&](std::string_view bytes) {
        writeFile(path, bytes);
        return readMacroFile(path).fault;
    };
    EXPECT_EQ(readMacroFile(folder / "missing").fault, ItemFault::notReadable);
    EXPECT_EQ(readMacroFile(folder.path()).fault, ItemFault::notReadable);
    EXPECT_EQ(readBytes(""), ItemFault::damaged);
    EXPECT_EQ(readBytes("<plist><dict><key>name</key>"), ItemFault::damaged);
    EXPECT_EQ(readBytes("<plist><array/></plist>"), ItemFault::otherItem);
    EXPECT_EQ(readMacroFile(fileOf(profile())).fault, ItemFault::otherItem);
    EXPECT_EQ(readProfileFile(fileOf(macro(7))).fault, ItemFault::otherItem);
    EXPECT_EQ(readMacroFile(fileOf(macro(7))).fault, ItemFault::none);
}

TEST_F(ItemFile, AMacroHasSixteenStepsAtMost) {
    auto large = macro(7);
    auto steps = list();
    for (int step = 0; step < 16; ++step)
        steps.append(dict({{"command", step}, {"argument", 4}, {"delay", 20}}));
    large.set("steps", steps);
    EXPECT_EQ(readMacroFile(fileOf(large)).item.array("steps").size(), 16U);
    steps.append(dict());
    EXPECT_EQ(readMacroFile(fileOf(large)).fault, ItemFault::tooManySteps);
}

TEST_F(ItemFile, AFileHasAMegabyteAtMost) {
    const std::string file = plist::writeXml(macro(7)).value();
    writeFile(path, file + std::string((1U << 20U) - file.size(), ' '));
    EXPECT_TRUE(readMacroFile(path));
    writeFile(path, file + std::string((1U << 20U) - file.size() + 1, ' '));
    EXPECT_EQ(readMacroFile(path).fault, ItemFault::tooLarge);
}

/// The most memory that this process has had so far, in bytes.
long mostMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss * 1024;
}

TEST_F(ItemFile, ASmallFileWithAMillionStepsTakesNoMemoryForThem) {
    // A dictionary of "name" and "steps"; the steps are one empty dictionary, named 500,000 times.
    constexpr int count = 500'000;
    std::string bytes = std::string("bplist00") + "\xD2\x01\x02\x03\x04" +
                        "Tname"
                        "Usteps"
                        "Qx" +
                        std::string("\xAF\x12", 2);
    const std::size_t array = bytes.size() - 2;
    for (const int shift : {24, 16, 8, 0})
        bytes.push_back(static_cast<char>(count >> shift));
    bytes += std::string(count, '\5');
    const std::size_t step = bytes.size();
    bytes += '\xD0';
    const std::size_t table = bytes.size();
    for (const std::size_t at :
        {std::size_t{8}, std::size_t{13}, std::size_t{18}, std::size_t{24}, array, step})
        for (const int shift : {16, 8, 0})
            bytes.push_back(static_cast<char>(at >> static_cast<unsigned>(shift)));
    bytes += std::string(6, '\0') + '\3' + '\1' + std::string(7, '\0') + '\6' + std::string(8, '\0');
    for (const int shift : {56, 48, 40, 32, 24, 16, 8, 0})
        bytes.push_back(static_cast<char>(table >> static_cast<unsigned>(shift)));
    writeFile(path, bytes);
    const long before = mostMemory();
    EXPECT_EQ(readMacroFile(path).fault, ItemFault::tooLarge);
    EXPECT_LT(mostMemory() - before, 50 << 20);
}

/// A folder that everybody may write to, and a user's file elsewhere.
class ItemFileInSharedFolder : public ItemFile {
  protected:
    ItemFileInSharedFolder() {
        std::filesystem::create_directory(shared);
        ::chmod(shared.c_str(), 01777);
        writeFile(precious, "precious");
    }
    void SetUp() override {
        if (::geteuid() != 0)
            GTEST_SKIP() << "only root can give a link to another user";
    }
    static void putLink(const std::filesystem::path& from, const std::filesystem::path& to, uid_t owner) {
        std::filesystem::create_symlink(to, from);
        if (::lchown(from.c_str(), owner, owner) != 0)
            throw std::runtime_error("the link cannot be given away");
    }

    static constexpr uid_t other = 54321;
    std::filesystem::path shared = folder / "shared";
    std::filesystem::path link = shared / "Game.quorviProfile";
    std::filesystem::path precious = folder / "precious";
};

TEST_F(ItemFileInSharedFolder, ALinkOfAnotherUserIsNotFollowed) {
    putLink(link, precious, other);
    EXPECT_EQ(writeItemFile(profile(), link), std::errc::permission_denied);
    EXPECT_EQ(readFile(precious), "precious");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
}

TEST_F(ItemFileInSharedFolder, NorIsOneThatALinkOfTheUsersLeadsTo) {
    putLink(link, precious, other);
    putLink(folder / "mine", link, ::geteuid());
    EXPECT_EQ(writeItemFile(profile(), folder / "mine"), std::errc::permission_denied);
    EXPECT_EQ(readFile(precious), "precious");
}

TEST_F(ItemFileInSharedFolder, ALinkOfTheUsersIsFollowedAndSoIsAnyInAnOrdinaryFolder) {
    putLink(link, precious, ::geteuid());
    EXPECT_FALSE(writeItemFile(profile(u"One"), link));
    EXPECT_EQ(readProfileFile(precious).item.string("name"), u"One");
    ::unlink(link.c_str());
    ::chmod(shared.c_str(), 0777);
    putLink(link, precious, other);
    EXPECT_FALSE(writeItemFile(profile(u"Two"), link));
    EXPECT_EQ(readProfileFile(precious).item.string("name"), u"Two");
}

TEST_F(ItemFile, AFolderOrALoopInThePlaceOfTheFileIsNamedAsTheReason) {
    EXPECT_EQ(writeItemFile(profile(), folder.path()), std::errc::is_a_directory);
    std::filesystem::create_symlink(path, path);
    EXPECT_TRUE(writeItemFile(profile(), path));
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
