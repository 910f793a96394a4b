// The processes that the helper serves while they live.
#pragma once

#include <optional>
#include <set>

#include "events/EventBus.h"

namespace quorvi {

/// Watches the bus for the end of each of them.
class Clients {
  public:
    /// The bus must outlive the object.
    explicit Clients(EventBus& bus) : m_bus(bus) {}

    /// The visible panels, which are notified of every change.
    [[nodiscard]] const std::set<ProcessSerialNumber>& panels() const { return m_panels; }
    void addPanel(const ProcessSerialNumber& panel);
    void removePanel(const ProcessSerialNumber& panel);

    /// The panel that records a macro; std::nullopt once it is gone.
    [[nodiscard]] const std::optional<ProcessSerialNumber>& recorder() const { return m_recorder; }
    void setRecorder(const std::optional<ProcessSerialNumber>& recorder) { replace(m_recorder, recorder); }

    /// The process that sets up a mouse.
    [[nodiscard]] const std::optional<ProcessSerialNumber>& setter() const { return m_setter; }
    void setSetter(const std::optional<ProcessSerialNumber>& setter) { replace(m_setter, setter); }

  private:
    void replace(
        std::optional<ProcessSerialNumber>& client, const std::optional<ProcessSerialNumber>& another);
    void unwatchUnlessNeeded(const ProcessSerialNumber& process);

    EventBus& m_bus;
    std::set<ProcessSerialNumber> m_panels;
    std::optional<ProcessSerialNumber> m_recorder;
    std::optional<ProcessSerialNumber> m_setter;
};

} // namespace quorvi
