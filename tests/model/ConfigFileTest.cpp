// What a process remembers of a file between its saves, and the handling of other programs' changes.
#include "model/ConfigFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

#include "base/ForkedChild.h"
#include "base/KeptCopies.h"
#include "model/ConfigFileFixture.h"
#include "plist/Limits.h"
#include "support/UmaskGuard.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Value;
namespace fs = std::filesystem;
using Names = std::set<std::string>;

TEST_F(ConfigFileTest, keepsTheKeysOfOthersFromSaveToSave) {
    put(dict({{"zebra", 1}, {"quorvi", settings(1)}, {"apple", list({true})}}));
    ASSERT_TRUE(load());
    for (int light = 2; light < 5; ++light) {
        ASSERT_TRUE(file.save(settings(light)));
        EXPECT_EQ(Value(content()),
            Value(dict({{"zebra", 1}, {"quorvi", settings(light)}, {"apple", list({true})}})));
        EXPECT_EQ(content().entries()[1].key, "quorvi");
    }
    EXPECT_EQ(folder.names(), Names{"file.plist"});
}

TEST_F(ConfigFileTest, seesKeysThatOthersChangeBetweenTwoSaves) {
    put(dict({{"other", 1}, {"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    ASSERT_TRUE(file.save(settings(2)));
    put(dict({{"other", 2}, {"new", true}, {"quorvi", settings(2)}}));
    ASSERT_TRUE(file.save(settings(3)));
    EXPECT_EQ(Value(content()), Value(dict({{"other", 2}, {"new", true}, {"quorvi", settings(3)}})));
    EXPECT_EQ(folder.names(), Names{"file.plist"}); // no settings were overwritten
}

// The bytes may differ even if size and times are those of the known file.
TEST_F(ConfigFileTest, looksAtTheBytesAndNotAtTheTimes) {
    put(dict({{"other", 1}, {"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    ASSERT_TRUE(file.save(settings(2)));
    struct stat before = {};
    ASSERT_EQ(::stat(path().c_str(), &before), 0);
    put(dict({{"other", 7}, {"quorvi", settings(2)}}));
    const std::array times{before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, path().c_str(), times.data(), 0), 0);
    ASSERT_TRUE(file.save(settings(3)));
    EXPECT_EQ(content().integer("other"), 7);
}

TEST_F(ConfigFileTest, seesWhatAnotherWritesAmidASaveBeforeItReplacesTheFile) {
    class CallsAmidSave : public ScriptedCalls {
      public:
        std::function<void()> amidSave;
        int fsync(int synced) override {
            if (const auto act = std::exchange(amidSave, nullptr))
                act();
            return ScriptedCalls::fsync(synced);
        }
    } amid;
    ConfigFile ours("quorvi", path(), amid);
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(ours.load(kVersion, {}));
    amid.amidSave = [&] { put(dict({{"quorvi", settings(1)}, {"other", 1}})); };
    ASSERT_TRUE(ours.save(settings(2)));
    EXPECT_EQ(Value(content()), Value(dict({{"quorvi", settings(2)}, {"other", 1}})));
    EXPECT_EQ(std::ranges::count(amid.log, "rename"), 1) << "theirs was never out of its place";
}

TEST_F(ConfigFileTest, startsAnewWhereTheFileWasRemoved) {
    put(dict({{"other", 1}, {"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    fs::remove(path());
    ASSERT_TRUE(file.save(settings(2)));
    EXPECT_EQ(Value(content()), Value(dict({{"quorvi", settings(2)}})));
}

TEST_F(ConfigFileTest, handsTheTreeOutAloneAndHoldsNoneOfIt) {
    put(dict({{"quorvi", settings(1)}}));
    const auto tree = load();
    tree.dictionary("settings").set("light", 9);
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    ASSERT_TRUE(file.save(settings(2)));
    EXPECT_EQ(load().dictionary("settings").integer("light"), 2);
}

TEST_F(ConfigFileTest, tellsAnotherTreeFromItsOwn) {
    EXPECT_FALSE(file.holdsAnotherTree(kVersion)); // nothing is known
    put(dict({{"quorvi", settings(1)}}));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    ASSERT_TRUE(load());
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    put(dict({{"quorvi", settings(2)}}));
    EXPECT_TRUE(file.holdsAnotherTree(kVersion));
    EXPECT_TRUE(file.holdsAnotherTree(kVersion)); // until it is loaded
    ASSERT_TRUE(load());
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    ASSERT_TRUE(file.save(settings(3)));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    put(dict({{"other", 1}, {"quorvi", settings(3)}}));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion)); // only others' keys
    file.forget();
    put(dict({{"quorvi", settings(4)}}));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
}

TEST_F(ConfigFileTest, takesAFileThatIsGoneOrSpoiledForNoTree) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    for (const auto* spoiled : {"", "<plist><dict>", "no property list"}) {
        writeFile(path(), spoiled);
        EXPECT_FALSE(file.holdsAnotherTree(kVersion)) << spoiled;
    }
    put(dict({{"quorvi", dict({{"version", kVersion}})}}));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion)) << "not valid";
    fs::remove(path());
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    put(dict({{"quorvi", settings(1)}}));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion)) << "as it was";
}

TEST_F(ConfigFileTest, findsATreeWhereThereWasNoFile) {
    EXPECT_FALSE(load());
    put(dict({{"quorvi", settings(1)}}));
    EXPECT_TRUE(file.holdsAnotherTree(kVersion));
}

TEST_F(ConfigFileTest, keepsWhatOthersHaveSetBeforeItReplacesIt) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    put(dict({{"quorvi", settings(2)}}));
    const auto theirs = readFile(path());
    ASSERT_TRUE(file.save(settings(3)));
    EXPECT_EQ(content().dictionary("quorvi").dictionary("settings").integer("light"), 3);
    EXPECT_EQ(readFile(copy(1)), theirs);
    EXPECT_EQ(modeOf(copy(1)), 0600U);
    EXPECT_EQ(file.takeKeptCopy(), copy(1));
    EXPECT_EQ(file.takeKeptCopy(), std::nullopt);
    ASSERT_TRUE(file.save(settings(4)));
    EXPECT_EQ(file.takeKeptCopy(), std::nullopt);
    EXPECT_EQ(folder.names(), (Names{"file.kept-1.plist", "file.plist"}));
}

TEST_F(ConfigFileTest, keepsWhatOthersHaveSpoiled) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    writeFile(path(), "<plist><dict><key>a slip of the hand");
    ASSERT_TRUE(file.save(settings(2)));
    EXPECT_EQ(readFile(copy(1)), "<plist><dict><key>a slip of the hand");
    EXPECT_EQ(file.takeKeptCopy(), copy(1));
}

// The panel has then started from its defaults, so no notice is needed.
TEST_F(ConfigFileTest, keepsQuietlyWhatItCouldNotLoad) {
    for (const auto& refused : {Value(dict({{"quorvi", dict({{"version", 5}})}})), Value(list({1}))}) {
        put(refused);
        const auto old = readFile(path());
        EXPECT_FALSE(load());
        ASSERT_TRUE(file.save(settings(1)));
        EXPECT_EQ(file.takeKeptCopy(), std::nullopt);
        EXPECT_EQ(readFile(copy(static_cast<int>(folder.names().size()) - 1)), old);
    }
    put(dict({{"other", 1}})); // no settings
    EXPECT_FALSE(load());
    ASSERT_TRUE(file.save(settings(1)));
    EXPECT_EQ(folder.names().size(), 3U);
}

TEST_F(ConfigFileTest, keepsNothingWithoutALoadOrASaveBefore) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(file.save(settings(2)));
    EXPECT_EQ(folder.names(), Names{"file.plist"});
}

TEST_F(ConfigFileTest, savesNothingWhenTheCopyCannotBeMade) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    put(dict({{"quorvi", settings(2)}}));
    const auto theirs = readFile(path());
    for (const auto* call : {"open", "write", "sync file", "close", "rename"}) {
        calls.failing = call;
        calls.failures = 1;
        EXPECT_FALSE(file.save(settings(3))) << call;
        EXPECT_EQ(readFile(path()), theirs) << call;
        EXPECT_EQ(folder.names(), Names{"file.plist"}) << call;
    }
    calls.failing.clear();
    EXPECT_TRUE(file.save(settings(3)));
    EXPECT_EQ(readFile(copy(1)), theirs);
}

