#include "model/ConfigFileStore.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include "base/ForkedChild.h"
#include "model/Trees.h"
#include "plist/Reader.h"
#include "plist/Writer.h"
#include "support/Files.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using plist::Value;
namespace fs = std::filesystem;

using Names = std::set<std::string>;
using Keys = std::vector<std::string>;

void writePlist(const fs::path& path, const Value& value) {
    writeFile(path, plist::writeXml(value).value());
}

Dictionary readPlist(const fs::path& path) {
    return plist::readPropertyListFile(path).value.dictionary();
}

Dictionary versioned(int version) {
    return dict({{"version", version}, {"settings", dict()}, {"profiles", list()}, {"macros", list()}});
}

Keys keysOf(const Dictionary& dictionary) {
    Keys keys;
    for (const auto& entry : dictionary.entries())
        keys.push_back(entry.key);
    return keys;
}

class ConfigFileStore : public testing::Test {
  protected:
    [[nodiscard]] fs::path first() const { return m_folder / "first.plist"; }
    [[nodiscard]] fs::path second() const { return m_folder / "second.plist"; }
    [[nodiscard]] Dictionary load() const { return KyvarLoadConfigFromFile("quorvi", 6, first(), second()); }
    [[nodiscard]] bool save(const Dictionary& tree) const {
        return KyvarSaveConfigToFile("quorvi", tree, first());
    }
    [[nodiscard]] Names names() const { return m_folder.names(); }
    [[nodiscard]] const fs::path& folder() const { return m_folder.path(); }

  private:
    TemporaryFolder m_folder;
};

TEST_F(ConfigFileStore, loadsTheFirstFileWhenItIsValid) {
    writePlist(first(), dict({{"quorvi", versioned(7)}}));
    writePlist(second(), dict({{"quorvi", versioned(6)}}));
    EXPECT_EQ(Value(load()), Value(versioned(7)));
}

TEST_F(ConfigFileStore, loadsTheSecondFileWhenTheFirstIsOfAnOlderVersion) {
    writePlist(first(), dict({{"quorvi", versioned(5)}}));
    writePlist(second(), dict({{"quorvi", versioned(6)}}));
    EXPECT_EQ(Value(load()), Value(versioned(6)));
}

TEST_F(ConfigFileStore, passesOverAFileThatIsMissingOrSpoiled) {
    writePlist(second(), dict({{"quorvi", versioned(6)}}));
    EXPECT_TRUE(load()) << "missing";
    writeFile(first(), "no property list");
    EXPECT_TRUE(load()) << "no property list";
    writeFile(first(), "");
    EXPECT_TRUE(load()) << "empty";
    writePlist(first(), dict({{"other", versioned(6)}}));
    EXPECT_TRUE(load()) << "without the key";
    writePlist(first(), dict({{"Quorvi", versioned(6)}}));
    EXPECT_TRUE(load()) << "with the key in other case";
    writePlist(first(), list({versioned(6)}));
    EXPECT_TRUE(load()) << "an array at the top";
    writePlist(first(), dict({{"quorvi", u"tree"}}));
    EXPECT_TRUE(load()) << "another type under the key";
    fs::remove(first());
    fs::create_directory(first());
    EXPECT_TRUE(load()) << "a folder";
}

TEST_F(ConfigFileStore, doesNotWaitForAFifo) {
    ASSERT_EQ(::mkfifo(first().c_str(), 0600), 0);
    writePlist(second(), dict({{"quorvi", versioned(6)}}));
    EXPECT_TRUE(load());
    EXPECT_FALSE(save(tree()));
}

TEST_F(ConfigFileStore, loadsNothingWhenNeitherFileIsValid) {
    writePlist(first(), dict({{"quorvi", versioned(5)}}));
    EXPECT_FALSE(load());
    writePlist(second(), dict({{"quorvi", dict({{"version", 6}})}}));
    EXPECT_FALSE(load());
}

TEST_F(ConfigFileStore, loadsFromEitherPathAlone) {
    writePlist(first(), dict({{"quorvi", versioned(6)}}));
    EXPECT_TRUE(KyvarLoadConfigFromFile("quorvi", 6, first(), {}));
    EXPECT_TRUE(KyvarLoadConfigFromFile("quorvi", 6, {}, first()));
}

TEST_F(ConfigFileStore, loadsNothingWithoutPathsOrKey) {
    writePlist(first(), dict({{"", versioned(6)}, {"quorvi", versioned(6)}}));
    EXPECT_FALSE(KyvarLoadConfigFromFile("quorvi", 6, {}, {}));
    EXPECT_FALSE(KyvarLoadConfigFromFile("", 6, first(), first()));
}

TEST_F(ConfigFileStore, loadsTheTreeUnderTheKeyAskedFor) {
    writePlist(first(), dict({{"quorvi", versioned(6)}, {"other", versioned(8)}}));
    EXPECT_EQ(KyvarLoadConfigFromFile("other", 6, first(), {}).integer("version"), 8);
}

TEST_F(ConfigFileStore, loadsAFreshTreeEachTime) {
    writePlist(first(), dict({{"quorvi", tree()}}));
    const auto changed = load();
    changed.array("profiles").dictionary(0).set("name", u"changed");
    EXPECT_EQ(Value(load()), Value(tree()));
}

TEST_F(ConfigFileStore, savesTheTreeUnderTheKeyOfANewFile) {
    EXPECT_TRUE(save(tree()));
    EXPECT_EQ(Value(readPlist(first())), Value(dict({{"quorvi", tree()}})));
    EXPECT_TRUE(readFile(first()).starts_with("<?xml"));
    EXPECT_EQ(names(), Names{"first.plist"});
}

