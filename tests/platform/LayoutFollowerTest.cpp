// The layout that a program with a window follows, on every platform of Qt's.
#include <gtest/gtest.h>

#include "support/Compositors.h"
#include "support/VirtualDisplay.h"

using namespace quorvi::test;

namespace {

class LayoutFollower : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* program : {"Xvfb", "setxkbmap", "sway", "swaymsg", "weston"})
            if (!isInstalled(program))
                GTEST_SKIP() << program << " is not installed";
    }

    /// Starts the program. Its configured layout is one that no display server here has.
    void start(const std::string& platform, std::vector<std::string> environment) {
        for (const char* setting : {"XKB_DEFAULT_LAYOUT=us", "XKB_DEFAULT_VARIANT=dvorak"})
            environment.emplace_back(setting);
        environment.push_back("QT_QPA_PLATFORM=" + platform);
        m_program = std::make_unique<ChildProcess>(std::vector<std::string>{QUORVI_FOLLOWER}, environment);
    }

    /// Waits until the key has the name; false when the program ends before.
    [[nodiscard]] bool nameBecomes(const std::string& name) {
        for (auto line = m_program->readLine(); line; line = m_program->readLine())
            if (*line == name)
                return true;
        return false;
    }

    [[nodiscard]] ChildProcess& program() { return *m_program; }

  private:
    std::unique_ptr<ChildProcess> m_program;
};

class LayoutFollowerOnWayland : public LayoutFollower {
  protected:
    void SetUp() override {
        LayoutFollower::SetUp();
        start("wayland", {"WAYLAND_DISPLAY=nowhere"});
        if (program().readError().find("Could not find the Qt platform plugin") != std::string::npos)
            GTEST_SKIP() << "Qt's plug-in for Wayland is not installed";
    }
};

TEST_F(LayoutFollower, followsTheServerOfItsWindow) {
    const VirtualDisplay display;
    ASSERT_TRUE(display.setLayout("us"));
    // As under Xwayland: the window is the server's, and so are the keys that it gets.
    start("xcb", {"DISPLAY=" + display.name(), "WAYLAND_DISPLAY=nowhere"});
    ASSERT_TRUE(nameBecomes("q"));
    ASSERT_TRUE(display.setLayout("fr,us"));
    ASSERT_TRUE(nameBecomes("a"));
    ASSERT_EQ(display.lockGroup(1), 1);
    ASSERT_TRUE(nameBecomes("q"));
}

TEST_F(LayoutFollower, usesTheConfiguredLayoutWithoutADisplayServer) {
    start("offscreen", {});
    EXPECT_TRUE(nameBecomes("'"));
}

TEST_F(LayoutFollowerOnWayland, followsSwayAndTheGroupOfItsFocus) {
    const VirtualDisplay display;
    const Sway sway(display.name());
    ASSERT_TRUE(sway.setLayout("fr"));
    start("wayland", sway.environment());
    ASSERT_TRUE(nameBecomes("'")); // what is configured, until the compositor has answered
    ASSERT_TRUE(nameBecomes("a"));
    ASSERT_TRUE(sway.setLayout("us,fr"));
    ASSERT_TRUE(nameBecomes("q"));
    ASSERT_TRUE(sway.command("input type:keyboard xkb_switch_layout 1"));
    ASSERT_TRUE(nameBecomes("a"));
    ASSERT_TRUE(sway.command("input type:keyboard xkb_switch_layout 0"));
    ASSERT_TRUE(nameBecomes("q"));
    EXPECT_TRUE(program().isRunning());
}

TEST_F(LayoutFollowerOnWayland, followsWeston) {
    const VirtualDisplay display;
    ASSERT_TRUE(display.setLayout("fr"));
    const Weston weston(display.name());
    start("wayland", weston.environment());
    ASSERT_TRUE(nameBecomes("a"));
    EXPECT_TRUE(program().isRunning());
}

TEST_F(LayoutFollowerOnWayland, endsInOrderWithItsCompositor) {
    const VirtualDisplay display;
    Sway sway(display.name());
    ASSERT_TRUE(sway.setLayout("fr"));
    start("wayland", sway.environment());
    ASSERT_TRUE(nameBecomes("a"));
    sway.process().kill();
    const auto exitCode = program().wait();
    ASSERT_TRUE(exitCode);
    // Qt ends it, not a signal: by exit(1), and since 6.8 by _exit(-1).
    EXPECT_TRUE(*exitCode == 1 || *exitCode == 255) << *exitCode;
    EXPECT_NE(program().readError().find("The Wayland connection broke."), std::string::npos);
}

} // namespace
