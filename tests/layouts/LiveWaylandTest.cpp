// The layout of real Wayland compositors, while it changes and while keyboards are added and removed.
#include <csignal>

#include <wayland-client.h>

#include "layouts/LiveLayoutTools.h"
#include "layouts/WaylandKeyboardLayout.h"
#include "support/Compositors.h"
#include "support/VirtualDisplay.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// The compositor is the one of this process for a while.
class Inside {
  public:
    explicit Inside(const Compositor& compositor)
        : m_folder("XDG_RUNTIME_DIR", compositor.runtimeFolder()),
          m_socket("WAYLAND_DISPLAY", compositor.socket()) {}

  private:
    EnvironmentVariable m_folder;
    EnvironmentVariable m_socket;
};

std::unique_ptr<LiveKeyboardLayout> connectTo(const Compositor& compositor) {
    const Inside inside(compositor);
    return connectToWaylandKeyboard();
}

class LiveWayland : public testing::Test {
  protected:
    void SetUp() override { skipWithout({"Xvfb", "setxkbmap", "sway", "swaymsg"}); }
    void TearDown() override { SetCurrentKeyboardLayout(nullptr); }

    static void skipWithout(const std::vector<std::string>& programs) {
        for (const std::string& program : programs)
            if (!isInstalled(program))
                GTEST_SKIP() << program << " is not installed";
    }
};

class LiveWeston : public LiveWayland {
  protected:
    void SetUp() override { skipWithout({"Xvfb", "setxkbmap", "weston"}); }
};

TEST_F(LiveWayland, everyPrintingKeyOfEveryLayoutIsNamedAsSwayHasIt) {
    const VirtualDisplay display;
    const Sway sway(display.name());
    const auto live = connectTo(sway);
    ASSERT_NE(live, nullptr);
    Changes changes(*live);
    ASSERT_TRUE(sway.setLayout("pl"));
    ASSERT_TRUE(changes.wait());
    for (const LayoutCase& layout : layoutCases) {
        changes.drain();
        ASSERT_TRUE(sway.setLayout(layout.layout, layout.variant));
        ASSERT_TRUE(changes.wait()) << layout.layout;
        changes.drain(); // sway changes layout and variant one after the other
        expectKeysAreNamedBy(*live, layout);
    }
}

TEST_F(LiveWeston, everyPrintingKeyOfEveryLayoutIsNamedAsWestonHasIt) {
    const VirtualDisplay display;
    for (const LayoutCase& layout : layoutCases) {
        ASSERT_TRUE(display.setLayout(layout.layout, layout.variant));
        const Weston weston(display.name());
        const auto live = connectTo(weston);
        ASSERT_NE(live, nullptr) << layout.layout;
        expectKeysAreNamedBy(*live, layout);
    }
}

TEST_F(LiveWeston, thereIsNoneWithoutAKeyboard) {
    const Weston weston;
    EXPECT_EQ(connectTo(weston), nullptr);
}

TEST_F(LiveWayland, theLastLayoutStaysWhenTheCompositorDies) {
    const ConfiguredDvorak configured;
    const VirtualDisplay display;
    Sway sway(display.name());
    ASSERT_TRUE(sway.setLayout("fr"));
    const auto live = connectTo(sway);
    ASSERT_NE(live, nullptr);
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    EXPECT_GE(live->fd(), 0);
    sway.process().kill();
    Changes changes(*live);
    EXPECT_FALSE(changes.wait());
    EXPECT_EQ(live->fd(), -1);
    live->process();
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
}

TEST_F(LiveWayland, aCompositorThatHangsIsNotWaitedForLong) {
    const VirtualDisplay display;
    Sway sway(display.name());
    sway.process().signal(SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(connectTo(sway), nullptr);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(240));
    EXPECT_LT(waited, std::chrono::seconds(2));
}

TEST_F(LiveWayland, thereIsNoneWithoutACompositor) {
    for (const char* nowhere : {"no-such-socket", "/no/such/socket"}) {
        const EnvironmentVariable variable("WAYLAND_DISPLAY", nowhere);
        EXPECT_EQ(connectToWaylandKeyboard(), nullptr) << nowhere;
    }
    const EnvironmentVariable noFolder("XDG_RUNTIME_DIR", std::nullopt);
    const EnvironmentVariable variable("WAYLAND_DISPLAY", "wayland-1");
    EXPECT_EQ(connectToWaylandKeyboard(), nullptr);
}

/// A connection of the test's, which it dispatches as a toolkit would.
class Connection {
  public:
    explicit Connection(const Compositor& compositor) {
        const Inside inside(compositor);
        m_display = wl_display_connect(nullptr);
    }
    ~Connection() { wl_display_disconnect(m_display); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] wl_display& display() const { return *m_display; }
    /// Dispatches until the condition holds; false when the compositor stops answering.
    template <typename Condition>
    [[nodiscard]] bool dispatchUntil(Condition&& condition) const {
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (!condition())
            if (std::chrono::steady_clock::now() > end || wl_display_roundtrip(m_display) < 0)
                return false;
        return true;
    }

  private:
    wl_display* m_display;
};

TEST_F(LiveWayland, onABorrowedConnectionTheConfiguredLayoutIsUsedUntilTheKeymapComes) {
    const ConfiguredDvorak configured;
    const VirtualDisplay display;
    const Sway sway(display.name());
    ASSERT_TRUE(sway.setLayout("fr"));
    const Connection connection(sway);
    const auto live = borrowWaylandKeyboard(connection.display());
    Changes changes(*live);
    EXPECT_EQ(live->fd(), -1);
    EXPECT_EQ(nameOfFirstLetter(*live), firstLetterOfDvorak);
    ASSERT_TRUE(connection.dispatchUntil([&] { return changes.count() > 0; }));
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    const int before = changes.count();
    ASSERT_TRUE(sway.setLayout("de"));
    ASSERT_TRUE(connection.dispatchUntil([&] { return changes.count() > before; }));
    EXPECT_EQ(nameOfFirstLetter(*live), u"q");
}

