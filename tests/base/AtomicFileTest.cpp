#include "base/AtomicFile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "base/ForkedChild.h"
#include "support/Files.h"
#include "support/UmaskGuard.h"

namespace quorvi {
namespace {

using namespace test;
namespace fs = std::filesystem;

using FileNames = std::set<std::string>;

TEST(replaceFileAtomically, createsAFile) {
    const TemporaryFolder folder;
    EXPECT_TRUE(replaceFileAtomically(folder / "file", "new"));
    EXPECT_EQ(readFile(folder / "file"), "new");
    EXPECT_EQ(folder.names(), FileNames{"file"});
}

TEST(replaceFileAtomically, replacesALongerFileWhole) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "a much longer old content");
    EXPECT_TRUE(replaceFileAtomically(folder / "file", "new"));
    EXPECT_EQ(readFile(folder / "file"), "new");
    EXPECT_EQ(folder.names(), FileNames{"file"});
}

TEST(replaceFileAtomically, writesBytesOfAnyValueAndNone) {
    const TemporaryFolder folder;
    const std::string bytes("a\0\xFF\n", 4);
    EXPECT_TRUE(replaceFileAtomically(folder / "file", bytes));
    EXPECT_EQ(readFile(folder / "file"), bytes);
    EXPECT_TRUE(replaceFileAtomically(folder / "file", ""));
    EXPECT_EQ(readFile(folder / "file"), "");
}

TEST(replaceFileAtomically, leavesAReaderOfTheOldFileItsContent) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "old");
    fs::create_hard_link(folder / "file", folder / "other");
    EXPECT_TRUE(replaceFileAtomically(folder / "file", "new"));
    EXPECT_EQ(readFile(folder / "other"), "old");
}

TEST(replaceFileAtomically, keepsTheModeOfTheOldFile) {
    const UmaskGuard mask(022);
    const TemporaryFolder folder;
    for (const mode_t mode : {0600U, 0664U, 0444U, 0755U}) {
        writeFile(folder / "file", "old");
        ASSERT_EQ(::chmod((folder / "file").c_str(), mode), 0);
        EXPECT_TRUE(replaceFileAtomically(folder / "file", "new"));
        EXPECT_EQ(modeOf(folder / "file"), mode);
        fs::remove(folder / "file");
    }
}

TEST(replaceFileAtomically, givesANewFileTheModeOfTheMask) {
    const TemporaryFolder folder;
    const UmaskGuard mask(027);
    EXPECT_TRUE(replaceFileAtomically(folder / "file", "new"));
    EXPECT_EQ(modeOf(folder / "file"), 0640U);
}

TEST(replaceFileAtomically, keepsTheOwnerWherePermitted) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root may give files away";
    const TemporaryFolder folder;
    writeFile(folder / "file", "old");
    ASSERT_EQ(::chown((folder / "file").c_str(), 65534, 65533), 0);
    EXPECT_TRUE(replaceFileAtomically(folder / "file", "new"));
    struct stat status = {};
    ASSERT_EQ(::stat((folder / "file").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534U);
    EXPECT_EQ(status.st_gid, 65533U);
}

TEST(replaceFileAtomically, goesOnUnderTheOwnOwnerWhereNotPermitted) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs a file of another user";
    const TemporaryFolder folder;
    writeFile(folder / "file", "old");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(inChild(dropPrivileges, [&] { return replaceFileAtomically(folder / "file", "new"); }),
        Outcome::Succeeded);
    EXPECT_EQ(readFile(folder / "file"), "new");
}

TEST(replaceFileAtomically, writesThroughASymbolicLink) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    writeFile(elsewhere / "target", "old");
    fs::create_symlink(elsewhere / "target", folder / "link");
    EXPECT_TRUE(replaceFileAtomically(folder / "link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(readFile(elsewhere / "target"), "new");
    EXPECT_EQ(folder.names(), FileNames{"link"});
    EXPECT_EQ(elsewhere.names(), FileNames{"target"});
}

TEST(replaceFileAtomically, writesThroughAChainOfRelativeLinks) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "sub");
    writeFile(folder / "sub/target", "old");
    fs::create_symlink("target", folder / "sub/second");
    fs::create_symlink("sub/second", folder / "first");
    EXPECT_TRUE(replaceFileAtomically(folder / "first", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "first"));
    EXPECT_TRUE(fs::is_symlink(folder / "sub/second"));
    EXPECT_EQ(readFile(folder / "sub/target"), "new");
}

