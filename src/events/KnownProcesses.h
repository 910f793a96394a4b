// The processes that were found by their names, so that nobody asks the bus twice what has not changed.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "events/EventTypes.h"
#include "events/SdBus.h"

namespace quorvi::events {

/// An answer is kept until an owner in the process list changes, and is only given while nothing has come
/// from the bus that nobody has looked at yet: that might be the news of such a change.
class KnownProcesses {
  public:
    /// The bus outlives this object.
    explicit KnownProcesses(sd_bus* bus) : m_bus(bus) {}
    KnownProcesses(const KnownProcesses&) = delete;
    KnownProcesses& operator=(const KnownProcesses&) = delete;

    /// Nothing when the bus has to be asked.
    [[nodiscard]] std::optional<ProcessSerialNumber> find(std::string_view name) const;
    /// Comes before the bus is asked. From the second time on the bus tells of changes, so that nobody is
    /// woken by them who looks only once. It answers in order, so what it is asked from then on can be kept.
    /// Does not wait.
    void startWatching();
    /// The bus tells of changes from now on, whether it was asked before or not. Does not wait.
    void watch();
    /// Called when the bus has told of one, inside the library: the function may only take a note.
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
    bool m_refused = false; ///< the bus has too many rules of ours, or does not know this kind
};

} // namespace quorvi::events