TEST_F(LiveWayland, aBorrowedConnectionIsLeftInOrder) {
    const VirtualDisplay display;
    const Sway sway(display.name());
    const Connection connection(sway);
    for (int i = 0; i < 5; ++i) {
        const auto live = borrowWaylandKeyboard(connection.display());
        for (int roundtrips = 0; roundtrips < i; ++roundtrips) // let go of in every stage of the introduction
            ASSERT_GE(wl_display_roundtrip(&connection.display()), 0);
    }
    ASSERT_TRUE(sway.setLayout("de"));
    EXPECT_GE(wl_display_roundtrip(&connection.display()), 0);
    EXPECT_EQ(wl_display_get_error(&connection.display()), 0);
}

TEST_F(LiveWayland, theBorrowedConnectionMayBreakFirst) {
    const VirtualDisplay display;
    Sway sway(display.name());
    ASSERT_TRUE(sway.setLayout("fr"));
    const Connection connection(sway);
    const auto live = borrowWaylandKeyboard(connection.display());
    Changes changes(*live);
    ASSERT_TRUE(connection.dispatchUntil([&] { return changes.count() > 0; }));
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
    sway.process().kill();
    EXPECT_LT(wl_display_roundtrip(&connection.display()), 0);
    EXPECT_EQ(nameOfFirstLetter(*live), u"a");
}

TEST_F(LiveWayland, keyboardsMayComeAndGo) {
    skipWithout({"wtype"});
    const ConfiguredDvorak configured;
    const Sway sway; // it has a seat, and no keyboard but while wtype runs
    EXPECT_EQ(connectTo(sway), nullptr);
    const Connection connection(sway);
    const auto live = borrowWaylandKeyboard(connection.display());
    Changes changes(*live);
    ASSERT_TRUE(connection.dispatchUntil([i = 0]() mutable { return ++i > 3; }));
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(nameOfFirstLetter(*live), firstLetterOfDvorak);
    for (int keyboards = 1; keyboards <= 2; ++keyboards) {
        const int before = changes.count();
        {
            ChildProcess keyboard({"wtype", "-s", "20000", "a"}, sway.environment());
            ASSERT_TRUE(connection.dispatchUntil([&] { return changes.count() > before; }));
            EXPECT_NE(nameOfFirstLetter(*live), firstLetterOfDvorak); // its keymap has nothing but an a
        }
        ASSERT_TRUE(connection.dispatchUntil([i = 0]() mutable { return ++i > 3; }));
        EXPECT_NE(nameOfFirstLetter(*live), firstLetterOfDvorak);
    }
    EXPECT_EQ(wl_display_get_error(&connection.display()), 0);
}

// Which source is chosen.

TEST_F(LiveWayland, theCompositorComesBeforeTheServerAndTheServerBeforeTheConfiguration) {
    const ConfiguredDvorak configured;
    const VirtualDisplay display;
    const Sway sway(display.name());
    ASSERT_TRUE(sway.setLayout("fr"));
    ASSERT_TRUE(display.setLayout("us"));
    const Inside inside(sway);
    const EnvironmentVariable onDisplay("DISPLAY", display.name());
    EXPECT_EQ(nameOfFirstLetter(*keyboardLayoutOfEnvironment()), u"a");
    for (const auto& nowhere : {std::optional<std::string>("nowhere"), std::optional<std::string>(""),
             std::optional<std::string>()}) {
        const EnvironmentVariable noCompositor("WAYLAND_DISPLAY", nowhere);
        EXPECT_EQ(nameOfFirstLetter(*keyboardLayoutOfEnvironment()), u"q");
        for (const auto& noDisplay : {std::optional<std::string>(":9999"), std::optional<std::string>()}) {
            const EnvironmentVariable noServer("DISPLAY", noDisplay);
            const auto live = keyboardLayoutOfEnvironment();
            EXPECT_EQ(nameOfFirstLetter(*live), firstLetterOfDvorak);
            EXPECT_EQ(live->fd(), -1);
        }
    }
}

TEST_F(LiveWayland, aCompositorByItsPathNeedsNoRuntimeFolder) {
    const ConfiguredDvorak configured;
    const VirtualDisplay display;
    const Sway sway(display.name());
    ASSERT_TRUE(sway.setLayout("fr"));
    const EnvironmentVariable noDisplay("DISPLAY", std::nullopt);
    const EnvironmentVariable noFolder("XDG_RUNTIME_DIR", std::nullopt);
    const EnvironmentVariable path("WAYLAND_DISPLAY", sway.runtimeFolder() + "/" + sway.socket());
    EXPECT_EQ(nameOfFirstLetter(*keyboardLayoutOfEnvironment()), u"a");
    const EnvironmentVariable relative("WAYLAND_DISPLAY", sway.socket());
    EXPECT_EQ(nameOfFirstLetter(*keyboardLayoutOfEnvironment()), firstLetterOfDvorak);
}

TEST_F(LiveWeston, aCompositorWithoutAKeyboardGivesWayToTheServer) {
    const VirtualDisplay display;
    ASSERT_TRUE(display.setLayout("fr"));
    const Weston weston;
    const Inside inside(weston);
    const EnvironmentVariable onDisplay("DISPLAY", display.name());
    EXPECT_EQ(nameOfFirstLetter(*keyboardLayoutOfEnvironment()), u"a");
}

} // namespace
