// The system calls of an atomic replacement, their order, and the effect of a failure of each.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "base/AtomicFile.h"
#include "base/ScriptedCalls.h"
#include "support/Files.h"

namespace quorvi {
namespace {

using namespace test;
using Log = ScriptedCalls::Log;
using FileNames = std::set<std::string>;

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
    [[nodiscard]] FileNames names() const { return m_folder.names(); }

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
    EXPECT_EQ(names(), FileNames{"file"});
}

TEST_F(AtomicFileCalls, closeTheTemporaryFileOnce) {
    ASSERT_TRUE(replace());
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "close"), 1);
    calls.log.clear();
    calls.failing = "close";
    EXPECT_FALSE(replace());
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "close"), 1);
}

TEST_F(AtomicFileCalls, takeAnInterruptedCloseForOne) {
    calls.failing = "close";
    calls.error = EINTR;
    EXPECT_TRUE(replace());
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), "close"), 1);
    EXPECT_EQ(readFile(path()), "new");
}

TEST_F(AtomicFileCalls, goOnUnderTheOwnOwnerWhenTheOldOneIsRefused) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root may give files away";
    ASSERT_EQ(::chown(path().c_str(), 65534, 65534), 0);
    calls.failing = "chown";
    for (const auto& [name, error] : kFileErrors) {
        calls.error = error;
        EXPECT_TRUE(replace(name)) << name;
        EXPECT_EQ(readFile(path()), name);
    }
}

TEST_F(AtomicFileCalls, removeTheTemporaryFileThoughInterrupted) {
    calls.failing = "rename";
    EXPECT_FALSE(replace());
    calls.failing = "unlink";
    calls.failures = 2;
    calls.error = EINTR;
    calls.longestWrite = 0; // fails as well
    EXPECT_FALSE(replace());
    EXPECT_EQ(names(), FileNames{"file"});
}

/// Every call of a replacement and every error.
class AtomicFileFailure : public AtomicFileCalls,
                          public testing::WithParamInterface<std::tuple<const char*, FileError>> {
  protected:
    AtomicFileFailure() {
        calls.failing = std::get<0>(GetParam());
        calls.error = std::get<1>(GetParam()).number;
        calls.failures = 1;
    }
};

TEST_P(AtomicFileFailure, leavesTheOldFileAndNoTemporaryAndTheNextReplacementSucceeds) {
    EXPECT_FALSE(replace());
    // The folder is synced after the new file is in place; the failure is reported.
    EXPECT_EQ(readFile(path()), calls.failing == "sync folder" ? "new" : "old");
    EXPECT_EQ(modeOf(path()), 0640U);
    EXPECT_EQ(names(), FileNames{"file"});
    EXPECT_TRUE(replace("next"));
    EXPECT_EQ(readFile(path()), "next");
    EXPECT_EQ(names(), FileNames{"file"});
}

INSTANTIATE_TEST_SUITE_P(EveryCallAndError, AtomicFileFailure,
    testing::Combine(testing::Values("open", "write", "chmod", "sync file", "close", "rename", "sync folder"),
        testing::ValuesIn(kFileErrors)),
    [](const auto& tested) {
        std::string call = std::get<0>(tested.param);
        std::replace(call.begin(), call.end(), ' ', '_');
        return call + "_" + std::get<1>(tested.param).name;
    });

class AtomicFileInterruption : public AtomicFileCalls, public testing::WithParamInterface<const char*> {};

TEST_P(AtomicFileInterruption, isTriedAgain) {
    calls.failing = GetParam();
    calls.failures = 3;
    calls.error = EINTR;
    EXPECT_TRUE(replace());
    EXPECT_EQ(std::count(calls.log.begin(), calls.log.end(), calls.failing), 4);
    EXPECT_EQ(readFile(path()), "new");
    EXPECT_EQ(modeOf(path()), 0640U);
    EXPECT_EQ(names(), FileNames{"file"});
}

INSTANTIATE_TEST_SUITE_P(EveryCall, AtomicFileInterruption,
    testing::Values("open", "write", "chmod", "sync file", "rename", "sync folder"));

} // namespace
} // namespace quorvi
