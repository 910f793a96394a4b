// scripts/on-debian: runs a command in another system, which exists already and holds only what these tests
// need.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include <sys/mount.h>
#include <unistd.h>

#include "support/TemporaryFolder.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

class OnDebian : public testing::Test {
  protected:
    void SetUp() override {
        if (getuid() != 0)
            GTEST_SKIP() << "only root can change to another system";
        if (runProgram({"sh", "-c", "command -v git && command -v unshare"}).exitCode != 0)
            GTEST_SKIP() << "git or unshare is not installed";
        if (runProgram({"mountpoint", "--quiet", "/"}).exitCode != 0)
            GTEST_SKIP() << "in a plain chroot there are no mounts of one's own";
        m_checkout.write(".gitignore", "/build*/\n*.ignored\n");
        m_checkout.write("known", "by git");
        m_checkout.write("new", "and not ignored");
        m_checkout.write("not.ignored/file", "in a folder of that name");
        m_checkout.write("scripts/setup", "");
        for (const char* script : {"on-debian", "debian-mirror.sh"})
            fs::copy_file(fs::path(QUORVI_SOURCE "/scripts") / script, m_checkout / "scripts" / script);
        ASSERT_EQ(inCheckout("git init --quiet && git add .gitignore known scripts"), "");
        // The programs of this system with the libraries that they are linked to.
        ASSERT_EQ(inCheckout("mkdir -p build-debian-13/root && cd build-debian-13/root && mkdir proc sys dev "
                             "tmp run etc &&"
                             " for program in bash cat env ls mkdir sleep; do file=$(command -v $program);"
                             "   cp -L --parents $file $(ldd $file | grep -o '/[^ ]*') .; done"),
            "");
    }

    /// Whatever was left mounted goes before the folder does: it is this machine's own.
    void TearDown() override {
        std::vector<std::string> left;
        std::ifstream mounts("/proc/self/mountinfo");
        for (std::string line; std::getline(mounts, line);)
            if (const auto at = line.find(" " + m_checkout.path().native() + "/"); at != std::string::npos)
                left.push_back(line.substr(at + 1, line.find(' ', at + 1) - at - 1));
        for (auto place = left.rbegin(); place != left.rend(); ++place)
            ASSERT_EQ(umount2(place->c_str(), MNT_DETACH), 0) << *place;
    }

    /// What the commands write to standard error, or that they failed.
    [[nodiscard]] std::string inCheckout(const std::string& commands) const {
        const auto done =
            runProgram({"bash", "-euc", "cd " + m_checkout.path().native() + "; " + commands}, noCache());
        return done.exitCode == 0 ? done.error : done.error + "; failed";
    }

    [[nodiscard]] std::vector<std::string> command(const std::string& inside) const {
        return {m_checkout.path("scripts/on-debian"), "13", "bash", "-c", inside};
    }
    [[nodiscard]] ProgramResult run(const std::string& inside) const {
        return runProgram(command(inside), noCache());
    }

    /// Starts it, waits until it runs over there, and sends the signal; its exit code.
    [[nodiscard]] std::optional<int> endedBy(int signal) const {
        ChildProcess script(command("trap '' INT TERM; echo runs; sleep 1000 & wait"), noCache());
        if (script.readLine() != "runs")
            return std::nullopt;
        EXPECT_TRUE(anybodyIsThere());
        script.signal(signal);
        return script.wait();
    }

    /// Whether any process has the other system for its root, or has anything mounted below it.
    [[nodiscard]] bool anybodyIsThere() const {
        const std::string root = m_checkout.path("build-debian-13/root");
        std::error_code gone;
        for (const auto& process : fs::directory_iterator("/proc", gone)) {
            if (fs::read_symlink(process.path() / "root", gone) == root)
                return true;
            std::ifstream mounts(process.path() / "mountinfo");
            for (std::string line; std::getline(mounts, line);)
                if (line.find(" " + root) != std::string::npos)
                    return true;
        }
        return false;
    }

    [[nodiscard]] const TemporaryFolder& checkout() const { return m_checkout; }

  private:
    static std::vector<std::string> noCache() { return {"CMAKE_CXX_COMPILER_LAUNCHER"}; }

    TemporaryFolder m_checkout;
};

TEST_F(OnDebian, RunsTheCommandInACopyOfWhatGitKnowsOrWouldAdd) {
    const auto done = run("pwd; ls; cat known new; test -e scripts/on-debian && ls -d /build* || exit 3");
    EXPECT_EQ(done.exitCode, 3) << done.error;
    EXPECT_EQ(done.output, "/kyvar-quorvi\nknown\nnew\nscripts\nby gitand not ignored");
}

TEST_F(OnDebian, BringsTheCopyUpToDateAndKeepsWhatWasMadeThere) {
    ASSERT_EQ(run("mkdir build; echo built >build/result; echo changed >new").exitCode, 0);
    checkout().write("known", "otherwise");
    fs::remove(checkout() / "new");
    EXPECT_EQ(run("cat build/result known; ls").output, "built\notherwisebuild\nknown\nscripts\n");
}

TEST_F(OnDebian, HasTheFileSystemsThatProgramsExpect) {
    const auto done = run("echo a >/dev/shm/a; echo b >/tmp/b; echo c >/run/c; exec 3<>/dev/ptmx;"
                          " ls /proc/self/fd /sys/class /dev/pts/ptmx >/dev/null && cat /dev/shm/a /tmp/b");
    EXPECT_EQ(done.exitCode, 0) << done.error;
    EXPECT_EQ(done.output, "a\nb\n");
    EXPECT_EQ(run("ls /dev/shm /tmp /run").output, "/dev/shm:\n\n/run:\n\n/tmp:\n");
    EXPECT_FALSE(fs::exists("/dev/shm/a"));
}

TEST_F(OnDebian, LeavesNothingMountedAndNothingRunning) {
    EXPECT_EQ(run("sleep 1000 & exit 7").exitCode, 7);
    EXPECT_FALSE(anybodyIsThere());
}

TEST_F(OnDebian, LeavesNothingMountedAndNothingRunningWhenInterrupted) {
    EXPECT_EQ(endedBy(SIGINT), 130);
    EXPECT_FALSE(anybodyIsThere());
}

TEST_F(OnDebian, LeavesNothingMountedAndNothingRunningWhenTerminated) {
    EXPECT_EQ(endedBy(SIGTERM), 143);
    EXPECT_FALSE(anybodyIsThere());
}

TEST_F(OnDebian, LeavesNothingMountedAndNothingRunningWhenKilled) {
    EXPECT_EQ(endedBy(SIGKILL), 137);
    EXPECT_TRUE(waitUntil([&] { return !anybodyIsThere(); }));
}

TEST_F(OnDebian, RefusesAReleaseThatItDoesNotKnow) {
    const auto done = runProgram({checkout().path("scripts/on-debian"), "11", "true"});
    EXPECT_EQ(done.exitCode, 2);
    EXPECT_NE(done.error.find("usage: scripts/on-debian 12|13 COMMAND..."), std::string::npos);
}

} // namespace
} // namespace quorvi::test
