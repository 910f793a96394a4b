// Profiles follow the window in front on an X display with a window manager.
#include <map>

#include "events/FrontCalls.h"
#include "events/HelperCalls.h"
#include "helper/front/FollowingHelper.h"
#include "helper/front/X11Display.h"
#include "support/ProcessFigures.h"

namespace quorvi::test {
namespace {

class OnX11 : public FollowingHelper {
  protected:
    void startHere() {
        surroundings = {"DISPLAY=" + display->name()};
        start();
    }
    [[nodiscard]] const X11Windows& windows() const { return display->windows(); }

    std::unique_ptr<X11Display> display = std::make_unique<X11Display>(folder.path());
};

TEST_F(OnX11, FollowsWindowsOfTwoApplications) {
    startHere();
    const std::map<std::string, xcb_window_t> window{
        {drawing, windows().open(drawing)}, {writing, windows().open(writing)}};
    ASSERT_TRUE(comesToRun(ofWriting)); // the newest is in front
    switchInTurn([&](const std::string& id) { windows().bringToFront(window.at(id)); });
    expectLittleMemory();
}

TEST_F(OnX11, GivesTheUsersOwnProfileBackToOtherApplications) {
    startHere();
    EXPECT_EQ(profile(), usersOwn);
    const auto first = windows().open(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    EXPECT_TRUE(comesToSay("FrontApplication", "Drawing"));
    (void)windows().open(other);
    ASSERT_TRUE(comesToRun(usersOwn));
    EXPECT_TRUE(comesToSay("FrontApplication", "Other"));
    windows().bringToFront(first);
    ASSERT_TRUE(comesToRun(ofDrawing));
    EXPECT_EQ(said("FrontSource"), "X11");
}

TEST_F(OnX11, TellsOthersWhatIsInFrontAndWhyItsProfileRuns) {
    startHere();
    int changes = 0;
    const auto listener = FrontListener::listen(*bus, psn, [&] { ++changes; });
    ASSERT_NE(listener, nullptr);
    (void)windows().open(drawing);
    ASSERT_TRUE(waitFor(*bus, [&] { return changes > 0; }));
    FrontState state;
    EXPECT_EQ(getFrontState(*bus, psn, state), noErr);
    EXPECT_EQ(state, (FrontState{"Drawing", "X11", "", ""}));
    HelperState mouse;
    EXPECT_EQ(getHelperState(*bus, psn, mouse), noErr);
    EXPECT_EQ(mouse.frontReason, "Drawing");
    EXPECT_EQ(mouse.profile, ofDrawing);
    (void)windows().open(other);
    ASSERT_TRUE(comesToRun(usersOwn));
    EXPECT_EQ(getHelperState(*bus, psn, mouse), noErr);
    EXPECT_EQ(mouse.frontReason, "");
}

TEST_F(OnX11, KnowsWhatWasInFrontBeforeItStarted) {
    (void)windows().open(drawing);
    startHere();
    EXPECT_TRUE(comesToRun(ofDrawing));
}

TEST_F(OnX11, StaysWithTheLastOneWhenNoneIsInFront) {
    startHere();
    const auto window = windows().open(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    windows().close(window);
    (void)windows().open(writing);
    ASSERT_TRUE(comesToRun(ofWriting));
    const auto last = windows().open(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    windows().close(last);
    EXPECT_TRUE(comesToRun(ofWriting)); // which the window manager brings to the front
}

TEST_F(OnX11, LeavesProfilesAloneThatDoNotSwitchByThemselves) {
    bind(false);
    startHere();
    (void)windows().open(drawing);
    ASSERT_TRUE(comesToSay("FrontApplication", "Drawing"));
    EXPECT_EQ(profile(), usersOwn);
    bind(true);
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    EXPECT_EQ(profile(), ofDrawing);
    bind(false);
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    EXPECT_EQ(profile(), usersOwn);
}

TEST_F(OnX11, WaitsForTheClassOfAWindowThatHasNoneYet) {
    startHere();
    const auto window = windows().open("");
    windows().setTitle(window, "Loading");
    ASSERT_TRUE(comesToRest(helper->pid()));
    windows().setClass(window, drawing, "drawing");
    EXPECT_TRUE(comesToRun(ofDrawing));
    expectSleepDuring([&] { windows().setTitle(window, "Loaded"); });
}

TEST_F(OnX11, KnowsAProgramByItsProcess) {
    const auto program = folder / (std::string(drawing) + "-program");
    std::filesystem::copy_file("/bin/sleep", program);
    const ChildProcess running({program.string(), "1000"});
    startHere();
    (void)windows().open("Unknown", "unknown", running.pid());
    EXPECT_TRUE(comesToRun(ofDrawing));
}

TEST_F(OnX11, SleepsWhileNothingChanges) {
    startHere();
    const auto window = windows().open(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    expectSleepDuring([&] {
        for (int i = 0; i < 20; ++i)
            windows().setTitle(window, std::to_string(i));
    });
}

TEST_F(OnX11, ComesBackWithItsDisplay) {
    startHere();
    (void)windows().open(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    const std::string name = display->name();
    display.reset();
    ASSERT_TRUE(comesToSay("FrontSource", ""));
    EXPECT_EQ(profile(), ofDrawing);
    while (!display || display->name() != name) // the first number that is free
        display = std::make_unique<X11Display>(folder.path());
    ASSERT_TRUE(comesToSay("FrontSource", "X11"));
    (void)windows().open(writing);
    EXPECT_TRUE(comesToRun(ofWriting));
}

TEST_F(OnX11, StartsWithoutADisplay) {
    surroundings = {"DISPLAY=:64999"};
    start();
    EXPECT_EQ(said("FrontSource"), "");
    EXPECT_EQ(profile(), usersOwn);
}

} // namespace
} // namespace quorvi::test
