#include "helper/front/KWinSource.h"

#include <utility>

namespace quorvi::front {

namespace {

constexpr char kScripting[] = "/Scripting";
constexpr char kScriptingInterface[] = "org.kde.kwin.Scripting";
constexpr char kScriptInterface[] = "org.kde.kwin.Script";
constexpr int kMostTries = 40;
constexpr auto kBetweenTries = std::chrono::milliseconds(250);
constexpr char kScriptName[] = "kyvar-quorvi-front";

} // namespace

KWinSource::KWinSource(const EventBus& bus, EventLoop& loop, DesktopReports& reports, std::string script)
    : m_bus(bus), m_loop(loop), m_script(std::move(script)), m_call(bus),
      m_kwin(bus, "org.kde.KWin", [this] { loadAnew(); }) {
    m_loop.watch(m_timer.fd(), [this] {
        m_timer.set(std::nullopt);
        load();
    });
    reports.listenTo(m_kwin, [this](const FrontWindow& window) { report(window); });
}

KWinSource::~KWinSource() {
    m_loop.unwatch(m_timer.fd());
    auto& bus = m_bus.connection();
    if (!m_isRunning)
        return;
    const auto message = bus.newCall(m_kwin.owner().c_str(), kScripting, kScriptingInterface, "unloadScript");
    if (!message || sd_bus_message_append(message.get(), "s", kScriptName) < 0)
        return;
    sd_bus_message_set_expect_reply(message.get(), 0);
    sd_bus_send(bus.bus.get(), message.get(), nullptr);
    sd_bus_flush(bus.bus.get());
}

/// A killed helper's script may still be loaded, and is removed only when KWin has answered.
void KWinSource::loadAnew() {
    m_call.giveUp();
    m_timer.set(std::nullopt);
    m_triesLeft = kMostTries;
    setRunning(false);
    if (!m_kwin.owner().empty())
        m_call.make(
            m_kwin.owner(), kScripting, kScriptingInterface, "unloadScript",
            [this](sd_bus_message*) { load(); }, "s", kScriptName);
}

void KWinSource::load() {
    m_call.make(
        m_kwin.owner(), kScripting, kScriptingInterface, "loadScript",
        [this](sd_bus_message* answer) {
            std::int32_t number = -1;
            if (answer && sd_bus_message_read(answer, "i", &number) > 0 && number >= 0)
                run(number);
            else
                loadLater();
        },
        "ss", m_script.c_str(), kScriptName);
}

/// KWin takes its name a moment before it accepts scripts, and does not signal when it does.
void KWinSource::loadLater() {
    if (--m_triesLeft > 0)
        m_timer.set(Timer::Clock::now() + kBetweenTries);
}

void KWinSource::run(std::int32_t number) {
    const std::string ofKWin6 = std::string(kScripting) + "/Script" + std::to_string(number);
    const auto ofKWin5 = std::string("/").append(std::to_string(number));
    m_call.make(m_kwin.owner(), ofKWin6, kScriptInterface, "run", [this, ofKWin5](sd_bus_message* answer) {
        if (answer)
            return setRunning(true);
        m_call.make(m_kwin.owner(), ofKWin5, kScriptInterface, "run",
            [this](sd_bus_message* older) { setRunning(older != nullptr); });
    });
}

void KWinSource::setRunning(bool running) {
    if (std::exchange(m_isRunning, running) != running)
        changed();
}

} // namespace quorvi::front