TEST_F(ConfigFileStore, keepsOtherKeysTheirValuesAndTheirOrder) {
    const plist::Data data = {0, 1, 255};
    writePlist(first(), dict({{"zebra", data}, {"quorvi", versioned(5)}, {"apple", list({1.5, true, u"ä"})},
                            {"Quorvi", dict({{"b", 1}, {"a", 2}})}}));
    EXPECT_TRUE(save(tree()));
    const auto saved = readPlist(first());
    EXPECT_EQ(keysOf(saved), (Keys{"zebra", "quorvi", "apple", "Quorvi"}));
    EXPECT_EQ(
        Value(saved), Value(dict({{"zebra", data}, {"quorvi", tree()}, {"apple", list({1.5, true, u"ä"})},
                          {"Quorvi", dict({{"b", 1}, {"a", 2}})}})));
    EXPECT_EQ(keysOf(saved.dictionary("Quorvi")), (Keys{"b", "a"}));
}

TEST_F(ConfigFileStore, replacesAFileThatIsNoDictionary) {
    for (const auto* spoiled : {"no property list", "", "<plist><array/></plist>", "<plist><dict>"}) {
        writeFile(first(), spoiled);
        EXPECT_TRUE(save(tree())) << spoiled;
        EXPECT_EQ(Value(readPlist(first())), Value(dict({{"quorvi", tree()}}))) << spoiled;
    }
}

TEST_F(ConfigFileStore, savesThroughASymbolicLink) {
    writePlist(second(), dict({{"other", 1}}));
    fs::create_symlink(second(), first());
    EXPECT_TRUE(save(tree()));
    EXPECT_TRUE(fs::is_symlink(first()));
    EXPECT_EQ(Value(readPlist(second())), Value(dict({{"other", 1}, {"quorvi", tree()}})));
}

TEST_F(ConfigFileStore, keepsTheMode) {
    writePlist(first(), dict());
    ASSERT_EQ(::chmod(first().c_str(), 0640), 0);
    EXPECT_TRUE(save(tree()));
    EXPECT_EQ(modeOf(first()), 0640U);
}

TEST_F(ConfigFileStore, savesNothingWithoutAnArgument) {
    EXPECT_FALSE(save({}));
    EXPECT_FALSE(KyvarSaveConfigToFile("", tree(), first()));
    EXPECT_FALSE(KyvarSaveConfigToFile("quorvi", tree(), {}));
    EXPECT_EQ(names(), Names());
}

TEST_F(ConfigFileStore, savesNothingOfATreeThatNoPropertyListHolds) {
    writeFile(first(), "old");
    EXPECT_FALSE(save(dict({{"nothing", Value()}})));
    EXPECT_EQ(readFile(first()), "old");
}

TEST_F(ConfigFileStore, leavesTheOldFileInAReadOnlyFolder) {
    writeFile(first(), "old");
    ASSERT_EQ(::chmod(folder().c_str(), 0555), 0);
    EXPECT_EQ(inChild(dropPrivileges, [&] { return save(tree()); }), Outcome::Failed);
    ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
    EXPECT_EQ(readFile(first()), "old");
    EXPECT_EQ(names(), Names{"first.plist"});
}

TEST_F(ConfigFileStore, leavesTheOldFileOnAFullDisk) {
    writeFile(first(), "old");
    EXPECT_EQ(inChild([] { return limitFileSize(512); }, [&] { return save(tree()); }), Outcome::Failed);
    EXPECT_EQ(readFile(first()), "old");
    EXPECT_EQ(names(), Names{"first.plist"});
}

TEST(KyvarValidateConfig, asksForVersionAndPresenceOnly) {
    EXPECT_TRUE(KyvarValidateConfig(versioned(6), 6));
    EXPECT_TRUE(KyvarValidateConfig(versioned(7), 6));
    EXPECT_FALSE(KyvarValidateConfig(versioned(5), 6));
    EXPECT_FALSE(KyvarValidateConfig({}, 0));
    const auto otherTypes = dict({{"version", u"6"}, {"settings", 1}, {"profiles", u""}, {"macros", false}});
    EXPECT_TRUE(KyvarValidateConfig(otherTypes, 6));
    EXPECT_FALSE(KyvarValidateConfig(otherTypes, 7));
}

TEST(KyvarValidateConfig, readsAMissingVersionAsZero) {
    const auto tree = versioned(6);
    tree.remove("version");
    EXPECT_TRUE(KyvarValidateConfig(tree, 0));
    EXPECT_FALSE(KyvarValidateConfig(tree, 1));
}

TEST(KyvarValidateConfig, failsWithoutAnyOfTheThree) {
    for (const auto* key : {"settings", "profiles", "macros"}) {
        const auto tree = versioned(6);
        tree.remove(key);
        EXPECT_FALSE(KyvarValidateConfig(tree, 6)) << key;
    }
}

TEST(KyvarValidateProfile, asksForFourKeysOnly) {
    const auto otherTypes =
        dict({{"ledstate", u""}, {"defaultstage", list()}, {"stages", 1}, {"buttons", false}});
    EXPECT_TRUE(KyvarValidateProfile(otherTypes));
    EXPECT_TRUE(KyvarValidateProfile(profile()));
    for (const auto* key : {"ledstate", "defaultstage", "stages", "buttons"}) {
        const auto spoiled = profile();
        spoiled.remove(key);
        EXPECT_FALSE(KyvarValidateProfile(spoiled)) << key;
    }
    EXPECT_FALSE(KyvarValidateProfile({}));
}

} // namespace
} // namespace quorvi
