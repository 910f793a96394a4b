#include "inputd/bus/EventSources.h"

namespace quorvi::inputd {

namespace {

/// So a flood of messages cannot delay the mouse.
constexpr int kServedAtOnce = 4;

sd_event* newEvent() {
    sd_event* event = nullptr;
    return sd_event_new(&event) >= 0 ? event : nullptr;
}

} // namespace

EventSources::EventSources(Loop& loop) : m_loop(loop), m_event(newEvent()) {
    if (m_event && !m_loop.watch(sd_event_get_fd(m_event.get()), *this))
        m_event.reset();
}

EventSources::~EventSources() {
    if (m_event)
        m_loop.unwatch(sd_event_get_fd(m_event.get()));
}

void EventSources::ready(std::uint32_t /*events*/) {
    m_touched = true;
}

EventSources::Result EventSources::serve() {
    if (!m_touched)
        return Result::nothingWaits;
    auto* event = m_event.get();
    for (int served = 0; served < kServedAtOnce; ++served) {
        // It is still armed from the last call, and must look again.
        const int pending =
            sd_event_get_state(event) == SD_EVENT_ARMED ? sd_event_wait(event, 0) : sd_event_prepare(event);
        if (pending < 0)
            return Result::ended;
        if (pending > 0 && sd_event_dispatch(event) <= 0)
            return Result::ended;
        if (pending == 0 && sd_event_get_state(event) == SD_EVENT_ARMED) {
            m_touched = false;
            return Result::nothingWaits;
        }
    }
    return Result::more;
}

} // namespace quorvi::inputd