TEST_F(ConfigFileTest, keepsOneCopyHoweverOftenTheSaveFails) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    put(dict({{"quorvi", settings(2)}}));
    calls.failing = "chmod"; // of the replaced file alone
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(file.save(settings(3)));
    EXPECT_EQ(folder.names(), Names{"file.plist"}); // the copy is the file itself, which still has its name
    calls.failing.clear();
    EXPECT_TRUE(file.save(settings(3)));
    EXPECT_EQ(folder.names(), (Names{"file.kept-1.plist", "file.plist"}));
}

// Otherwise the next save would treat it as another program's.
TEST_F(ConfigFileTest, knowsItsOwnFileWhoseFolderCouldNotBeSynced) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    calls.failing = "sync folder";
    calls.failures = 1;
    EXPECT_FALSE(file.save(settings(2)));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    EXPECT_TRUE(file.save(settings(3)));
    EXPECT_EQ(folder.names(), Names{"file.plist"});
}

TEST_F(ConfigFileTest, knowsALargeFileAgainWithoutHoldingIt) {
    const plist::Data large(ConfigFile::kMaxRemembered, 1);
    put(dict({{"large", large}, {"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    ASSERT_TRUE(file.save(settings(2)));
    EXPECT_EQ(Value(content()), Value(dict({{"large", large}, {"quorvi", settings(2)}})));
    EXPECT_FALSE(file.holdsAnotherTree(kVersion));
    put(dict({{"large", large}, {"quorvi", settings(3)}}));
    EXPECT_TRUE(file.holdsAnotherTree(kVersion));
    const auto theirs = readFile(path());
    ASSERT_TRUE(file.save(settings(4)));
    EXPECT_EQ(Value(content()), Value(dict({{"large", large}, {"quorvi", settings(4)}})));
    EXPECT_EQ(readFile(copy(1)), theirs);
}

TEST_F(ConfigFileTest, keepsWhatIsDamagedOfAnySize) {
    const std::string damaged(std::size_t{2} << 20U, 'x');
    writeFile(path(), damaged);
    EXPECT_FALSE(load());
    ASSERT_TRUE(file.save(settings(1)));
    EXPECT_EQ(readFile(copy(1)), damaged);
    EXPECT_EQ(file.takeKeptCopy(), std::nullopt); // that has been so from the start
}

TEST_F(ConfigFileTest, keepsWhatIsTooLargeToBeRead) {
    writeFile(path(), "");
    fs::resize_file(path(), plist::kMaxBytes + 1); // takes no room on the disk
    EXPECT_FALSE(load());
    ASSERT_TRUE(file.save(settings(1)));
    EXPECT_EQ(fs::file_size(copy(1)), plist::kMaxBytes + 1);
    EXPECT_EQ(content().dictionary("quorvi").dictionary("settings").integer("light"), 1);
    ASSERT_TRUE(file.save(settings(2)));
    EXPECT_EQ(folder.names(), (Names{"file.kept-1.plist", "file.plist"}));
}

// Unlike a hard link, a rename does not need permission to read.
TEST_F(ConfigFileTest, keepsWhatItMayNotRead) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs a file of another user";
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_EQ(::chmod(path().c_str(), 0600), 0);
    ASSERT_EQ(::chown(folder.path().c_str(), 65534, 65534), 0); // root's file in a folder of one's own
    const auto old = readFile(path());
    const auto saveTwice = [&] {
        return !load() && file.save(settings(2)) && !file.takeKeptCopy() && file.save(settings(3)) &&
               load().dictionary("settings").integer("light") == 3;
    };
    EXPECT_EQ(inChild(dropPrivileges, saveTwice), Outcome::Succeeded);
    EXPECT_EQ(readFile(copy(1)), old);
    EXPECT_EQ(modeOf(path()), 0600U);
    EXPECT_EQ(folder.names(), (Names{"file.kept-1.plist", "file.plist"})); // once is enough
}

TEST_F(ConfigFileTest, saysWhatIsInTheWay) {
    fs::create_directory(path());
    EXPECT_FALSE(file.save(settings(1)));
    EXPECT_EQ(file.error(), EISDIR);
    fs::remove(path());
    fs::create_symlink("file.plist", path());
    EXPECT_FALSE(file.save(settings(1)));
    EXPECT_EQ(file.error(), ELOOP);
    fs::remove(path());
    fs::create_symlink("/dev/null", path());
    EXPECT_FALSE(file.save(settings(1)));
    EXPECT_EQ(file.error(), ENXIO);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    fs::remove(path());
    calls.failing = "write";
    calls.error = ENOSPC;
    EXPECT_FALSE(file.save(settings(1)));
    EXPECT_EQ(file.error(), ENOSPC);
    calls.failing.clear();
    EXPECT_TRUE(file.save(settings(1)));
    EXPECT_EQ(file.error(), 0);
    EXPECT_EQ(folder.names(), Names{"file.plist"});
}

TEST_F(ConfigFileTest, makesANewFileItsOwnersAloneWhateverTheMask) {
    for (const mode_t mask : {0U, 077U, 0777U}) {
        fs::remove(path());
        const UmaskGuard guard(mask);
        EXPECT_TRUE(file.save(settings(1)));
        EXPECT_EQ(modeOf(path()), 0600U);
    }
}

TEST_F(ConfigFileTest, savesNothingOfATreeThatNoPropertyListHoldsAndGoesOn) {
    put(dict({{"other", 1}, {"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    EXPECT_FALSE(file.save(dict({{"nothing", Value()}})));
    EXPECT_EQ(Value(content()), Value(dict({{"other", 1}, {"quorvi", settings(1)}})));
    EXPECT_TRUE(file.save(settings(2)));
    EXPECT_EQ(Value(content()), Value(dict({{"other", 1}, {"quorvi", settings(2)}})));
}

class KeptCopies : public ConfigFileTest {
  protected:
    /// Makes a save keep the bytes; returns the copy's path.
    std::optional<fs::path> keep(const std::string& bytes) {
        if (!file.save(settings(0)))
            return {};
        writeFile(path(), bytes);
        return file.save(settings(1)) ? file.takeKeptCopy() : std::nullopt;
    }
};

TEST_F(KeptCopies, goOnCountingAndMakeRoomForTheNewest) {
    put(dict());
    const auto others = {"file.kept-x.plist", "file.kept-01.plist", "file.kept-.plist", "other.kept-1.plist"};
    for (const auto* name : others)
        writeFile(folder / name, name);
    for (int i = 1; i <= 12; ++i)
        EXPECT_EQ(keep(std::to_string(i)), copy(i));
    EXPECT_FALSE(fs::exists(copy(2)));
    EXPECT_EQ(readFile(copy(3)), "3");
    EXPECT_EQ(readFile(copy(12)), "12");
    EXPECT_EQ(folder.names().size(), 1 + others.size() + kMaxKeptCopies);
    for (const auto* name : others)
        EXPECT_EQ(readFile(folder / name), name);
}

TEST_F(KeptCopies, areNotStoppedByTheHighestNumber) {
    constexpr std::uint32_t highest = 4294967295;
    for (std::uint32_t i = 0; i < kMaxKeptCopies; ++i)
        writeFile(folder / ("file.kept-" + std::to_string(highest - i) + ".plist"), "theirs");
    EXPECT_EQ(keep("a"), copy(1)); // and is not the one that makes room
    EXPECT_EQ(readFile(copy(1)), "a");
    EXPECT_EQ(keep("b"), copy(2));
    EXPECT_EQ(folder.names().size(), 1 + kMaxKeptCopies);
}

TEST_F(KeptCopies, areOnTheDiskBeforeTheFileIsReplaced) {
    put(dict({{"quorvi", settings(1)}}));
    ASSERT_TRUE(load());
    put(dict({{"quorvi", settings(2)}}));
    ASSERT_TRUE(file.save(settings(3), Durability::later)); // also in a drag
    EXPECT_EQ(calls.log, (ScriptedCalls::Log{"open", "write", "chmod", "close", "sync file", "close",
                             "rename", "rename", "sync folder"}));
}

} // namespace
} // namespace quorvi
