// The application in front, as the helper reports it to other programs.
#pragma once

#include <functional>
#include <memory>

#include "events/FrontObject.h"

namespace quorvi {

// Calls of a helper, which wait a second at most. procNotFound: no such process; errAEEventNotHandled: it
// does not report it; errAETimeout; connectionInvalid.

/// The state stays unchanged on failure.
[[nodiscard]] Status getFrontState(const EventBus& bus, const ProcessSerialNumber& helper, FrontState& state);
[[nodiscard]] Status enableGnomeExtension(const EventBus& bus, const ProcessSerialNumber& helper);

/// Listens for changes of the state while it lives. The bus must outlive it.
class FrontListener {
  public:
    /// The function is called from EventBus::process() and must not call the bus: query the state later.
    /// Returns null if the bus is gone or refuses. Changes are reported from the return of this call on.
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
