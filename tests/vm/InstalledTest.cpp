// The installed package on a running Debian: systemd starts the service from its unit, the login manager
// reports the user at the machine, and polkit the users whom an administrator allows. Run by
// tests/vm/run-installed, in this order.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <linux/vt.h>
#include <sys/ioctl.h>

#include "events/Introspection.h"
#include "support/WaitUntil.h"
#include "vm/support/Caller.h"
#include "vm/support/Driven.h"
#include "vm/support/Seat.h"

namespace quorvi::test {
namespace {

constexpr char kNoAccess[] = "org.freedesktop.DBus.Error.AccessDenied";
constexpr char kNoMouse[] = "com.kyvar.Inputd1.Error.NoSuchMouse";

/// What systemd says of the service.
std::string unitProperty(const std::string& name) {
    auto text = runProgram({"systemctl", "show", "--value", "-p", name, "quorvi-inputd.service"}).output;
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

/// A line of the service's /proc/PID/status, as "NoNewPrivs:\t1".
std::string statusLine(const std::string& name) {
    std::ifstream file("/proc/" + unitProperty("MainPID") + "/status");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(name + ":"))
            return line.substr(name.size() + 2);
    return "none";
}

void letAdministratorAllowIt() {
    std::ofstream("/etc/polkit-1/rules.d/10-test.rules")
        << "polkit.addRule(function(action, subject) {\n"
           "    if (action.id == 'com.kyvar.inputd.use-mice' && subject.user == 'anna')\n"
           "        return polkit.Result.YES;\n"
           "});\n";
}

class InstalledTest : public testing::Test {
  protected:
    void use() {
        ASSERT_TRUE(waitUntil([&] { return !(id = anna.mouseNamed("Test mouse")).empty(); }));
        ASSERT_EQ(anna.use(id, busyRecord()), "");
        ASSERT_TRUE(waitUntil([&] { return state() == "driven"; })) << state();
        ASSERT_TRUE(waitUntilDriven(mouse, desk));
    }
    std::string state() {
        Status status;
        const auto error = anna.status(id, status);
        return error.empty() ? status.state : error;
    }
    void hold() {
        mouse.press(BTN_EXTRA);
        ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 1));
    }
    /// Nothing is down, the pointer is gone, and the mouse's next report is its own.
    void expectReleased() {
        EXPECT_TRUE(desk.waitUntil([&] { return !desk.held().contains(KEY_LEFTCTRL); }));
        EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual pointer"));
        mouse.release(BTN_EXTRA);
        desk.look();
        desk.forget();
        mouse.move(77, 0);
        EXPECT_TRUE(desk.waitUntil([&] {
            return std::ranges::any_of(desk.events(),
                [](const Desk::Event& event) { return event.device == "Test mouse" && event.value == 77; });
        }));
        EXPECT_TRUE(desk.held().empty());
    }
    static void showConsole(int number) {
        const inputd::Descriptor console(open("/dev/tty0", O_RDWR | O_CLOEXEC));
        EXPECT_EQ(ioctl(console.get(), VT_ACTIVATE, number), 0);
    }

    FakeMouse mouse;
    Desk desk;
    Caller anna{kAnna};
    Caller berta{kBerta};
    std::string id;
};

TEST_F(InstalledTest, TheServiceIsStartedByWhoCallsItAndHasNoRightThatItDoesNotNeed) {
    EXPECT_EQ(unitProperty("ActiveState"), "inactive");
    std::vector<ListedMouse> mice;
    EXPECT_EQ(anna.list(mice), "");
    EXPECT_EQ(mice.size(), 1U);
    EXPECT_EQ(unitProperty("ActiveState"), "active");
    EXPECT_EQ(statusLine("NoNewPrivs"), "1");
    EXPECT_EQ(statusLine("Seccomp"), "2"); // a filter
    for (const char* set : {"CapInh", "CapPrm", "CapEff", "CapBnd", "CapAmb"})
        EXPECT_EQ(statusLine(set), "0000000000000000") << set;
    const auto owner = runProgram({"stat", "-c", "%U", "/proc/" + unitProperty("MainPID")});
    EXPECT_EQ(owner.output, "quorvi-inputd\n");
    EXPECT_EQ(runProgram({"stat", "-c", "%U:%G %a", "/dev/uinput"}).output, "root:quorvi-inputd 660\n");
}

