// Shows short texts on the screen: with KDE's own display if it runs, else with a notification that replaces
// the previous one.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "events/AsyncCalls.h"

namespace quorvi {

/// Never blocks. While the desktop has not answered, only the newest text is kept, and it is dropped if it
/// gets too old.
class ScreenDisplay {
  public:
    /// The session bus, which must outlive the object.
    explicit ScreenDisplay(sd_bus* bus) : m_calls(bus) {}

    /// Shows a UTF-8 text, unless the desktop inhibits notifications, as during a full-screen game.
    void show(const std::string& text);

  private:
    using Clock = std::chrono::steady_clock;

    void askWhetherInhibited();
    void showByKde();
    void notify();
    void done();

    events::AsyncCalls m_calls;
    std::string m_text;       ///< the text being shown
    bool m_isShowing = false; ///< an answer is pending
    std::optional<std::string> m_next;
    Clock::time_point m_nextCame;
    std::uint32_t m_notification = 0; ///< the one to replace; 0 for none
    std::string m_server;             ///< the unique name of the server that gave it
};

} // namespace quorvi
