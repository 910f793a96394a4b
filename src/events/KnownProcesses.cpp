#include "events/KnownProcesses.h"

#include <utility>

#include <poll.h>

#include "events/EventsInterface.h"

namespace quorvi::events {

namespace {

/// Covers every name of the process list, because one that differs in case may replace the one found.
std::string ruleForChanges() {
    std::string_view names = kNamePrefix;
    names.remove_suffix(1); // the dot is part of the prefix, not of the namespace
    return std::string("type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
                       "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0namespace='")
        .append(names)
        .append("'");
}

} // namespace

std::optional<ProcessSerialNumber> KnownProcesses::find(std::string_view name) const {
    const auto found = m_found.find(name);
    if (found == m_found.end() || !isQuiet())
        return std::nullopt;
    return found->second;
}

void KnownProcesses::startWatching() {
    if (std::exchange(m_askedBefore, true))
        watch();
}

void KnownProcesses::watch() {
    if (m_rule || m_refused)
        return;
    sd_bus_slot* slot = nullptr;
    sd_bus_add_match_async(m_bus, &slot, ruleForChanges().c_str(), receiveChange, receiveRuleAdded, this);
    m_rule.reset(slot);
}

void KnownProcesses::remember(std::string_view name, const ProcessSerialNumber& psn) {
    if (m_rule && !m_refused)
        m_found.insert_or_assign(std::string(name), psn);
}

int KnownProcesses::receiveChange(sd_bus_message* message, void* known, sd_bus_error*) {
    if (!isOfTheBus(message))
        return 0;
    auto& self = *static_cast<KnownProcesses*>(known);
    self.m_found.clear();
    if (self.m_changed)
        self.m_changed();
    return 0;
}

int KnownProcesses::receiveRuleAdded(sd_bus_message* message, void* known, sd_bus_error*) {
    auto& self = *static_cast<KnownProcesses*>(known);
    self.m_refused = isOfTheBus(message) && sd_bus_message_is_method_error(message, nullptr) > 0;
    if (self.m_refused)
        self.m_found.clear();
    return 1;
}

/// Whether the library's queue and the socket are empty and the bus has not hung up.
bool KnownProcesses::isQuiet() const {
    std::uint64_t queued = 0;
    pollfd socket{sd_bus_get_fd(m_bus), POLLIN, 0};
    return sd_bus_get_n_queued_read(m_bus, &queued) >= 0 && queued == 0 && socket.fd >= 0 &&
           poll(&socket, 1, 0) == 0;
}

} // namespace quorvi::events
