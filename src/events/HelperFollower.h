// Follows the helper's state and sends it requests, without ever blocking.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "events/EventBus.h"
#include "events/HelperNews.h"

namespace quorvi {

/// Called from EventBus::process(), inside the library: it may only take notes and send requests through the
/// follower.
class HelperNewsListener {
  public:
    virtual ~HelperNewsListener() = default;
    virtual void helperStateChanged() = 0;
    /// An input, 1 to 9, of a mouse in use; the simulated one has no id. 8 and 9 only go down.
    virtual void helperInputChanged(const std::string& mouse, int input, bool pressed) = 0;
    /// A button of the mouse that is being set up, by its code (EV_KEY).
    virtual void helperCodeChanged(const std::string& mouse, std::uint16_t code, bool pressed) = 0;
};

class HelperFollower {
  public:
    /// The most mice that are read; further ones are ignored.
    static constexpr std::size_t kMostMice = 64;

    using Codes = std::array<std::uint16_t, 7>; ///< of inputs 1 to 7

    /// Receives the error's name, or an empty text for success. The listener's restrictions apply.
    using Answer = std::function<void(std::string_view error)>;

    /// Follows that process and ignores signals of others. Bus and listener must outlive the object.
    HelperFollower(const EventBus& bus, const ProcessSerialNumber& helper, HelperNewsListener& listener);
    ~HelperFollower();
    HelperFollower(const HelperFollower&) = delete;
    HelperFollower& operator=(const HelperFollower&) = delete;

    /// The helper's last known state.
    [[nodiscard]] const HelperNews& state() const;

    // A mouse is named by its id.
    void use(const std::string& mouse, bool inUse, const Answer& answer);
    void setDpi(const std::string& mouse, std::uint16_t dpi, const Answer& answer);
    void setCodes(const std::string& mouse, const Codes& codes, const Answer& answer);
    void beginSetUp(const std::string& mouse, const Answer& answer);
    /// Reports that key by helperCodeChanged() when the mouse being set up types it; 0 for none.
    void watchKey(std::uint16_t code);
    void endSetUp();
    void enableGnomeExtension();

  private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace quorvi
