// What libsystemd waits for (the bus, udev, log-ins), as one descriptor of our loop. Only when it has
// something to do is it asked: a report of the mouse costs no look at any of it.
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

    /// Null when the system has no descriptor left for it.
    [[nodiscard]] sd_event* get() const { return m_event.get(); }

    /// To be called when a function of libsystemd was, outside of its own callbacks: it may have left
    /// something to do.
    void touch() { m_touched = true; }

    enum class Result {
        nothingWaits,
        more, ///< there is more to do at once
        ended ///< the bus is gone
    };
    /// Does what is to be done, some of it. To be called before each wait.
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
