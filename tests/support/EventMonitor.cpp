#include "support/EventMonitor.h"

#include <algorithm>
#include <stdexcept>

#include <systemd/sd-bus.h>

#include "events/EventTypes.h"
#include "support/ChildProcess.h"

namespace quorvi::test {

namespace {

/// The message and the parameter of a command, "KyPR 1"; empty for any other event.
std::string commandOf(sd_bus_message* message) {
    const char* text = nullptr; // of no interest
    std::uint32_t code = 0;
    std::int32_t parameter = 0;
    if (sd_bus_message_read(message, "ssa(ssv)", &text, &text, 2, &text, &text, "u", &code, &text, &text, "i",
            &parameter) <= 0)
        return {};
    return fourCharText(code) + " " + std::to_string(parameter);
}

} // namespace

int EventMonitor::note(sd_bus_message* message, void* monitor, void* /*error*/) {
    auto& self = *static_cast<EventMonitor*>(monitor);
    const char* destination = sd_bus_message_get_destination(message);
    if (!destination || sd_bus_message_is_method_call(message, "com.kyvar.Events", "Send") <= 0)
        return 1;
    self.m_destinations.emplace_back(destination);
    self.m_commands.push_back(commandOf(message));
    return 1;
}

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
    sd_bus_add_filter(
        bus, nullptr,
        [](sd_bus_message* message, void* monitor, sd_bus_error* error) {
            return note(message, monitor, error);
        },
        this);
}

std::vector<std::string> EventMonitor::destinationsUntil(const std::string& last) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (
        (m_destinations.empty() || m_destinations.back() != last) && std::chrono::steady_clock::now() < end)
        if (sd_bus_process(m_bus.get(), nullptr) == 0)
            sd_bus_wait(m_bus.get(), 100'000);
    return m_destinations;
}

bool EventMonitor::sees(const std::string& command) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    const auto seen = [&] { return std::ranges::find(m_commands, command) != m_commands.end(); };
    while (!seen() && std::chrono::steady_clock::now() < end)
        if (sd_bus_process(m_bus.get(), nullptr) == 0)
            sd_bus_wait(m_bus.get(), 100'000);
    return seen();
}

std::vector<std::string> EventMonitor::commandsUntil(const std::string& last) {
    if (!sees(last))
        return m_commands;
    return {m_commands.begin(), std::ranges::find(m_commands, last) + 1};
}

const std::vector<std::string>& EventMonitor::commands() {
    while (sd_bus_process(m_bus.get(), nullptr) > 0) {
    }
    return m_commands;
}

void EventMonitor::forget() {
    static_cast<void>(commands());
    m_destinations.clear();
    m_commands.clear();
}

} // namespace quorvi::test
