// Profiles follow the window in front on KWin, 5 or 6.
#include <csignal>

#include "helper/front/FollowingHelper.h"
#include "helper/front/WaylandWindows.h"
#include "support/Compositors.h"
#include "support/VirtualDisplay.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

class OnKWin : public FollowingHelper {
  protected:
    void SetUp() override {
        if (!isInstalled("kwin_wayland"))
            GTEST_SKIP() << "kwin_wayland is not installed";
        FollowingHelper::SetUp();
        openToOthers();
        startKWin();
    }
    void startKWin() {
        windows.reset();
        kwin.reset();
        kwin = std::make_unique<KWin>(privateBus.address());
        surroundings = kwin->environment();
        windows = std::make_unique<WaylandWindows>(kwin->runtimeFolder() + "/" + kwin->socket());
    }
    /// KWin runs as an ordinary user, and reads the script.
    void openToOthers() const {
        for (auto part = resources; part != folder.path().parent_path(); part = part.parent_path())
            fs::permissions(part, fs::perms::others_exec, fs::perm_options::add);
    }
    [[nodiscard]] static bool scriptIsLoaded() {
        const auto answer = runProgram({"busctl", "--user", "call", "org.kde.KWin", "/Scripting",
            "org.kde.kwin.Scripting", "isScriptLoaded", "s", "kyvar-quorvi-front"});
        return answer.output == "b true\n";
    }

    std::unique_ptr<KWin> kwin;
    std::unique_ptr<WaylandWindows> windows;
};

TEST_F(OnKWin, FollowsWindowsOfTwoApplications) {
    start();
    ASSERT_TRUE(comesToSay("FrontSource", "KWin"));
    windows->show(drawing);
    windows->show(writing);
    ASSERT_TRUE(comesToRun(ofWriting));
    switchInTurn([&](const std::string& id) { windows->show(id); });
    expectLittleMemory();
}

TEST_F(OnKWin, GivesTheUsersOwnProfileBackToOtherApplications) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing)); // which was in front before
    windows->show(other);
    ASSERT_TRUE(comesToRun(usersOwn));
    EXPECT_TRUE(comesToSay("FrontApplication", "Other"));
    windows->close(other);
    EXPECT_TRUE(comesToRun(ofDrawing));
}

TEST_F(OnKWin, LoadsItsScriptAgainAndTakesItAwayAtTheEnd) {
    start();
    ASSERT_TRUE(comesToSay("FrontSource", "KWin"));
    EXPECT_TRUE(scriptIsLoaded());
    kwin->process().kill();
    ASSERT_TRUE(comesToSay("FrontSource", ""));
    startKWin();
    ASSERT_TRUE(comesToSay("FrontSource", "KWin"));
    windows->show(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    helper->signal(SIGTERM);
    EXPECT_EQ(helper->wait(), 0);
    EXPECT_TRUE(waitUntil([] { return !scriptIsLoaded(); }));
}

TEST_F(OnKWin, TakesOverTheScriptOfAHelperThatWasKilled) {
    start();
    ASSERT_TRUE(comesToSay("FrontSource", "KWin"));
    helper->kill();
    ASSERT_TRUE(waitFor(*bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) != noErr; }));
    start();
    ASSERT_TRUE(comesToSay("FrontSource", "KWin"));
    windows->show(writing);
    EXPECT_TRUE(comesToRun(ofWriting));
}

TEST_F(OnKWin, SleepsWhileNothingChanges) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing));
    expectSleepDuring([&] {
        for (int i = 0; i < 20; ++i)
            windows->setTitle(drawing, std::to_string(i));
    });
}

TEST_F(OnKWin, IsBelievedAlone) {
    start();
    ASSERT_TRUE(comesToSay("FrontSource", "KWin"));
    windows->show(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    const auto forged = runProgram({"busctl", "--user", "call", "com.kyvar.KyvarQuorviHelper",
        "/com/kyvar/Front", "com.kyvar.FrontReport1", "Window", "sssi", writing, "", "", "0"});
    EXPECT_NE(forged.exitCode, 0);
    EXPECT_NE(forged.error.find("Access denied"), std::string::npos) << forged.error;
    EXPECT_EQ(profile(), ofDrawing);
}

} // namespace
} // namespace quorvi::test
