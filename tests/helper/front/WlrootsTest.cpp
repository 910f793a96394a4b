// Profiles follow the window in front on sway.
#include "helper/front/FollowingHelper.h"
#include "helper/front/WaylandWindows.h"
#include "support/Compositors.h"
#include "support/VirtualDisplay.h"

namespace quorvi::test {
namespace {

class OnSway : public FollowingHelper {
  protected:
    void SetUp() override {
        if (!isInstalled("sway"))
            GTEST_SKIP() << "sway is not installed";
        FollowingHelper::SetUp();
        sway = std::make_unique<Sway>();
        surroundings = sway->environment();
        windows = std::make_unique<WaylandWindows>(sway->runtimeFolder() + "/" + sway->socket());
    }
    void focus(const std::string& appId) const {
        EXPECT_TRUE(sway->command("[app_id=\"" + appId + "\"] focus"));
    }

    std::unique_ptr<Sway> sway;
    std::unique_ptr<WaylandWindows> windows;
};

TEST_F(OnSway, FollowsWindowsOfTwoApplications) {
    start();
    windows->show(drawing);
    windows->show(writing);
    ASSERT_TRUE(comesToRun(ofWriting));
    switchInTurn([&](const std::string& id) { windows->show(id); });
    expectLittleMemory();
}

TEST_F(OnSway, GivesTheUsersOwnProfileBackToOtherApplications) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing)); // which was in front before
    EXPECT_EQ(said("FrontSource"), "wlroots");
    windows->show(other);
    ASSERT_TRUE(comesToRun(usersOwn));
    EXPECT_TRUE(comesToSay("FrontApplication", "Other"));
    focus(drawing);
    EXPECT_TRUE(comesToRun(ofDrawing));
    windows->setTitle(other, "In the background");
    EXPECT_TRUE(sway->command("nop"));
    EXPECT_EQ(said("FrontApplication"), "Drawing");
    windows->close(drawing);
    EXPECT_TRUE(comesToRun(usersOwn));
}

TEST_F(OnSway, SleepsWhileNothingChanges) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing));
    expectSleepDuring([&] { EXPECT_TRUE(sway->command("nop")); });
}

TEST_F(OnSway, OutlivesItsCompositor) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing));
    windows.reset();
    sway->process().kill();
    ASSERT_TRUE(comesToSay("FrontSource", ""));
    expectSleepDuring([] {});
    EXPECT_EQ(profile(), ofDrawing);
}

} // namespace
} // namespace quorvi::test
