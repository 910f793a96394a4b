// The processes that the helper does something for as long as they live.
#pragma once

#include <optional>
#include <set>

#include "events/EventBus.h"

namespace quorvi {

/// The bus is asked to tell the end of each of them.
class Clients {
  public:
    /// The bus must live longer.
    explicit Clients(EventBus& bus) : m_bus(bus) {}

    /// The panels that are shown, and told of every change.
    [[nodiscard]] const std::set<ProcessSerialNumber>& panels() const { return m_panels; }
    void addPanel(const ProcessSerialNumber& panel);
    void removePanel(const ProcessSerialNumber& panel);

    /// The panel that records; nothing does once it is gone.
    [[nodiscard]] const std::optional<ProcessSerialNumber>& recorder() const { return m_recorder; }
    void setRecorder(const std::optional<ProcessSerialNumber>& recorder) { replace(m_recorder, recorder); }

    /// Who sets a mouse up.
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
