// Follows what the helper tells of itself, and asks it for things, without ever waiting for an answer.
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

/// Is told from EventBus::process(), from within the library: it may take a note and ask the follower for
/// things, and nothing else.
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
    /// The most mice that are listed; more are not read.
    static constexpr std::size_t kMostMice = 64;

    using Codes = std::array<std::uint16_t, 7>; ///< of inputs 1 to 7

    /// Gets the error's name, and an empty one when it was done. Called as a listener is.
    using Answer = std::function<void(std::string_view error)>;

    /// Begins to follow that process. Signals of others are ignored. Bus and listener must live longer.
    HelperFollower(const EventBus& bus, const ProcessSerialNumber& helper, HelperNewsListener& listener);
    ~HelperFollower();
    HelperFollower(const HelperFollower&) = delete;
    HelperFollower& operator=(const HelperFollower&) = delete;

    /// What the helper has told so far.
    [[nodiscard]] const HelperNews& state() const;

    // A mouse is named by its id.
    void use(const std::string& mouse, bool inUse, const Answer& answer);
    void setDpi(const std::string& mouse, std::uint16_t dpi, const Answer& answer);
    void setCodes(const std::string& mouse, const Codes& codes, const Answer& answer);
    void beginSetUp(const std::string& mouse, const Answer& answer);
    /// Has that key told by helperCodeChanged() when the mouse that is set up types it; 0 for none.
    void watchKey(std::uint16_t code);
    void endSetUp();
    void enableGnomeExtension();

  private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace quorvi
