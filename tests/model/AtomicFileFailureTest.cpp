// What the system calls under an atomic replacement are, in which order, and what happens when one of them
// fails.
#include "model/AtomicFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "support/Files.h"

namespace quorvi {
namespace {

using namespace test;
using Log = std::vector<std::string>;
using Names = std::set<std::string>;

/// Writes the calls down and passes them on to the system, unless one is to fail.
class ScriptedCalls : public FileCalls {
  public:
    Log log;
    /// Fails the call of this name, every time or (with failures above 0) that many times.
    std::string failing;
    int failures = -1;
    int error = EIO;
    std::size_t longestWrite = SIZE_MAX;

    int openat(int folder, const char* name, int flags, mode_t mode) override {
        return fails("open") ? -1 : FileCalls::openat(folder, name, flags, mode);
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return fails("write") ? -1 : FileCalls::write(file, bytes, std::min(count, longestWrite));
    }
    int fchown(int file, uid_t owner, gid_t group) override {
        return fails("chown") ? -1 : FileCalls::fchown(file, owner, group);
    }
    int fchmod(int file, mode_t mode) override { return fails("chmod") ? -1 : FileCalls::fchmod(file, mode); }
    int fsync(int file) override {
        return fails(isFolder(file) ? "sync folder" : "sync file") ? -1 : FileCalls::fsync(file);
    }
    int close(int file) override {
        const int result = FileCalls::close(file);
        return fails("close") ? -1 : result;
    }
    int renameat(int folder, const char* from, const char* to) override {
        return fails("rename") ? -1 : FileCalls::renameat(folder, from, to);
    }
    int unlinkat(int folder, const char* name) override {
        return fails("unlink") ? -1 : FileCalls::unlinkat(folder, name);
    }

  private:
    static bool isFolder(int file) {
        struct stat status = {};
        return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
    }
    bool fails(const std::string& call) {
        log.push_back(call);
        if (call != failing || failures == 0)
            return false;
        --failures;
        errno = error;
        return true;
    }
};

class AtomicFileCalls : public testing::Test {
  protected:
    AtomicFileCalls() {
        writeFile(path(), "old");
        ::chmod(path().c_str(), 0640);
    }
    [[nodiscard]] std::filesystem::path path() const { return m_folder / "file"; }
    [[nodiscard]] bool replace(std::string_view bytes = "new") {
        return replaceFileAtomically(path(), bytes, calls);
    }
    [[nodiscard]] Names names() const { return m_folder.names(); }

    ScriptedCalls calls;

  private:
    TemporaryFolder m_folder;
};

TEST_F(AtomicFileCalls, bringTheDataToTheDiskBeforeTheRenameAndTheFolderAfterIt) {
    ASSERT_TRUE(replace());
    EXPECT_EQ(calls.log, (Log{"open", "write", "chmod", "sync file", "close", "rename", "sync folder"}));
}

TEST_F(AtomicFileCalls, leaveTheDiskForLaterWhenAskedTo) {
    ASSERT_TRUE(replaceFileAtomically(path(), "new", calls, Durability::later));
    EXPECT_EQ(calls.log, (Log{"open", "write", "chmod", "close", "rename"}));
    EXPECT_EQ(readFile(path()), "new");
    calls.log.clear();
    EXPECT_TRUE(syncFile(path(), calls));
    EXPECT_EQ(calls.log, (Log{"open", "sync file", "sync folder", "close"}));
}

TEST_F(AtomicFileCalls, syncThroughALinkAndRepeatWhatIsInterrupted) {
    const auto link = path().parent_path() / "link";
    std::filesystem::create_symlink("file", link);
    calls.failing = "sync file";
    calls.failures = 2;
    calls.error = EINTR;
    EXPECT_TRUE(syncFile(link, calls));
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "sync file"), 3);
}

