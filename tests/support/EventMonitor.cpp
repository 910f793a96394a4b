#include "support/EventMonitor.h"

#include <systemd/sd-bus.h>

#include <stdexcept>

#include "support/ChildProcess.h"

namespace quorvi::test {

namespace {

int noteDestination(sd_bus_message* message, void* destinations, sd_bus_error* /*error*/) {
    const char* destination = sd_bus_message_get_destination(message);
    if (destination && sd_bus_message_is_method_call(message, "com.kyvar.Events", "Send") > 0)
        static_cast<std::vector<std::string>*>(destinations)->emplace_back(destination);
    return 1;
}

} // namespace

void EventMonitor::Close::operator()(sd_bus* bus) const {
    sd_bus_flush_close_unref(bus);
}

EventMonitor::EventMonitor(const std::string& busAddress) {
    sd_bus* bus = nullptr;
    sd_bus_new(&bus);
    m_bus.reset(bus);
    sd_bus_set_address(bus, busAddress.c_str());
    sd_bus_set_bus_client(bus, 1);
    sd_bus_set_monitor(bus, 1);
    sd_bus_start(bus);
    if (sd_bus_call_method(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus.Monitoring", "BecomeMonitor", nullptr, nullptr, "asu", 1,
            "type='method_call',member='Send'", 0) < 0)
        throw std::runtime_error("the bus cannot be monitored");
    sd_bus_add_filter(bus, nullptr, noteDestination, &m_destinations);
}

std::vector<std::string> EventMonitor::destinationsUntil(const std::string& last) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (
        (m_destinations.empty() || m_destinations.back() != last) && std::chrono::steady_clock::now() < end)
        if (sd_bus_process(m_bus.get(), nullptr) == 0)
            sd_bus_wait(m_bus.get(), 100'000);
    return m_destinations;
}

} // namespace quorvi::test
