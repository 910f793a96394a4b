// Profiles follow the window in front on GNOME Shell with our extension.
#include <csignal>

#include <unistd.h>

#include "events/FrontCalls.h"
#include "helper/front/FollowingHelper.h"
#include "helper/front/GnomeWindows.h"
#include "helper/front/WaylandWindows.h"
#include "support/Compositors.h"
#include "support/VirtualDisplay.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

class OnGnome : public FollowingHelper {
  protected:
    void SetUp() override {
        if (!isInstalled("gnome-shell"))
            GTEST_SKIP() << "gnome-shell is not installed";
        FollowingHelper::SetUp();
        shell = std::make_unique<GnomeShell>(privateBus.address(), QUORVI_GNOME_EXTENSIONS);
        surroundings = shell->environment();
        surroundings.emplace_back("XDG_CURRENT_DESKTOP=GNOME");
    }
    void startEnabled() {
        start();
        ASSERT_TRUE(waitFor(*bus, [&] { return said("GnomeExtension") != ""; }));
        enable();
        ASSERT_TRUE(comesToSay("FrontSource", "GNOME"));
        windows = std::make_unique<WaylandWindows>(shell->runtimeFolder() + "/" + shell->socket());
    }
    /// A new window alone comes to the front only when the Shell does not take it for an intruder.
    void show(const std::string& appId) {
        windows->show(appId);
        bringToFront(appId);
    }
    void bringToFront(const std::string& appId) { EXPECT_TRUE(bringToFrontOnGnome(*bus, appId)); }
    void enable() { EXPECT_EQ(enableGnomeExtension(*bus, psn), noErr); }

    std::unique_ptr<GnomeShell> shell;
    std::unique_ptr<WaylandWindows> windows;
};

TEST_F(OnGnome, FollowsWindowsOfTwoApplications) {
    startEnabled();
    show(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    show(writing);
    ASSERT_TRUE(comesToRun(ofWriting));
    switchInTurn([&](const std::string& id) { bringToFront(id); });
    show(other);
    EXPECT_TRUE(comesToRun(usersOwn));
    EXPECT_TRUE(comesToSay("FrontApplication", "Other"));
    expectLittleMemory();
}

TEST_F(OnGnome, SwitchesItsExtensionOnWhenItIsAskedTo) {
    start();
    EXPECT_TRUE(comesToSay("GnomeExtension", "off"));
    EXPECT_EQ(said("FrontSource"), "");
    EXPECT_EQ(said("Desktop"), "GNOME");
    enable();
    EXPECT_TRUE(comesToSay("GnomeExtension", "enabled"));
    EXPECT_EQ(said("FrontSource"), "GNOME");
}

TEST_F(OnGnome, HearsOfTheWindowInFrontWhenItStartsAnew) {
    startEnabled();
    show(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    helper->kill();
    ASSERT_TRUE(waitFor(*bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) != noErr; }));
    start();
    EXPECT_TRUE(comesToRun(ofDrawing));
}

TEST_F(OnGnome, SleepsWhileNothingChanges) {
    startEnabled();
    show(drawing);
    ASSERT_TRUE(comesToRun(ofDrawing));
    expectSleepDuring([&] {
        for (int i = 0; i < 20; ++i)
            windows->setTitle(drawing, std::to_string(i));
    });
}

} // namespace
} // namespace quorvi::test
