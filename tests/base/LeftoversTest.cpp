// Temporary files of unfinished replacements, and files that only look like them.
#include "base/Leftovers.h"

#include <gtest/gtest.h>

#include <array>
#include <ctime>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/AtomicFile.h"
#include "base/TemporaryName.h"
#include "support/Files.h"

namespace quorvi {
namespace {

using namespace test;
namespace fs = std::filesystem;
using FileNames = std::set<std::string>;

/// The id of a process that has ended and was waited for.
pid_t goneProcess() {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

class Leftovers : public testing::Test {
  protected:
    Leftovers() { writeFile(file(), "settings"); }
    [[nodiscard]] fs::path file() const { return folder / "file"; }
    [[nodiscard]] FileNames left() const {
        removeLeftovers(file());
        return folder.names();
    }
    void makeOld(const std::string& name, std::time_t seconds) const {
        const std::time_t then = std::time(nullptr) - seconds;
        const std::array times{timespec{then, 0}, timespec{then, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, (folder / name).c_str(), times.data(), AT_SYMLINK_NOFOLLOW), 0);
    }

    TemporaryFolder folder;
    const std::string ofTheDead = temporaryName(goneProcess(), 0);
    const std::string ofTheLiving = temporaryName(::getpid(), 1000);
};

TEST_F(Leftovers, ofAProcessThatIsGoneAreRemoved) {
    writeFile(folder / ofTheDead, "half a file");
    EXPECT_EQ(left(), FileNames{"file"});
    EXPECT_EQ(readFile(file()), "settings");
}

TEST_F(Leftovers, areLookedForWhereTheLinkLeads) {
    const TemporaryFolder elsewhere;
    fs::create_symlink(file(), elsewhere / "link");
    writeFile(folder / ofTheDead, "half a file");
    writeFile(elsewhere / ofTheDead, "nobody's");
    removeLeftovers(elsewhere / "link");
    EXPECT_EQ(folder.names(), FileNames{"file"});
    EXPECT_EQ(elsewhere.names(), (FileNames{ofTheDead, "link"}));
}

TEST_F(Leftovers, ofALivingProcessStayForADay) {
    writeFile(folder / ofTheLiving, "half a file");
    EXPECT_EQ(left(), (FileNames{ofTheLiving, "file"}));
    makeOld(ofTheLiving, 24 * 60 * 60 - 60);
    EXPECT_EQ(left(), (FileNames{ofTheLiving, "file"}));
    makeOld(ofTheLiving, 24 * 60 * 60 + 60);
    EXPECT_EQ(left(), FileNames{"file"});
}

// Like one of another container, whose process number means nothing here.
TEST_F(Leftovers, thatSomebodyHoldsStay) {
    writeFile(folder / ofTheDead, "half a file");
    const int held = ::open((folder / ofTheDead).c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(left(), (FileNames{ofTheDead, "file"}));
    ::close(held);
    EXPECT_EQ(left(), FileNames{"file"});
}

/// Looks for leftovers whenever the replacement it serves has its temporary file.
class LookingCalls : public FileCalls {
  public:
    explicit LookingCalls(fs::path file) : m_file(std::move(file)) {}
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        const int again = ::open(("/proc/self/fd/" + std::to_string(file)).c_str(), O_RDONLY | O_CLOEXEC);
        isHeld = again >= 0 && ::flock(again, LOCK_EX | LOCK_NB) != 0;
        ::close(again);
        removeLeftovers(m_file);
        return FileCalls::write(file, bytes, count);
    }
    bool isHeld = false;

  private:
    fs::path m_file;
};

TEST_F(Leftovers, areNotTakenFromAReplacementThatIsUnderWay) {
    LookingCalls calls(file());
    EXPECT_TRUE(replaceFileAtomically(file(), "new", calls));
    EXPECT_TRUE(calls.isHeld);
    EXPECT_EQ(readFile(file()), "new");
}

TEST_F(Leftovers, areNothingButRegularFilesOfOneName) {
    const auto named = [&](unsigned number) { return temporaryName(goneProcess(), number); };
    const TemporaryFolder elsewhere;
    writeFile(elsewhere / "precious", "precious");
    const FileNames strange{named(1), named(2), named(3), named(4)};
    auto name = strange.begin();
    fs::create_symlink(elsewhere / "precious", folder / *name++);
    fs::create_directory(folder / *name++);
    ASSERT_EQ(::mkfifo((folder / *name++).c_str(), 0600), 0);
    fs::create_hard_link(elsewhere / "precious", folder / *name);
    FileNames all = strange;
    all.insert("file");
    EXPECT_EQ(left(), all);
    EXPECT_EQ(readFile(elsewhere / "precious"), "precious");
}

TEST_F(Leftovers, ofAnotherUserStay) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root may give files away";
    writeFile(folder / ofTheDead, "half a file");
    ASSERT_EQ(::chown((folder / ofTheDead).c_str(), 65534, 65534), 0);
    EXPECT_EQ(left(), (FileNames{ofTheDead, "file"}));
}

TEST_F(Leftovers, areToldByTheWholeName) {
    const std::string gone = std::to_string(goneProcess());
    FileNames others{"file"};
    for (const std::string& name : std::initializer_list<std::string>{".quorvi-" + gone,
             ".quorvi-" + gone + "-", ".quorvi-" + gone + "-1x", ".quorvi-" + gone + "-1-1",
             ".quorvi--" + gone + "-1", ".quorvi-0-1", ".quorvi-0" + gone + "-1", ".quorvi-" + gone + "-01",
             "quorvi-" + gone + "-1", ".quorvi-" + gone + "--1", ".quorvi-99999999999-1",
             ".quorvi-" + gone + "-99999999999", ".quorvi-x-1"}) {
        writeFile(folder / name, "somebody's");
        others.insert(name);
    }
    EXPECT_EQ(left(), others);
}

TEST_F(Leftovers, ofNowhereAreNone) {
    removeLeftovers({});
    removeLeftovers(folder / "nowhere/file");
    removeLeftovers(file() / "below");
    EXPECT_EQ(folder.names(), FileNames{"file"});
}

} // namespace
} // namespace quorvi