TEST_F(InstalledTest, WhoIsNotInFrontSeesNoMouse) {
    std::vector<ListedMouse> mice;
    EXPECT_EQ(berta.list(mice), kNoAccess);
}

TEST_F(InstalledTest, AMouseIsUsedWhenAnAdministratorHasLetAndDrivenByWhatSystemdStarted) {
    ASSERT_TRUE(waitUntil([&] { return !(id = anna.mouseNamed("Test mouse")).empty(); }));
    EXPECT_EQ(anna.use(id, busyRecord()), kNoAccess); // nobody is there to give a password
    letAdministratorAllowIt();
    ASSERT_TRUE(waitUntil([&] { return anna.use(id, busyRecord()).empty(); }));
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    mouse.press(BTN_SIDE);
    mouse.release(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTSHIFT, 0));
    EXPECT_EQ(desk.keys(), "42+ 30+ 30- 42-");
    mouse.move(7, -3);
    EXPECT_TRUE(desk.waitUntil([&] { return desk.sum(REL_X) == 7 && desk.sum(REL_Y) == -3; }));
    EXPECT_EQ(fileText("/var/lib/kyvar-quorvi-inputd/users"), "1000\n");
}

TEST_F(InstalledTest, StoppingTheServiceReleasesAll) {
    ASSERT_NO_FATAL_FAILURE(use());
    ASSERT_NO_FATAL_FAILURE(hold());
    EXPECT_EQ(runProgram({"systemctl", "stop", "quorvi-inputd.service"}).exitCode, 0);
    expectReleased();
    EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual keyboard"));
    EXPECT_EQ(unitProperty("Result"), "success");
}

TEST_F(InstalledTest, AServiceThatIsKilledIsStartedAgainAndTheMouseIsPlain) {
    ASSERT_NO_FATAL_FAILURE(use());
    ASSERT_NO_FATAL_FAILURE(hold());
    const auto before = unitProperty("MainPID");
    EXPECT_EQ(runProgram({"systemctl", "kill", "-s", "KILL", "quorvi-inputd.service"}).exitCode, 0);
    expectReleased();
    EXPECT_TRUE(waitUntil([&] { return unitProperty("ActiveState") == "active"; }));
    EXPECT_NE(unitProperty("MainPID"), before);
    EXPECT_EQ(state(), kNoMouse);
}

TEST_F(InstalledTest, AnotherUsersConsoleInFrontReleasesAllAndForgetsTheMouse) {
    ASSERT_NO_FATAL_FAILURE(use());
    ASSERT_NO_FATAL_FAILURE(hold());
    showConsole(2);
    expectReleased();
    EXPECT_EQ(state(), kNoAccess);
    std::vector<ListedMouse> mice;
    EXPECT_EQ(berta.list(mice), "");
    showConsole(1);
    EXPECT_TRUE(waitUntil([&] { return state() == kNoMouse; })) << state();
    use();
}

TEST_F(InstalledTest, RemovingThePackageReleasesAll) {
    ASSERT_NO_FATAL_FAILURE(use());
    ASSERT_NO_FATAL_FAILURE(hold());
    EXPECT_EQ(runProgram({"dpkg", "--remove", "kyvar-quorvi-inputd"}).exitCode, 0);
    expectReleased();
    EXPECT_EQ(unitProperty("LoadState"), "not-found");
    std::vector<ListedMouse> mice;
    EXPECT_NE(anna.list(mice), "");
}

} // namespace
} // namespace quorvi::test
