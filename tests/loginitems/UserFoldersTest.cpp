#include "loginitems/UserFolders.h"

#include <gtest/gtest.h>

#include "support/EnvironmentVariable.h"

namespace quorvi::test {

TEST(UserFoldersTest, TheConfigurationFolderNamesTheAutostartFolder) {
    const EnvironmentVariable home("HOME", "/home/z o");
    const EnvironmentVariable config("XDG_CONFIG_HOME", "/etc/my config");
    EXPECT_EQ(userAutostartFolder(), "/etc/my config/autostart");
}

TEST(UserFoldersTest, ItIsBelowTheHomeFolderWhenUnsetEmptyOrRelative) {
    const EnvironmentVariable home("HOME", "/home/z o");
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>(""),
             std::optional<std::string>("relative/config")}) {
        const EnvironmentVariable config("XDG_CONFIG_HOME", value);
        EXPECT_EQ(userAutostartFolder(), "/home/z o/.config/autostart");
    }
}

TEST(UserFoldersTest, WithoutAVariableTheUserDatabaseNamesTheHomeFolder) {
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>("")}) {
        const EnvironmentVariable home("HOME", value);
        const auto folder = userHomeFolder();
        ASSERT_TRUE(folder);
        EXPECT_EQ(folder->front(), '/');
    }
}

TEST(UserFoldersTest, ThePreferencesAreInTheLibrary) {
    EXPECT_EQ(preferencesFolderIn("/home/z"), "/home/z/Library/Preferences");
}

} // namespace quorvi::test