TEST_F(AtomicFileCalls, reportWhatCannotBeSynced) {
    for (const auto* call : {"open", "sync file", "sync folder"}) {
        calls.failing = call;
        EXPECT_FALSE(syncFile(path(), calls)) << call;
    }
    calls.failing.clear();
    std::filesystem::remove(path());
    EXPECT_FALSE(syncFile(path(), calls));
    EXPECT_FALSE(syncFile(path() / "below", calls));
    ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
    EXPECT_FALSE(syncFile(path(), calls));
}

TEST_F(AtomicFileCalls, neverTouchTheModeOfANewFile) {
    std::filesystem::remove(path());
    ASSERT_TRUE(replace());
    EXPECT_EQ(calls.log, (Log{"open", "write", "sync file", "close", "rename", "sync folder"}));
}

TEST_F(AtomicFileCalls, goOnAfterShortWrites) {
    calls.longestWrite = 2;
    EXPECT_TRUE(replace("seven77"));
    EXPECT_EQ(readFile(path()), "seven77");
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "write"), 4);
}

TEST_F(AtomicFileCalls, failWhenNothingIsWrittenAtAll) {
    calls.longestWrite = 0;
    EXPECT_FALSE(replace());
    EXPECT_EQ(readFile(path()), "old");
}

TEST_F(AtomicFileCalls, repeatInterruptedWritesAndSyncs) {
    for (const auto* call : {"write", "sync file", "sync folder"}) {
        calls.failing = call;
        calls.failures = 3;
        calls.error = EINTR;
        calls.log.clear();
        EXPECT_TRUE(replace(call)) << call;
        EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), call), 4);
        EXPECT_EQ(readFile(path()), call);
    }
}

TEST_F(AtomicFileCalls, tryAnotherNameForTheTemporaryFile) {
    calls.failing = "open";
    calls.failures = 3;
    calls.error = EEXIST;
    EXPECT_TRUE(replace());
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "open"), 4);
}

TEST_F(AtomicFileCalls, giveUpWhenEveryNameIsTaken) {
    calls.failing = "open";
    calls.error = EEXIST;
    EXPECT_FALSE(replace());
    EXPECT_EQ(readFile(path()), "old");
}

TEST_F(AtomicFileCalls, succeedWhereAFolderCannotBeSynced) {
    calls.failing = "sync folder";
    calls.error = EINVAL;
    EXPECT_TRUE(replace());
}

// Some file systems give all files one mode and refuse to change it.
TEST_F(AtomicFileCalls, doNotChangeAModeThatIsRight) {
    ::chmod(path().c_str(), 0600);
    calls.failing = "chmod";
    EXPECT_TRUE(replace());
    EXPECT_EQ(modeOf(path()), 0600U);
}

TEST_F(AtomicFileCalls, reportAFolderThatFailedToSync) {
    calls.failing = "sync folder";
    EXPECT_FALSE(replace());
    EXPECT_EQ(readFile(path()), "new"); // the rename was done
    EXPECT_EQ(names(), Names{"file"});
}

TEST_F(AtomicFileCalls, closeTheTemporaryFileOnce) {
    ASSERT_TRUE(replace());
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "close"), 1);
    calls.log.clear();
    calls.failing = "close";
    EXPECT_FALSE(replace());
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "close"), 1);
}

class AtomicFileFailure : public AtomicFileCalls, public testing::WithParamInterface<const char*> {};

TEST_P(AtomicFileFailure, leavesTheOldFileAndNoTemporary) {
    calls.failing = GetParam();
    EXPECT_FALSE(replace());
    EXPECT_EQ(readFile(path()), "old");
    EXPECT_EQ(modeOf(path()), 0640U);
    EXPECT_EQ(names(), Names{"file"});
}

INSTANTIATE_TEST_SUITE_P(
    EveryCall, AtomicFileFailure, testing::Values("open", "write", "chmod", "sync file", "close", "rename"));

} // namespace
} // namespace quorvi
