// The panel as a separate program showing the mouse, for the tests of storms and lost helpers.
#pragma once

#include <QTest>

#include <tuple>

#include "host/OpenProgram.h"
#include "support/Keyboard.h"
#include "support/Tabs.h"
#include "support/WindowPing.h"
#include "support/WindowTools.h"

namespace quorvi::test {

#ifdef __SANITIZE_ADDRESS__
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

/// The longest that the window may take for an answer to its user: what is just not noticed. It is 10 to 30.
/// The sanitizers make everything slower.
constexpr int kLongestDelayMs = kSanitized ? 2000 : 120;

/// The panel with its device tab in front. The box in it turns the light of the wheel on and off.
class PanelProgram {
  public:
    /// The helper runs, and the panel shows its mouse.
    PanelProgram() : m_light(spotsOf("quorviBoxLightOnWheel", kDeviceTab)) {
        session.home.awaitDeviceList();
        open();
        if (!getsTheList())
            qFatal("no device list comes");
    }

    void open(const QString& bundlePath = {}) {
        program = std::make_unique<OpenProgram>(session, bundlePath);
        program->clickAt(m_light.tab);
    }
    /// Waits for a list after UserHome::awaitDeviceList().
    [[nodiscard]] bool getsTheList() const {
        return QTest::qWaitFor([&] { return session.home.deviceListHasCome(); }, kWindowPatienceMs);
    }
    /// Clicks the light and waits until it is in the file; whether there is a helper does not matter.
    [[nodiscard]] bool clickIsSaved() const {
        return isSavedBy([&] { program->clickAt(m_light.control); });
    }
    /// The same by the key, on the box that was clicked last: a message may have moved the page since.
    [[nodiscard]] bool keyIsSaved() const {
        return isSavedBy([] { std::ignore = xdotool({"key", "space"}); });
    }
    template <typename Do>
    [[nodiscard]] bool isSavedBy(Do change) const {
        const int expected = session.home.savedLights() ^ 1;
        change();
        return QTest::qWaitFor([&] { return session.home.savedLights() == expected; }, kWindowPatienceMs);
    }
    /// The mouse comes to hold what the file says, all of it.
    [[nodiscard]] bool mouseFollows() const {
        return QTest::qWaitFor(
            [&] { return session.runs("KyvarQuorviHelper") && session.recordAgainstFile().isEmpty(); },
            kWindowPatienceMs);
    }
    [[nodiscard]] bool clickReachesTheMouse() const { return clickIsSaved() && mouseFollows(); }

    Session session{Storage::memory};
    std::unique_ptr<OpenProgram> program;

  private:
    Spots m_light;
};

/// The window has answered some more pings than by now, none of them late.
[[nodiscard]] inline bool answersInTime(const WindowPing& ping) {
    const int before = ping.answers();
    return QTest::qWaitFor([&] { return ping.answers() >= before + 5; }, kWindowPatienceMs) &&
           ping.longestDelayMs() <= kLongestDelayMs;
}

} // namespace quorvi::test
