// The application in front, as the helper tells it to other programs.
#pragma once

#include <functional>
#include <memory>

#include "events/FrontObject.h"

namespace quorvi {

// Calls of a helper, which wait a second at most. procNotFound: no such process; errAEEventNotHandled: it
// does not tell; errAETimeout; connectionInvalid.

/// The state is left as it was on failure.
[[nodiscard]] Status getFrontState(const EventBus& bus, const ProcessSerialNumber& helper, FrontState& state);
[[nodiscard]] Status enableGnomeExtension(const EventBus& bus, const ProcessSerialNumber& helper);

/// Hears that something of the state has changed, for as long as it lives. The bus must live longer.
class FrontListener {
  public:
    /// The function is called from EventBus::process() and must not call the bus: ask for the state later. A
    /// null pointer when the bus is gone or refuses. What is told after this has returned is heard.
    [[nodiscard]] static std::unique_ptr<FrontListener> listen(
        const EventBus& bus, const ProcessSerialNumber& helper, std::function<void()> function);
    ~FrontListener();
    FrontListener(const FrontListener&) = delete;
    FrontListener& operator=(const FrontListener&) = delete;

  private:
    FrontListener() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

} // namespace quorvi
