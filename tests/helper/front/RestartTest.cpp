// The helper is killed and started again while profiles follow windows and a mouse is in use.
#include <csignal>
#include <map>

#include "events/HelperCalls.h"
#include "helper/front/FollowingHelper.h"
#include "helper/front/X11Display.h"
#include "helper/support/StandInService.h"
#include "support/EnvironmentVariable.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

constexpr char kMouseInUse[] = "1e7d:2dcb:one";
constexpr std::size_t kProfileInRecord = 2;

class RestartedHelper : public FollowingHelper {
  protected:
    void startHere() {
        surroundings = {"DISPLAY=" + display.name()};
        start();
    }
    void kill() {
        helper->signal(SIGKILL);
        (void)helper->wait();
        ASSERT_TRUE(waitFor(
            *bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) == procNotFound; }));
    }
    /// The profile in the record that the mouse in use was given last; 0 before.
    [[nodiscard]] std::uint32_t given() const {
        const auto record = service.recordOf(kMouseInUse);
        return record.empty() ? 0 : static_cast<std::uint8_t>(record[kProfileInRecord]);
    }
    [[nodiscard]] bool comesToBeGiven(std::uint32_t wanted) const {
        return waitUntil([&] { return given() == wanted; });
    }

    PrivateBus systemBus;
    EnvironmentVariable session{"DBUS_SESSION_BUS_ADDRESS", privateBus.address()};
    EnvironmentVariable system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address()};
    StandInService service{std::vector<StandInMouse>{{kMouseInUse}}};
    X11Display display{folder.path()};
};

TEST_F(RestartedHelper, GoesOnWithTheMouseInUseAndTheApplicationInFrontAsTheyAreNow) {
    startHere();
    const std::map<std::string, xcb_window_t> window{
        {drawing, display.windows().open(drawing)}, {writing, display.windows().open(writing)}};
    std::vector<MouseEntry> mice;
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(useMouse(*bus, psn, kMouseInUse, true), noErr);
    ASSERT_TRUE(comesToBeGiven(ofWriting));
    for (int round = 0; round < 4; ++round) {
        const bool toDrawing = round % 2 == 0;
        if (round < 2) { // another is in front when it comes back
            kill();
            EXPECT_EQ(given(), toDrawing ? ofWriting : ofDrawing) << "the mouse goes on with what it has";
            display.windows().bringToFront(window.at(toDrawing ? drawing : writing));
        } else { // it is killed when it may or may not have seen it
            display.windows().bringToFront(window.at(toDrawing ? drawing : writing));
            kill();
        }
        startHere();
        EXPECT_TRUE(comesToBeGiven(toDrawing ? ofDrawing : ofWriting)) << round;
    }
    EXPECT_EQ(service.countOf(std::string("Forget ") + kMouseInUse), 0);
}

TEST_F(RestartedHelper, GivesTheMouseInUseWhatWasSavedWhileThereWasNone) {
    startHere();
    (void)display.windows().open(drawing);
    std::vector<MouseEntry> mice;
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(useMouse(*bus, psn, kMouseInUse, true), noErr);
    ASSERT_TRUE(comesToBeGiven(ofDrawing));
    kill();
    bind(false); // no profile switches by itself any more
    startHere();
    EXPECT_TRUE(comesToBeGiven(usersOwn));
    ASSERT_TRUE(comesToSay("FrontApplication", "Drawing"));
    EXPECT_EQ(given(), usersOwn);
}

} // namespace
} // namespace quorvi::test
