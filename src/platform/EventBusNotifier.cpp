#include "platform/EventBusNotifier.h"

#include <poll.h>

#include "events/EventBus.h"

namespace quorvi {

EventBusNotifier::EventBusNotifier(EventBus& bus)
    : m_bus(bus), m_readable(bus.fd(), QSocketNotifier::Read), m_writable(bus.fd(), QSocketNotifier::Write) {
    connect(&m_readable, &QSocketNotifier::activated, this, [this] { process(); });
    connect(&m_writable, &QSocketNotifier::activated, this, [this] { process(); });
    bus.onPending([this] { schedule(); });
    bus.onDisconnected([this] {
        m_readable.setEnabled(false);
        m_writable.setEnabled(false);
    });
    watch();
}

EventBusNotifier::~EventBusNotifier() {
    m_bus.onPending(nullptr);
    m_bus.onDisconnected(nullptr);
}

void EventBusNotifier::process() {
    m_scheduled = false;
    m_bus.process();
    watch();
    if (m_bus.hasPending()) // in the loop's next round, after user events
        schedule();
}

void EventBusNotifier::schedule() {
    if (std::exchange(m_scheduled, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { process(); }, Qt::QueuedConnection);
}

void EventBusNotifier::watch() {
    const short events = m_bus.events();
    m_readable.setEnabled(m_bus.isConnected());
    m_writable.setEnabled(m_bus.isConnected() && (events & POLLOUT) != 0);
}

} // namespace quorvi
