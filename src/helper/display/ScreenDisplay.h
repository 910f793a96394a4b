// Short texts on the screen: by KDE's own display where it runs, else by a notification that replaces itself.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "events/AsyncCalls.h"

namespace quorvi {

/// Waits for nobody. A text that comes while the desktop has not answered waits, the newest alone; when it
/// has become old by then, it is not shown any more.
class ScreenDisplay {
  public:
    /// The session's bus, which must live longer.
    explicit ScreenDisplay(sd_bus* bus) : m_calls(bus) {}

    /// UTF-8. Nothing is shown while the desktop says that notifications are inhibited, as during a game that
    /// fills the screen.
    void show(const std::string& text);

  private:
    using Clock = std::chrono::steady_clock;

    void askWhetherInhibited();
    void showByKde();
    void notify();
    void done();

    events::AsyncCalls m_calls;
    std::string m_text;       ///< that is being shown
    bool m_isShowing = false; ///< an answer is waited for
    std::optional<std::string> m_next;
    Clock::time_point m_nextCame;
    std::uint32_t m_notification = 0; ///< the one to replace; 0 for none
    std::string m_server;             ///< whose number that is, by its unique name
};

} // namespace quorvi
