#include "model/SettingsDocument.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include <pwd.h>
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

class HomeGuard {
  public:
    HomeGuard() {
        if (const char* home = std::getenv("HOME"))
            m_old = home;
    }
    ~HomeGuard() {
        if (m_old)
            ::setenv("HOME", m_old->c_str(), 1);
        else
            ::unsetenv("HOME");
    }
    HomeGuard(const HomeGuard&) = delete;
    HomeGuard& operator=(const HomeGuard&) = delete;

  private:
    std::optional<std::string> m_old;
};

TEST(homeFolder, isTheVariableElseThePasswordDatabase) {
    const HomeGuard guard;
    ::setenv("HOME", "/some/home", 1);
    EXPECT_EQ(homeFolder(), "/some/home");
    const auto* entry = ::getpwuid(::getuid());
    ASSERT_NE(entry, nullptr);
    const fs::path expected = entry->pw_dir;
    ::unsetenv("HOME");
    EXPECT_EQ(homeFolder(), expected);
    ::setenv("HOME", "", 1);
    EXPECT_EQ(homeFolder(), expected);
}

TEST(userSettingsPath, isBelowTheHomeFolder) {
    EXPECT_EQ(userSettingsPath("/home/me"), "/home/me/Library/Preferences/com.kyvar.quorvi.settings.plist");
    EXPECT_EQ(userSettingsPath("/home/me/"), "/home/me/Library/Preferences/com.kyvar.quorvi.settings.plist");
    EXPECT_EQ(userSettingsPath(""), "");
}

class SettingsDocument : public testing::Test {
  protected:
    [[nodiscard]] fs::path userFile() const { return userSettingsPath(home()); }
    [[nodiscard]] fs::path defaultsFile() const { return m_folder / "Defaults.plist"; }
    [[nodiscard]] fs::path home() const { return m_folder.path(); }
    void writeDefaults(const Dictionary& tree) const {
        writeFile(defaultsFile(), plist::writeXml(dict({{"quorvi", tree}})).value());
    }
    [[nodiscard]] Dictionary load() const { return loadSettings(userFile(), defaultsFile()); }
    [[nodiscard]] bool save(const Dictionary& tree) const { return saveSettings(tree, userFile()); }
    [[nodiscard]] Names names() const { return m_folder.names(); }

  private:
    TemporaryFolder m_folder;
};

Dictionary named(std::u16string name) {
    return tree(list({profile(std::move(name))}), list());
}

TEST_F(SettingsDocument, loadsTheUsersTreeElseTheDefaults) {
    EXPECT_FALSE(load());
    writeDefaults(named(u"Default"));
    EXPECT_EQ(Value(load()), Value(named(u"Default")));
    ASSERT_TRUE(save(named(u"Mine")));
    EXPECT_EQ(Value(load()), Value(named(u"Mine")));
}

TEST_F(SettingsDocument, ignoresAUserTreeOfVersion5UntilTheNextSave) {
    writeDefaults(named(u"Default"));
    const auto old = named(u"Old");
    old.set("version", 5);
    ASSERT_TRUE(save(old));
    const auto live = load();
    EXPECT_EQ(Value(live), Value(named(u"Default")));
    ASSERT_TRUE(save(live));
    EXPECT_EQ(Value(loadSettings(userFile(), {})), Value(named(u"Default")));
}

TEST_F(SettingsDocument, fallsBackToTheDefaultsFromADamagedFile) {
    writeDefaults(named(u"Default"));
    ASSERT_TRUE(save(named(u"Mine")));
    const auto whole = readFile(userFile());
    writeFile(userFile(), std::string_view(whole).substr(0, whole.size() / 2));
    EXPECT_EQ(Value(load()), Value(named(u"Default")));
}

TEST_F(SettingsDocument, givesAFreshCopyOfTheDefaultsWithoutValidation) {
    const auto old = named(u"Default");
    old.set("version", 1);
    writeDefaults(old);
    const auto changed = getDefaultSettings(defaultsFile());
    EXPECT_EQ(Value(changed), Value(old));
    changed.array("profiles").removeAll();
    EXPECT_EQ(Value(getDefaultSettings(defaultsFile())), Value(old));
}

TEST_F(SettingsDocument, givesNoDefaultsFromAMissingOrSpoiledFile) {
    EXPECT_FALSE(getDefaultSettings(defaultsFile()));
    EXPECT_FALSE(getDefaultSettings({}));
    writeFile(defaultsFile(), "no property list");
    EXPECT_FALSE(getDefaultSettings(defaultsFile()));
    writeFile(defaultsFile(), plist::writeXml(dict({{"other", tree()}})).value());
    EXPECT_FALSE(getDefaultSettings(defaultsFile()));
}

TEST_F(SettingsDocument, createsThePreferencesFolderClosedToOthers) {
    EXPECT_TRUE(save(tree()));
    EXPECT_EQ(modeOf(home() / "Library"), 0700U);
    EXPECT_EQ(modeOf(home() / "Library/Preferences"), 0700U);
    EXPECT_TRUE(fs::exists(userFile()));
}

TEST_F(SettingsDocument, leavesExistingFoldersAsTheyAre) {
    fs::create_directory(home() / "Library");
    ASSERT_EQ(::chmod((home() / "Library").c_str(), 0755), 0);
    EXPECT_TRUE(save(tree()));
    EXPECT_EQ(modeOf(home() / "Library"), 0755U);
}

TEST_F(SettingsDocument, savesThroughALinkedPreferencesFolder) {
    const TemporaryFolder elsewhere;
    fs::create_directory(home() / "Library");
    fs::create_directory_symlink(elsewhere.path(), home() / "Library/Preferences");
    EXPECT_TRUE(save(tree()));
    EXPECT_EQ(elsewhere.names(), Names{"com.kyvar.quorvi.settings.plist"});
}

TEST_F(SettingsDocument, createsNoHomeFolder) {
    EXPECT_FALSE(saveSettings(tree(), userSettingsPath(home() / "missing")));
    EXPECT_EQ(names(), Names());
    EXPECT_FALSE(saveSettings(tree(), userSettingsPath({})));
}

TEST_F(SettingsDocument, savesNothingWithoutATree) {
    EXPECT_FALSE(save({}));
    EXPECT_EQ(names(), Names());
}

TEST_F(SettingsDocument, reportsASaveInAFolderThatIsNotWritable) {
    ASSERT_TRUE(save(named(u"Old")));
    for (const auto& folder : {home(), home() / "Library", home() / "Library/Preferences"})
        ASSERT_EQ(::chmod(folder.c_str(), 0555), 0);
    ASSERT_EQ(::chmod(userFile().c_str(), 0644), 0);
    EXPECT_EQ(inChild(dropPrivileges, [&] { return save(tree()); }), Outcome::Failed);
    EXPECT_EQ(Value(load()), Value(named(u"Old")));
    for (const auto& folder : {home(), home() / "Library", home() / "Library/Preferences"})
        ::chmod(folder.c_str(), 0755); // so that the test's own folder can be removed
}

TEST_F(SettingsDocument, keepsWhatTheFileHoldsBesideTheTree) {
    ASSERT_TRUE(save(named(u"Old")));
    writeFile(userFile(), plist::writeXml(dict({{"window", 5}, {"quorvi", dict()}, {"date", 1.25}})).value());
    ASSERT_TRUE(save(tree()));
    EXPECT_EQ(plist::readPropertyListFile(userFile()).value,
        Value(dict({{"window", 5}, {"quorvi", tree()}, {"date", 1.25}})));
}

} // namespace
} // namespace quorvi
