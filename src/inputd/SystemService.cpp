#include "inputd/SystemService.h"

#include <cstdio>
#include <cstdlib>

#include <systemd/sd-login.h>

#include "events/InputdInterface.h"
#include "inputd/bus/BusObject.h"
#include "inputd/bus/EventSources.h"
#include "inputd/bus/SleepWatch.h"
#include "inputd/bus/WhoMay.h"

namespace quorvi::inputd {

namespace {

int fail(const char* reason) {
    std::fprintf(stderr, "quorvi-inputd: %s\n", reason);
    return 1;
}

/// Set by systemd; without it, permissions are asked for again after the next start.
std::string stateFolder() {
    const char* folder = std::getenv("STATE_DIRECTORY");
    return folder ? folder : "";
}

events::BusPtr systemBus(sd_event* loop) {
    sd_bus* bus = nullptr;
    events::BusPtr owner(sd_bus_open_system(&bus) >= 0 ? bus : nullptr);
    if (!owner || sd_bus_attach_event(bus, loop, SD_EVENT_PRIORITY_NORMAL) < 0 ||
        sd_bus_set_exit_on_disconnect(bus, 1) < 0)
        return nullptr;
    return owner;
}

/// Reports logins, logouts and session switches.
class LoginMonitor {
  public:
    LoginMonitor(sd_event* loop, std::function<void()> changed) : m_changed(std::move(changed)) {
        if (sd_login_monitor_new(nullptr, &m_monitor) < 0)
            return;
        sd_event_add_io(loop, &m_source, sd_login_monitor_get_fd(m_monitor),
            static_cast<std::uint32_t>(sd_login_monitor_get_events(m_monitor)), happened, this);
    }
    ~LoginMonitor() {
        sd_event_source_unref(m_source);
        sd_login_monitor_unref(m_monitor);
    }
    LoginMonitor(const LoginMonitor&) = delete;
    LoginMonitor& operator=(const LoginMonitor&) = delete;

    [[nodiscard]] bool listens() const { return m_source != nullptr; }

  private:
    static int happened(sd_event_source* /*source*/, int /*fd*/, std::uint32_t /*events*/, void* self) {
        auto& monitor = *static_cast<LoginMonitor*>(self);
        sd_login_monitor_flush(monitor.m_monitor);
        monitor.m_changed();
        return 0;
    }

    std::function<void()> m_changed;
    sd_login_monitor* m_monitor = nullptr;
    sd_event_source* m_source = nullptr;
};

class SystemService final : public LoopOwner, public UsedMiceListener {
  public:
    SystemService(Loop& loop, EventSources& sources, sd_bus* bus)
        : m_loop(loop), m_sources(sources), m_mice(loop, *this), m_questions(bus),
          m_watchers(bus, m_questions), m_allowed(stateFolder()),
          m_nodes(sources.get(), [this] { nodesChanged(); }),
          m_logins(sources.get(), [this] { loginsChanged(); }),
          m_sleep(bus, m_questions, [this](bool begins) { begins ? m_mice.goToSleep() : m_mice.wakeUp(); }),
          m_object(bus, m_questions, m_nodes, m_mice, m_watchers, m_allowed,
              [this] { m_sleep.setNeeded(!m_mice.isEmpty()); }) {}

    int run() {
        if (!m_logins.listens())
            return fail("who sits at the machine cannot be told: there is no log-in manager");
        if (!m_nodes.start())
            return fail("udev does not tell of devices");
        m_mice.pluggedIn(m_nodes.mice());
        m_active = activeSession(usualSeat);
        if (!m_object.start())
            return fail("the system bus does not let it have its name");
        m_loop.run(*this);
        return m_lostBus ? fail("the system bus has gone") : 0;
    }

    std::optional<std::chrono::microseconds> beforeWait() override {
        switch (m_sources.serve()) {
        case EventSources::Result::nothingWaits:
            return {};
        case EventSources::Result::more:
            return std::chrono::microseconds(0);
        case EventSources::Result::ended:
            break;
        }
        m_lostBus = true;
        m_loop.end();
        return std::chrono::microseconds(0);
    }
    std::optional<engine::Time> nextWake() override { return m_mice.nextWake(); }
    void wake() override { m_mice.wake(); }

    void statusChanged(const UsedMouse& mouse) override {
        m_watchers.tellStatus(mouse, nameOf(mouse.driven.state()));
        m_sources.touch();
    }
    void inputChanged(const UsedMouse& mouse, std::uint8_t input, bool pressed) override {
        if (!m_watchers.wantInputs())
            return;
        m_watchers.tellInput(mouse, input, pressed);
        m_sources.touch();
    }
    void codeChanged(const UsedMouse& mouse, std::uint16_t code, bool pressed) override {
        if (m_watchers.tellCode(mouse, code, pressed))
            m_sources.touch();
    }
    void forgotten(const UsedMouse& mouse) override {
        m_watchers.tellStatus(mouse, kStateUnused);
        m_sources.touch();
    }

  private:
    static constexpr char usualSeat[] = "seat0";

    void nodesChanged() {
        m_mice.pluggedIn(m_nodes.mice());
        m_object.tellMiceChanged();
    }

    void loginsChanged() {
        m_mice.forgetIf(
            [](const UsedMouse& mouse) { return !mayUse(mouse.owner, activeSession(mouse.seat)); });
        m_sleep.setNeeded(!m_mice.isEmpty());
        // Ignore logins at other seats.
        if (auto active = activeSession(usualSeat); active != m_active) {
            m_active = std::move(active);
            m_object.tellMiceChanged();
        }
    }

    Loop& m_loop;
    EventSources& m_sources;
    UsedMice m_mice;
    Questions m_questions;
    Watchers m_watchers;
    AllowedUsers m_allowed;
    NodeList m_nodes;
    LoginMonitor m_logins;
    SleepWatch m_sleep;
    BusObject m_object;
    std::optional<ActiveSession> m_active;
    bool m_lostBus = false;
};

} // namespace

int runSystemService() {
    Loop loop;
    EventSources sources(loop);
    if (!loop.isUsable() || !sources.get())
        return fail("too few file descriptors");
    const auto bus = systemBus(sources.get());
    if (!bus)
        return fail("there is no system bus");
    return SystemService(loop, sources, bus.get()).run();
}

} // namespace quorvi::inputd
