// Profiles follow the window in front on sway and labwc.
#include "helper/front/FollowingHelper.h"
#include "helper/front/WaylandWindows.h"
#include "support/Compositors.h"
#include "support/VirtualDisplay.h"

namespace quorvi::test {
namespace {

class OnWlroots : public FollowingHelper, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        if (!isInstalled(GetParam()))
            GTEST_SKIP() << GetParam() << " is not installed";
        FollowingHelper::SetUp();
        if (GetParam() == std::string("sway"))
            compositor = std::make_unique<Sway>();
        else
            compositor = std::make_unique<Labwc>();
        surroundings = compositor->environment();
        windows = std::make_unique<WaylandWindows>(compositor->runtimeFolder() + "/" + compositor->socket());
    }

    std::unique_ptr<Compositor> compositor;
    std::unique_ptr<WaylandWindows> windows;
};

INSTANTIATE_TEST_SUITE_P(
    Compositors, OnWlroots, testing::Values("sway", "labwc"), [](const auto& each) { return each.param; });

TEST_P(OnWlroots, FollowsWindowsOfTwoApplications) {
    start();
    windows->show(drawing);
    windows->show(writing);
    ASSERT_TRUE(comesToRun(ofWriting));
    switchInTurn([&](const std::string& id) { windows->show(id); });
    expectLittleMemory();
}

TEST_P(OnWlroots, GivesTheUsersOwnProfileBackToOtherApplications) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing)); // which was in front before
    EXPECT_EQ(said("FrontSource"), "wlroots");
    windows->show(other);
    ASSERT_TRUE(comesToRun(usersOwn));
    EXPECT_TRUE(comesToSay("FrontApplication", "Other"));
    windows->setTitle(drawing, "In the background");
    expectSleepDuring([] {}); // whatever that title has woken is over
    EXPECT_EQ(said("FrontApplication"), "Other");
    windows->close(other);
    EXPECT_TRUE(comesToRun(ofDrawing));
}

TEST_P(OnWlroots, SleepsWhileNothingChanges) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing));
    expectSleepDuring([&] { windows->settle(); });
}

TEST_P(OnWlroots, OutlivesItsCompositor) {
    windows->show(drawing);
    start();
    ASSERT_TRUE(comesToRun(ofDrawing));
    windows.reset();
    compositor->process().kill();
    ASSERT_TRUE(comesToSay("FrontSource", ""));
    expectSleepDuring([] {});
    EXPECT_EQ(profile(), ofDrawing);
}

TEST_P(OnWlroots, FollowsTheFocusOfAWindowThatWasBehind) {
    const auto* sway = dynamic_cast<const Sway*>(compositor.get());
    if (!sway)
        GTEST_SKIP() << "it takes no commands";
    start();
    windows->show(drawing);
    windows->show(other);
    ASSERT_TRUE(comesToSay("FrontApplication", "Other"));
    EXPECT_TRUE(sway->command(std::string("[app_id=\"") + drawing + "\"] focus"));
    EXPECT_TRUE(comesToRun(ofDrawing));
    windows->setTitle(other, "In the background");
    EXPECT_TRUE(sway->command("nop"));
    EXPECT_EQ(said("FrontApplication"), "Drawing");
    windows->close(drawing);
    EXPECT_TRUE(comesToRun(usersOwn));
}

} // namespace
} // namespace quorvi::test
