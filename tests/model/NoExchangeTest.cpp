// Saves on a file system that cannot exchange names or check whether one is free: they use another way, and
// lose no more.
#include <gtest/gtest.h>

#include <functional>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "base/ForkedChild.h"
#include "model/ConfigFileFixture.h"
#include "plist/DeepCopy.h"
#include "plist/Limits.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using plist::Value;
namespace fs = std::filesystem;
using FileNames = std::set<std::string>;

class CallsWithoutExchange : public FileCalls {
  public:
    explicit CallsWithoutExchange(int error) : m_error(error) {}

    /// Called once, when a save syncs its file.
    std::function<void()> amidSave;
    std::function<void()> beforeRename = [] {};
    /// Called once, when a save finds that names cannot be exchanged.
    std::function<void()> amidExchange;

    int renameat2(int /*folder*/, const char* /*from*/, const char* /*to*/, unsigned /*flags*/) override {
        if (const auto act = std::exchange(amidExchange, nullptr))
            act();
        errno = m_error;
        return -1;
    }
    int fsync(int /*file*/) override {
        if (const auto act = std::exchange(amidSave, nullptr))
            act();
        return 0;
    }
    int renameat(int folder, const char* from, const char* to) override {
        beforeRename();
        if (failsToReplace && std::string_view(to) == "file.plist") {
            errno = EIO;
            return -1;
        }
        return FileCalls::renameat(folder, from, to);
    }

    bool failsToReplace = false;

  private:
    int m_error;
};

/// A copy of the tree with that setting.
Dictionary with(const Dictionary& tree, const char* key, int value) {
    const auto changed = plist::mutableDeepCopy(tree);
    changed.dictionary("settings").set(key, value);
    return changed;
}

class NoExchange : public ConfigFileTest, public testing::WithParamInterface<FileError> {
  protected:
    [[nodiscard]] Dictionary savedSettings() const {
        return content().dictionary("quorvi").dictionary("settings");
    }
    /// Expects a kept copy and returns its bytes. Its number is not the next one: the new file has that for a
    /// moment.
    [[nodiscard]] std::string kept() {
        const auto copy = ours.takeKeptCopy();
        return copy ? readFile(*copy) : std::string();
    }

    CallsWithoutExchange plain{GetParam().number};
    ConfigFile ours{"quorvi", path(), plain};
    ConfigFile theirs{"quorvi", path(), plain};
};

TEST_P(NoExchange, savesANewFileAndOverAnOldOne) {
    for (int light = 1; light < 4; ++light) {
        EXPECT_TRUE(ours.save(settings(light)));
        EXPECT_EQ(ours.error(), 0);
        EXPECT_EQ(savedSettings().integer("light"), light);
        EXPECT_EQ(modeOf(path()), 0600U);
        EXPECT_EQ(folder.names(), FileNames{"file.plist"});
    }
}

TEST_P(NoExchange, joinsWhatTwoWritersHaveChanged) {
    put(dict({{"quorvi", settings(1)}, {"other", 1}}));
    const auto tree = ours.load(kVersion, {});
    ASSERT_TRUE(theirs.load(kVersion, {}));
    ASSERT_TRUE(theirs.save(with(tree, "theirs", 2)));
    ASSERT_TRUE(ours.save(with(tree, "ours", 3)));
    EXPECT_TRUE(ours.tookChangesOver());
    EXPECT_EQ(Value(savedSettings()), Value(dict({{"light", 1}, {"ours", 3}, {"theirs", 2}})));
    EXPECT_EQ(content().integer("other"), 1);
    EXPECT_EQ(folder.names(), FileNames{"file.plist"});
}

TEST_P(NoExchange, joinsWhatAnotherWritesAmidTheSave) {
    put(dict({{"quorvi", settings(1)}}));
    const auto tree = ours.load(kVersion, {});
    ASSERT_TRUE(theirs.load(kVersion, {}));
    bool saved = false;
    plain.amidSave = [&] { saved = theirs.save(with(tree, "theirs", 2)); };
    ASSERT_TRUE(ours.save(with(tree, "ours", 3)));
    EXPECT_TRUE(saved);
    EXPECT_EQ(Value(savedSettings()), Value(dict({{"light", 1}, {"ours", 3}, {"theirs", 2}})));
    EXPECT_EQ(folder.names(), FileNames{"file.plist"});
}

// The look before trusts the system's clock, which an exchange would make good for.
TEST_P(NoExchange, joinsWhatAnotherWritesAfterTheLook) {
    put(dict({{"quorvi", settings(1)}}));
    const auto tree = ours.load(kVersion, {});
    plain.amidExchange = [&] { put(dict({{"quorvi", with(tree, "theirs", 2)}})); };
    ASSERT_TRUE(ours.save(with(tree, "ours", 3)));
    EXPECT_EQ(Value(savedSettings()), Value(dict({{"light", 1}, {"ours", 3}, {"theirs", 2}})));
}

