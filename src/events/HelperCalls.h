// Client calls of the helper's own object: the mice, which are in use, and what runs now.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "events/HelperObject.h"

namespace quorvi {

/// The helper's properties; see com.kyvar.Helper1.xml.
struct HelperState {
    bool demonstration = true;
    std::uint32_t profile = 0; ///< from 1; 0 for none
    std::uint32_t stage = 0;
    std::string frontReason;
    std::uint16_t inputs = 0; ///< bit 0 is input 1
};

// Calls of a helper. procNotFound: no such process; errAEEventNotHandled: it has no such object; resNotFound:
// no such mouse; paramErr: out of bounds; ioErr: the helper's file could not be written; errAEEventFailed:
// the mouse is not in use, or another program is setting it up; errAETimeout; connectionInvalid. Results stay
// unchanged on failure.

/// Waits up to five seconds: the system's service may have to start.
[[nodiscard]] Status listMice(
    const EventBus& bus, const ProcessSerialNumber& helper, std::vector<MouseEntry>& mice);
[[nodiscard]] Status useMouse(
    const EventBus& bus, const ProcessSerialNumber& helper, const std::string& mouse, bool inUse);
[[nodiscard]] Status setMouseDpi(
    const EventBus& bus, const ProcessSerialNumber& helper, const std::string& mouse, std::uint16_t dpi);
[[nodiscard]] Status setMouseCodes(const EventBus& bus, const ProcessSerialNumber& helper,
    const std::string& mouse, const std::vector<std::uint16_t>& codes);
[[nodiscard]] Status beginMouseSetUp(
    const EventBus& bus, const ProcessSerialNumber& helper, const std::string& mouse);
/// 0 for no key.
[[nodiscard]] Status watchMouseKey(
    const EventBus& bus, const ProcessSerialNumber& helper, std::uint16_t code);
[[nodiscard]] Status endMouseSetUp(const EventBus& bus, const ProcessSerialNumber& helper);
[[nodiscard]] Status getHelperState(
    const EventBus& bus, const ProcessSerialNumber& helper, HelperState& state);

/// Listens to a helper's signals while it lives. The bus must outlive it.
class HelperListener {
  public:
    /// Called from EventBus::process(); must not call the bus. Any may be empty.
    struct Functions {
        std::function<void()> miceChanged;
        std::function<void()> stateChanged; ///< some property has changed; query them later
        std::function<void(const std::string& mouse, std::uint8_t input, bool pressed)> inputChanged;
        std::function<void(const std::string& mouse, std::uint16_t code, bool pressed)> codeChanged;
    };

    /// Returns null if the bus is gone or refuses. Signals are received from the return of this call on.
    [[nodiscard]] static std::unique_ptr<HelperListener> listen(
        const EventBus& bus, const ProcessSerialNumber& helper, Functions functions);
    ~HelperListener();
    HelperListener(const HelperListener&) = delete;
    HelperListener& operator=(const HelperListener&) = delete;

  private:
    HelperListener() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

} // namespace quorvi
