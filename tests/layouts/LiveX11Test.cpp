// The layout of a real X server, while it changes.
#include "layouts/LiveLayoutTools.h"
#include "layouts/X11KeyboardLayout.h"
#include "support/TemporaryFolder.h"
#include "support/VirtualDisplay.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kShiftKeyCode = "62"; // a name would make xdotool press the other Shift as well
constexpr const char* kCapsLockKeyCode = "66";

class LiveX11 : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* program : {"Xvfb", "setxkbmap", "xdotool"})
            if (!isInstalled(program))
                GTEST_SKIP() << program << " is not installed";
    }
    void TearDown() override { SetCurrentKeyboardLayout(nullptr); }

    /// A connection to the display, which has been given the layout before.
    static std::unique_ptr<LiveKeyboardLayout> connectTo(
        const VirtualDisplay& display, const std::string& layout) {
        EXPECT_TRUE(display.setLayout(layout));
        const EnvironmentVariable variable("DISPLAY", display.name());
        return connectToX11Keyboard();
    }
};

TEST_F(LiveX11, everyPrintingKeyOfEveryLayoutIsNamedAsTheServerHasIt) {
    const VirtualDisplay display;
    const auto live = connectTo(display, "pl");
    ASSERT_NE(live, nullptr);
    (void)live->layout();
    Changes changes(*live);
    for (const LayoutCase& layout : layoutCases) {
        changes.drain();
        ASSERT_TRUE(display.setLayout(layout.layout, layout.variant));
        ASSERT_TRUE(changes.wait()) << layout.layout;
        expectKeysAreNamedBy(*live, layout);
    }
}

TEST_F(LiveX11, theFirstLayoutIsTheOneThatTheServerHasAlready) {
    const VirtualDisplay display;
    const auto live = connectTo(display, "fr");
    ASSERT_NE(live, nullptr);
    expectKeysAreNamedBy(*live, {"fr", "", true});
}

TEST_F(LiveX11, namesFollowTheGroup) {
    const VirtualDisplay display;
    const auto live = connectTo(display, "us,fr,ru");
    ASSERT_NE(live, nullptr);
    Changes changes(*live);
    EXPECT_EQ(nameOfFirstLetter(*live), u"q");
    ASSERT_EQ(display.lockGroup(1), 1);
    ASSERT_TRUE(changes.wait());
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    ASSERT_EQ(display.lockGroup(2), 2);
    ASSERT_TRUE(changes.wait());
    EXPECT_EQ(nameOfFirstLetter(*live), u"q"); // for a shortcut under a Cyrillic group
    std::uint32_t noDeadKey = 0;
    EXPECT_EQ(live->layout()->translate(0x0C, 0, noDeadKey).character, u'й');
}

TEST_F(LiveX11, aGroupThatIsActiveAlreadyIsTheFirstLayout) {
    const VirtualDisplay display;
    ASSERT_TRUE(display.setLayout("us,de"));
    ASSERT_EQ(display.lockGroup(1), 1);
    const EnvironmentVariable variable("DISPLAY", display.name());
    const auto live = connectToX11Keyboard();
    ASSERT_NE(live, nullptr);
    nameKeysBy(*live);
    EXPECT_EQ(GetKeyName(0x10), u"z");
}

TEST_F(LiveX11, pressedModifiersWakeNobodyUp) {
    const VirtualDisplay display;
    const auto live = connectTo(display, "us");
    ASSERT_NE(live, nullptr);
    (void)live->layout();
    Changes changes(*live);
    // The first press makes xdotool's own device the source of the core keyboard, which the server announces.
    ASSERT_TRUE(display.xdotool({"key", kShiftKeyCode}));
    display.settle();
    changes.drain();
    const int before = changes.count();

    ASSERT_TRUE(display.xdotool({"key", kShiftKeyCode, kCapsLockKeyCode, kShiftKeyCode, kCapsLockKeyCode}));
    display.settle();
    EXPECT_FALSE(changes.isReadable());

    ASSERT_EQ(display.lockGroup(1), 0); // there is but one group, so that nothing changes
    EXPECT_FALSE(changes.isReadable());
    ASSERT_TRUE(display.setLayout("de"));
    EXPECT_TRUE(changes.wait());
    EXPECT_GT(changes.count(), before);
}

TEST_F(LiveX11, aChangeWhileTheLayoutIsReadIsNotLost) {
    const VirtualDisplay display;
    const auto live = connectTo(display, "us");
    ASSERT_NE(live, nullptr);
    (void)live->layout();
    Changes changes(*live);
    ASSERT_TRUE(display.setLayout("de"));
    ASSERT_TRUE(changes.wait());
    // These notices come together with the answers that the layout is read from.
    ASSERT_TRUE(display.setLayout("fr"));
    display.settle();
    const int before = changes.count();
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    EXPECT_GT(changes.count(), before);
    EXPECT_FALSE(changes.isReadable());
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
}

TEST_F(LiveX11, theLastLayoutStaysWhenTheServerDies) {
    const ConfiguredDvorak configured;
    VirtualDisplay display;
    const auto live = connectTo(display, "fr");
    ASSERT_NE(live, nullptr);
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    EXPECT_GE(live->fd(), 0);
    display.kill();
    Changes changes(*live);
    EXPECT_FALSE(changes.wait());
    EXPECT_EQ(live->fd(), -1);
    live->process();
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
}

TEST_F(LiveX11, theLastLayoutStaysWhenTheServerDiesBeforeTheNextIsRead) {
    const ConfiguredDvorak configured;
    VirtualDisplay display;
    const auto live = connectTo(display, "fr");
    ASSERT_NE(live, nullptr);
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    Changes changes(*live);
    ASSERT_TRUE(display.setLayout("de"));
    ASSERT_TRUE(changes.wait());
    display.kill();
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    EXPECT_EQ(live->fd(), -1);
}

TEST_F(LiveX11, thereIsNoneWithoutAServer) {
    for (const char* nowhere : {":9999", "nonsense", "", "/no/such/socket"}) {
        const EnvironmentVariable variable("DISPLAY", nowhere);
        EXPECT_EQ(connectToX11Keyboard(), nullptr) << nowhere;
    }
}

TEST_F(LiveX11, thereIsNoneWhenTheServerRefuses) {
    const TemporaryFolder folder;
    // One entry for every host and every display, with a key of 16 bytes.
    const std::string key = "0123456789abcdef";
    const std::string entry =
        std::string("\xFF\xFF\0\0\0\0\0\x12", 8) + "MIT-MAGIC-COOKIE-1" + std::string("\0\x10", 2) + key;
    const std::string keys = folder.write("keys", entry);
    const VirtualDisplay display({"-auth", keys});
    const EnvironmentVariable variable("DISPLAY", display.name());
    {
        const EnvironmentVariable withoutKey("XAUTHORITY", folder.path("none"));
        EXPECT_EQ(connectToX11Keyboard(), nullptr);
    }
    const EnvironmentVariable withKey("XAUTHORITY", keys);
    EXPECT_NE(connectToX11Keyboard(), nullptr);
}

} // namespace
