// Who may use the mice of a seat.
#include "inputd/bus/WhoMay.h"

#include <gtest/gtest.h>

#include <fstream>

#include "inputd/bus/AllowedUsers.h"
#include "support/TemporaryFolder.h"

namespace quorvi::inputd {
namespace {

constexpr uid_t kAnna = 1000;
constexpr uid_t kBerta = 1001;

ActiveSession annas() {
    return {kAnna, "user", "active", false};
}

TEST(WhoMay, IsTheUserOfTheActiveLocalSessionAlone) {
    EXPECT_TRUE(mayUse(kAnna, annas()));
    EXPECT_FALSE(mayUse(kBerta, annas()));
    EXPECT_FALSE(mayUse(0, annas())) << "root has other ways, and this is not one of them";
    EXPECT_FALSE(mayUse(kAnna, std::nullopt));
}

TEST(WhoMay, IsNobodyWhereAGreeterALockScreenOrARemoteSessionIsOrOneThatEnds) {
    for (const char* kind : {"greeter", "lock-screen", "background", ""}) {
        auto session = annas();
        session.kind = kind;
        EXPECT_FALSE(mayUse(kAnna, session)) << kind;
    }
    for (const char* state : {"closing", "online", ""}) {
        auto session = annas();
        session.state = state;
        EXPECT_FALSE(mayUse(kAnna, session)) << state;
    }
    auto remote = annas();
    remote.isRemote = true;
    EXPECT_FALSE(mayUse(kAnna, remote));
}

TEST(AllowedUsers, AreKeptForTheNextStart) {
    const test::TemporaryFolder folder;
    {
        AllowedUsers users(folder.path());
        EXPECT_FALSE(users.contains(kAnna));
        EXPECT_TRUE(users.add(kAnna));
        EXPECT_TRUE(users.add(kBerta));
    }
    const AllowedUsers users(folder.path());
    EXPECT_TRUE(users.contains(kAnna));
    EXPECT_TRUE(users.contains(kBerta));
    EXPECT_FALSE(users.contains(0));
    EXPECT_EQ(folder.names(), std::set<std::string>{"users"});
}

TEST(AllowedUsers, CountUntilTheEndWhenTheyCannotBeWrittenDown) {
    AllowedUsers users("/nonexistent");
    EXPECT_FALSE(users.add(kAnna));
    EXPECT_TRUE(users.contains(kAnna));
}

TEST(AllowedUsers, OfADamagedFileAreThoseBeforeTheDamage) {
    const test::TemporaryFolder folder;
    std::ofstream(folder.path("users")) << "1000\nanna\n0\n";
    const AllowedUsers users(folder.path());
    EXPECT_TRUE(users.contains(kAnna));
    EXPECT_FALSE(users.contains(0));
}

} // namespace
} // namespace quorvi::inputd