TEST_P(NoExchange, joinsWithAFileThatComesAmidTheFirstSave) {
    ASSERT_FALSE(ours.load(kVersion, {}));
    plain.amidSave = [&] { put(dict({{"other", 1}})); };
    ASSERT_TRUE(ours.save(settings(2)));
    EXPECT_EQ(Value(content()), Value(dict({{"other", 1}, {"quorvi", settings(2)}})));
}

TEST_P(NoExchange, keepsWhatAnotherHasSetAlike) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(ours.load(kVersion, {}));
    std::string old;
    plain.amidSave = [&] {
        put(dict({{"quorvi", settings(2)}}));
        old = readFile(path());
    };
    ASSERT_TRUE(ours.save(settings(3)));
    EXPECT_EQ(savedSettings().integer("light"), 3);
    EXPECT_EQ(kept(), old);
    EXPECT_EQ(folder.names().size(), 2U);
    ASSERT_TRUE(ours.save(settings(4)));
    EXPECT_EQ(folder.names().size(), 2U) << "once is enough";
}

TEST_P(NoExchange, keepsWhatIsDamagedOrTooLarge) {
    ASSERT_TRUE(ours.save(settings(1)));
    writeFile(path(), "a slip of the hand");
    ASSERT_TRUE(ours.save(settings(2)));
    EXPECT_EQ(kept(), "a slip of the hand");
    fs::resize_file(path(), plist::kMaxBytes + 1); // takes no room on the disk
    ASSERT_TRUE(ours.save(settings(3)));
    const auto copy = ours.takeKeptCopy();
    ASSERT_TRUE(copy);
    EXPECT_EQ(fs::file_size(*copy), plist::kMaxBytes + 1);
    EXPECT_EQ(savedSettings().integer("light"), 3);
}

// Another user's file cannot be hard-linked; it is renamed instead.
TEST_P(NoExchange, keepsWhatItMayNotRead) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs a file of another user";
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_EQ(::chmod(path().c_str(), 0600), 0);
    ASSERT_EQ(::chown(folder.path().c_str(), 65534, 65534), 0);
    const auto old = readFile(path());
    EXPECT_EQ(inChild(dropPrivileges, [&] { return ours.save(settings(2)) && ours.save(settings(3)); }),
        Outcome::Succeeded);
    EXPECT_EQ(savedSettings().integer("light"), 3);
    auto names = folder.names();
    EXPECT_EQ(names.erase("file.plist"), 1U);
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(readFile(folder / *names.begin()), old);
}

TEST_P(NoExchange, leavesTheOldFileAndNoCopyWhenItCannotBeReplaced) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(ours.load(kVersion, {}));
    put(dict({{"quorvi", settings(2)}})); // which would have to be kept
    const auto old = readFile(path());
    plain.failsToReplace = true;
    EXPECT_FALSE(ours.save(settings(3)));
    EXPECT_EQ(ours.error(), EIO);
    EXPECT_EQ(readFile(path()), old);
    EXPECT_EQ(folder.names(), FileNames{"file.plist"});
    plain.failsToReplace = false;
    EXPECT_TRUE(ours.save(settings(3)));
    EXPECT_EQ(kept(), old);
}

// Only the lock keeps other writers out between the last look and the rename.
TEST_P(NoExchange, holdsTheLockWhenTheNamesChange) {
    int locked = 0;
    plain.beforeRename = [&] {
        const int another = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        locked += ::flock(another, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK ? 1 : 0;
        ::close(another);
    };
    ASSERT_TRUE(ours.save(settings(1)));
    EXPECT_EQ(locked, 1);
    ASSERT_TRUE(ours.save(settings(2)));
    EXPECT_EQ(locked, 2);
}

TEST_P(NoExchange, losesNothingOfTwoWritersWithoutAPause) {
    constexpr int saves = 50;
    put(dict({{"quorvi", settings(1)}}));
    const auto write = [&](const std::string& party) {
        CallsWithoutExchange ownCalls(GetParam().number);
        ConfigFile own("quorvi", path(), ownCalls);
        const auto tree = own.load(kVersion, {});
        for (int i = 0; i < saves; ++i) {
            tree.dictionary("settings").set(party + std::to_string(i), i);
            EXPECT_TRUE(own.save(tree));
        }
    };
    std::thread other(write, "theirs");
    write("ours");
    other.join();
    EXPECT_EQ(savedSettings().size(), 1U + 2U * saves);
    EXPECT_EQ(folder.names(), FileNames{"file.plist"});
}

INSTANTIATE_TEST_SUITE_P(Answers, NoExchange,
    testing::Values(
        FileError{"EINVAL", EINVAL}, FileError{"ENOSYS", ENOSYS}, FileError{"EOPNOTSUPP", EOPNOTSUPP}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace quorvi