TEST(replaceFileAtomically, createsTheTargetOfADanglingLink) {
    const TemporaryFolder folder;
    fs::create_symlink("target", folder / "link");
    EXPECT_TRUE(replaceFileAtomically(folder / "link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(readFile(folder / "target"), "new");
}

TEST(replaceFileAtomically, failsForALoopOfLinks) {
    const TemporaryFolder folder;
    fs::create_symlink("second", folder / "first");
    fs::create_symlink("first", folder / "second");
    EXPECT_FALSE(replaceFileAtomically(folder / "first", "new"));
    EXPECT_EQ(folder.names(), (FileNames{"first", "second"}));
}

TEST(replaceFileAtomically, writesToANameInTheWorkingFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(inChild([&] { return ::chdir(folder.path().c_str()) == 0; },
                  [] { return replaceFileAtomically("file", "new"); }),
        Outcome::Succeeded);
    EXPECT_EQ(readFile(folder / "file"), "new");
}

TEST(replaceFileAtomically, writesAFileWithTheLongestName) {
    const TemporaryFolder folder;
    const std::string longest(255, 'n');
    EXPECT_TRUE(replaceFileAtomically(folder / longest, "new"));
    EXPECT_EQ(readFile(folder / longest), "new");
}

TEST(replaceFileAtomically, failsWithoutAFolder) {
    const TemporaryFolder folder;
    EXPECT_FALSE(replaceFileAtomically(folder / "missing/file", "new"));
    EXPECT_FALSE(replaceFileAtomically("", "new"));
    EXPECT_FALSE(replaceFileAtomically(folder.path().string() + "/", "new"));
    EXPECT_EQ(folder.names(), FileNames());
}

TEST(replaceFileAtomically, replacesOnlyRegularFiles) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    for (const auto* name : {"folder", "fifo"})
        EXPECT_FALSE(replaceFileAtomically(folder / name, "new")) << name;
    EXPECT_EQ(folder.names(), (FileNames{"fifo", "folder"}));
    EXPECT_TRUE(fs::is_fifo(folder / "fifo"));
}

// Uses its own device: if the check ever broke, a test run as root would replace the system's.
TEST(replaceFileAtomically, doesNotReplaceADevice) {
    const TemporaryFolder folder;
    const auto likeDevNull = ::makedev(1, 3);
    if (::mknod((folder / "device").c_str(), S_IFCHR | 0666, likeDevNull) != 0)
        GTEST_SKIP() << "only root may make devices";
    fs::create_symlink("device", folder / "link");
    EXPECT_FALSE(replaceFileAtomically(folder / "device", "new"));
    EXPECT_FALSE(replaceFileAtomically(folder / "link", "new"));
    EXPECT_TRUE(fs::is_character_file(folder / "device"));
    EXPECT_EQ(folder.names(), (FileNames{"device", "link"}));
}

TEST(replaceFileAtomically, failsInAReadOnlyFolder) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "old");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(inChild(dropPrivileges, [&] { return replaceFileAtomically(folder / "file", "new"); }),
        Outcome::Failed);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(readFile(folder / "file"), "old");
    EXPECT_EQ(folder.names(), FileNames{"file"});
}

TEST(replaceFileAtomically, failsOnAFullDisk) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "old");
    const std::string content(100'000, 'x');
    EXPECT_EQ(inChild([] { return limitFileSize(4096); },
                  [&] { return replaceFileAtomically(folder / "file", content); }),
        Outcome::Failed);
    EXPECT_EQ(readFile(folder / "file"), "old");
    EXPECT_EQ(folder.names(), FileNames{"file"});
    EXPECT_EQ(inChild(unchanged, [&] { return replaceFileAtomically(folder / "file", content); }),
        Outcome::Succeeded);
    EXPECT_EQ(readFile(folder / "file"), content);
}

} // namespace
} // namespace quorvi
