// The time from a window coming to the front to its profile in the simulated mouse, on each installed
// desktop.

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <thread>

#include "bench/Figures.h"
#include "bench/Programs.h"
#include "events/FrontCalls.h"
#include "events/SimulatedMouse.h"
#include "helper/front/BoundApplications.h"
#include "helper/front/GnomeWindows.h"
#include "helper/front/WaylandWindows.h"
#include "helper/front/X11Display.h"
#include "model/SettingsDocument.h"
#include "support/Compositors.h"
#include "support/PrivateBus.h"
#include "support/TemporaryFolder.h"

namespace quorvi::bench {
namespace {

using test::BoundApplications;
using Environment = std::vector<std::string>;
using BringToFront = std::function<void(const std::string& id)>;

constexpr double kGoal = 20; // milliseconds

/// The helper on one desktop, with its own bus and home folder.
class Desktop {
  public:
    Desktop() {
        BoundApplications::install(m_home.path());
        BoundApplications::bind(userSettingsPath(m_home.path()));
    }
    [[nodiscard]] const std::string& busAddress() const { return m_privateBus.address(); }
    [[nodiscard]] const test::TemporaryFolder& home() const { return m_home; }
    [[nodiscard]] EventBus& bus() { return *m_bus; }

    void startHelper(Environment environment) {
        environment.insert(environment.end(), {"HOME=" + m_home.path().native(), "XDG_CONFIG_HOME",
                                                  "XDG_DATA_HOME", "XDG_DATA_DIRS=/nonexistent"});
        m_helper = std::make_unique<test::ChildProcess>(std::vector{kHelper}, environment);
        waitUntil(
            "the helper", [&] { return m_bus->findProcessByName("KyvarQuorviHelper", &m_psn) == noErr; });
    }
    void enableExtension() {
        waitUntil("the extension", [&] { return !state().gnomeExtension.empty(); });
        (void)enableGnomeExtension(*m_bus, m_psn);
    }
    void waitUntilTold() {
        waitUntil("who tells which window is in front", [&] { return !state().source.empty(); });
    }
    /// Prints the rows. A switch begins with the request to the display, so it includes the display's own
    /// time.
    void measure(const std::string& name, int switches, const BringToFront& bringToFront) {
        std::vector<double> times;
        for (int i = 0; i < switches; ++i) {
            const bool toDrawing = i % 2 == 0;
            const auto start = Clock::now();
            bringToFront(toDrawing ? BoundApplications::drawing : BoundApplications::writing);
            const auto wanted = toDrawing ? BoundApplications::ofDrawing : BoundApplications::ofWriting;
            waitUntil("switch " + std::to_string(i), [&] { return profile() == wanted; });
            times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        }
        const auto middle = figureOf(times);
        printRow("from a window in front to its profile, " + name, middle, "ms", kGoal);
        std::sort(times.begin(), times.end());
        const auto slowest = times[times.size() * 99 / 100];
        printRow("  99 of 100 switches within", {slowest, slowest, slowest}, "ms", kGoal);
    }

  private:
    [[nodiscard]] FrontState state() const {
        FrontState state;
        (void)getFrontState(*m_bus, m_psn, state);
        return state;
    }
    [[nodiscard]] std::uint32_t profile() const {
        std::uint32_t profile = 0;
        (void)getSimulatedMouseProfile(*m_bus, m_psn, profile);
        return profile;
    }
    void waitUntil(const std::string& what, const std::function<bool()>& condition) {
        const auto end = Clock::now() + test::kPatience;
        for (; !condition(); m_bus->process())
            if (Clock::now() > end)
                throw std::runtime_error(what + " does not come");
    }

    test::TemporaryFolder m_home;
    test::PrivateBus m_privateBus;
    std::unique_ptr<EventBus> m_bus{EventBus::connect()};
    std::unique_ptr<test::ChildProcess> m_helper;
    ProcessSerialNumber m_psn;
};

void measureX11(int switches) {
    Desktop desktop;
    const test::X11Display display(desktop.home().path());
    desktop.startHelper({"DISPLAY=" + display.name(), "WAYLAND_DISPLAY", "XDG_SESSION_TYPE"});
    desktop.waitUntilTold();
    std::map<std::string, xcb_window_t> windows;
    for (const auto* id : {BoundApplications::drawing, BoundApplications::writing})
        windows[id] = display.windows().open(id);
    desktop.measure("X11 with openbox", switches,
        [&](const std::string& id) { display.windows().bringToFront(windows.at(id)); });
}

template <typename Compositor>
void measureWayland(Desktop& desktop, const std::string& name, int switches, const Compositor& compositor) {
    desktop.startHelper(compositor.environment());
    desktop.waitUntilTold();
    test::WaylandWindows windows(compositor.runtimeFolder() + "/" + compositor.socket());
    desktop.measure(name, switches, [&](const std::string& id) { windows.show(id); });
}

void measureGnome(int switches) {
    Desktop desktop;
    const test::GnomeShell shell(desktop.busAddress(), QUORVI_GNOME_EXTENSIONS);
    auto environment = shell.environment();
    environment.emplace_back("XDG_CURRENT_DESKTOP=GNOME");
    desktop.startHelper(environment);
    desktop.enableExtension();
    desktop.waitUntilTold();
    test::WaylandWindows windows(shell.runtimeFolder() + "/" + shell.socket());
    for (const auto* id : {BoundApplications::drawing, BoundApplications::writing})
        windows.show(id);
    desktop.measure("GNOME Shell", switches, [&](const std::string& id) {
        if (!test::bringToFrontOnGnome(desktop.bus(), id))
            throw std::runtime_error("the Shell shows no window");
    });
}

void run(bool quick) {
    const int switches = quick ? 20 : 1000;
    measureX11(switches);
    if (test::isInstalled("sway")) {
        Desktop desktop;
        measureWayland(desktop, "sway", switches, test::Sway());
    }
    if (test::isInstalled("labwc")) {
        Desktop desktop;
        measureWayland(desktop, "labwc", switches, test::Labwc());
    }
    if (test::isInstalled("kwin_wayland")) {
        Desktop desktop;
        measureWayland(desktop, "KWin", switches, test::KWin(desktop.busAddress()));
    }
    if (test::isInstalled("gnome-shell"))
        measureGnome(switches);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    return quorvi::bench::exitCodeOf(
        "quorvi-bench-front", [&] { quorvi::bench::run(quorvi::bench::isQuick(argc, argv)); });
}
