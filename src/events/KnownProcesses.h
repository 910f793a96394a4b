// A cache of processes found by name, which avoids repeated bus queries.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "events/EventTypes.h"
#include "events/SdBus.h"

namespace quorvi::events {

/// An entry is kept until an owner in the process list changes. It is returned only while no bus message is
/// unread, because that message might report such a change.
class KnownProcesses {
  public:
    /// The bus must outlive this object.
    explicit KnownProcesses(sd_bus* bus) : m_bus(bus) {}
    KnownProcesses(const KnownProcesses&) = delete;
    KnownProcesses& operator=(const KnownProcesses&) = delete;

    /// Returns std::nullopt if the bus must be queried.
    [[nodiscard]] std::optional<ProcessSerialNumber> find(std::string_view name) const;
    /// Call this before querying the bus. Subscribes to changes at the second call, so that a process that
    /// looks only once is not woken by them. The bus answers in order, so later answers can be cached. Does
    /// not wait.
    void startWatching();
    /// Subscribes to changes now. Does not wait.
    void watch();
    /// Sets a function to call for each change, inside the library: it may only take a note.
    void onChange(std::function<void()> function) { m_changed = std::move(function); }
    void remember(std::string_view name, const ProcessSerialNumber& psn);

  private:
    static int receiveChange(sd_bus_message* message, void* known, sd_bus_error* error);
    static int receiveRuleAdded(sd_bus_message* message, void* known, sd_bus_error* error);
    [[nodiscard]] bool isQuiet() const;

    sd_bus* m_bus;
    std::map<std::string, ProcessSerialNumber, std::less<>> m_found;
    std::function<void()> m_changed;
    SlotPtr m_rule;
    bool m_askedBefore = false;
    bool m_refused = false; ///< the bus refused the match rule: too many, or an unsupported kind
};

} // namespace quorvi::events
