// libsystemd's event sources (the bus, udev, logins) as one descriptor of our loop. They are served only when
// ready: reports of the mouse do not touch them.
#pragma once

#include <memory>

#include <systemd/sd-event.h>

#include "inputd/loop/Loop.h"

namespace quorvi::inputd {

class EventSources final : Watcher {
  public:
    explicit EventSources(Loop& loop);
    ~EventSources() override;
    EventSources(const EventSources&) = delete;
    EventSources& operator=(const EventSources&) = delete;

    /// Null if the system has no descriptors left.
    [[nodiscard]] sd_event* get() const { return m_event.get(); }

    /// Call this after calling libsystemd outside of its callbacks: the call may have left pending work.
    void touch() { m_touched = true; }

    enum class Result {
        nothingWaits,
        more, ///< there is more to do at once
        ended ///< the bus is gone
    };
    /// Serves some of the pending events. Call this before each wait.
    [[nodiscard]] Result serve();

  private:
    void ready(std::uint32_t events) override;

    struct Releaser {
        void operator()(sd_event* event) const { sd_event_unref(event); }
    };
    Loop& m_loop;
    std::unique_ptr<sd_event, Releaser> m_event;
    bool m_touched = true;
};

} // namespace quorvi::inputd
