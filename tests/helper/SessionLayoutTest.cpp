// The keys with which the real helper types letters, in a real X server's layout.
#include <linux/input-event-codes.h>

#include "events/HelperCalls.h"
#include "helper/HelperFixture.h"
#include "helper/support/StandInService.h"
#include "model/Trees.h"
#include "plist/Writer.h"
#include "support/EnvironmentVariable.h"
#include "support/ProcessFigures.h"
#include "support/VirtualDisplay.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

constexpr int kSelectAll = 117; // Control and A

class LettersOfTheSession : public HelperTest {
  protected:
    void SetUp() override {
        for (const char* program : {"Xvfb", "setxkbmap"})
            if (!isInstalled(program))
                GTEST_SKIP() << program << " is not installed";
        HelperTest::SetUp();
        surroundings.push_back("DISPLAY=" + display.name());
        auto first = profile(u"One");
        first.set("buttons", dict({{"04", assignment(kSelectAll, 0, 0)}}));
        writeFile(userSettings, plist::writeXml(dict({{"quorvi", tree(list({first}), list())}})).value());
    }
    /// The keys that go down when the input is pressed.
    [[nodiscard]] std::vector<int> keysOfPress() {
        std::vector<int> keys;
        const auto listener =
            SimulatedMouseListener::listen(*bus, psn, [&](std::span<const EmittedEvent> frame) {
                for (const auto& event : frame)
                    if (event.type == EV_KEY && event.value == 1)
                        keys.push_back(event.code);
            });
        EXPECT_EQ(pressSimulatedMouse(*bus, psn, 4), noErr);
        EXPECT_EQ(releaseSimulatedMouse(*bus, psn, 4), noErr);
        EXPECT_TRUE(waitFor(*bus, [&] { return keys.size() >= 2; }));
        return keys;
    }

    VirtualDisplay display;
};

TEST_F(LettersOfTheSession, AreTypedByTheKeysOfItsLayoutAndOfTheNextOne) {
    ASSERT_TRUE(display.setLayout("fr"));
    start();
    EXPECT_EQ(keysOfPress(), (std::vector{KEY_LEFTCTRL, KEY_Q}));
    ASSERT_TRUE(display.setLayout("us"));
    EXPECT_TRUE(waitUntil([&] { return keysOfPress() == std::vector{KEY_LEFTCTRL, KEY_A}; }));
}

TEST_F(LettersOfTheSession, AreSentToTheMiceInUse) {
    const PrivateBus systemBus;
    const EnvironmentVariable session("DBUS_SESSION_BUS_ADDRESS", privateBus.address());
    const EnvironmentVariable system("DBUS_SYSTEM_BUS_ADDRESS", systemBus.address());
    const StandInService service({{"1e7d:2dcb:one"}});
    ASSERT_TRUE(display.setLayout("fr"));
    start();
    std::vector<MouseEntry> mice;
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(useMouse(*bus, psn, "1e7d:2dcb:one", true), noErr);
    const auto keyOfA = [&] { return service.optionsOf("1e7d:2dcb:one").letterKeys[0]; };
    EXPECT_TRUE(waitUntil([&] { return keyOfA() == KEY_Q; }));
    ASSERT_TRUE(display.setLayout("us"));
    EXPECT_TRUE(waitUntil([&] { return keyOfA() == KEY_A; }));
    // And the layout is followed without a look at it in between.
    ASSERT_TRUE(comesToRest(helper->pid()));
    const auto before = sleepsOf(helper->pid());
    ASSERT_TRUE(comesToRest(helper->pid()));
    EXPECT_EQ(sleepsOf(helper->pid()), before);
}

TEST_F(LettersOfTheSession, StayAsTheyWereWhenTheServerGoes) {
    ASSERT_TRUE(display.setLayout("fr"));
    start();
    EXPECT_EQ(keysOfPress(), (std::vector{KEY_LEFTCTRL, KEY_Q}));
    display.kill();
    EXPECT_EQ(keysOfPress(), (std::vector{KEY_LEFTCTRL, KEY_Q}));
    ASSERT_TRUE(comesToRest(helper->pid())) << "a lost connection is readable for ever";
}

} // namespace
} // namespace quorvi::test
