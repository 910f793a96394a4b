// The window in front on KWin, Plasma's compositor and window manager.
#pragma once

#include <string>

#include "events/EventLoop.h"
#include "events/Timer.h"
#include "helper/front/BusCall.h"
#include "helper/front/DesktopReports.h"
#include "helper/front/FrontSource.h"

namespace quorvi::front {

/// KWin runs scripts loaded over the bus; ours reports the window in front. It is reloaded when KWin
/// restarts, and removed at the end. KWin 5 and 6 use different object paths for it.
class KWinSource : public FrontSource {
  public:
    /// The references must outlive the object. KWin must be able to read the script's path.
    KWinSource(const EventBus& bus, EventLoop& loop, DesktopReports& reports, std::string script);
    ~KWinSource() override;

    void start() override {}
    [[nodiscard]] bool tells() const override { return m_isRunning; }
    [[nodiscard]] std::string_view name() const override { return "KWin"; }

  private:
    void loadAnew();
    void load();
    void loadLater();
    void run(std::int32_t number);
    void setRunning(bool running);

    const EventBus& m_bus;
    EventLoop& m_loop;
    std::string m_script;
    Timer m_timer;
    int m_triesLeft = 0;
    BusCall m_call;
    bool m_isRunning = false;
    WatchedName m_kwin;
};

} // namespace quorvi::front
