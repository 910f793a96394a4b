// The helper's start, end and sleep, and its memory use.
#include <csignal>
#include <cstdlib>

#include "helper/HelperFixture.h"

namespace quorvi::test {
namespace {

using HelperLife = HelperTest;

/// The value of a line of /proc/<pid>/status, without its name.
std::string statusLine(pid_t pid, const std::string& name) {
    const std::string text = readFile("/proc/" + std::to_string(pid) + "/status");
    const auto start = text.find("\n" + name + ":");
    return start == std::string::npos
               ? ""
               : text.substr(start + name.size() + 2, text.find('\n', start + 1) - start - name.size() - 2);
}

TEST_F(HelperLife, EndsAtOnceWhenAnotherOneIsRunning) {
    start();
    const auto second = runToItsEnd();
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_EQ(second.error, "");
    EXPECT_TRUE(helper->isRunning());
    ProcessSerialNumber found;
    EXPECT_EQ(bus->findProcessByName("KyvarQuorviHelper", &found), noErr);
    EXPECT_EQ(found, psn);
}

TEST_F(HelperLife, EndsWithOneLineWhenThereIsNoBus) {
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    const auto result = runToItsEnd();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "KyvarQuorviHelper: there is no session bus, or it does not answer\n");
    EXPECT_EQ(result.output, "");
}

TEST_F(HelperLife, EndsWhenTheBusGoesAway) {
    start();
    privateBus.kill();
    EXPECT_EQ(helper->wait(), 0);
    EXPECT_EQ(helper->readError(), "");
}

TEST_F(HelperLife, EndsWhenItIsAskedTo) {
    start();
    helper->signal(SIGTERM);
    EXPECT_EQ(helper->wait(), 0);
    EXPECT_TRUE(waitFor(*bus, [&] { return bus->processes().empty(); }));
}

TEST_F(HelperLife, OutlivesThePanel) {
    start();
    auto panel = std::make_unique<Panel>();
    EXPECT_EQ(panel->command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel->countAfterLists(1), 1);
    panel.reset();
    Panel next;
    EXPECT_EQ(next.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(next.countAfterLists(1), 1);
    EXPECT_TRUE(helper->isRunning());
}

TEST_F(HelperLife, SleepsWhileOthersUseTheBus) {
    start();
    EXPECT_EQ(ask(kMessagePaneShown, 0), 1);
    const auto asleep = [&] { return statusLine(helper->pid(), "State").find('S') != std::string::npos; };
    ASSERT_TRUE(waitFor(*bus, asleep));
    const std::string before = statusLine(helper->pid(), "voluntary_ctxt_switches");
    ASSERT_NE(before, "");
    for (int i = 0; i < 20; ++i) {
        const auto stranger = EventBus::connect();
        ASSERT_EQ(stranger->ownName("Stranger"), NameResult::owned);
    }
    ASSERT_TRUE(waitFor(*bus, [&] { return bus->processes().size() == 1 && asleep(); }));
    EXPECT_EQ(statusLine(helper->pid(), "voluntary_ctxt_switches"), before);
}

TEST_F(HelperLife, TakesLessThan8MebibytesOfMemory) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizers take more than the helper";
#endif
    writeFile(userSettings, readFile(QUORVI_TEST_DATA "/vectors/case-023.plist"));
    start();
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    EXPECT_LT(std::atoi(statusLine(helper->pid(), "VmHWM").c_str()), 8192) << "in KiB, at its highest";
}

} // namespace
} // namespace quorvi::test
