// The helper's connection to the system's service for real mice. Never blocks.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "engine/Options.h"
#include "events/AsyncCalls.h"

namespace quorvi {

/// A plugged-in mouse in the service's list.
struct ListedMouse {
    std::string id;
    std::string name;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t dpi = 0; ///< of its sensor, from the hardware database; 0 if unknown
    bool used = false;     ///< by this user
};

struct MouseStatus {
    std::string state; ///< see InputdInterface.h
    std::uint8_t profile = 0;
    std::uint8_t stage = 0;
    std::uint16_t dpiX = 0;
    std::uint16_t dpiY = 0;
    std::uint16_t inputs = 0; ///< bit 0 is input 1
};

enum class InputdResult {
    done,
    noService,   ///< not installed, or does not start
    denied,      ///< another user is at the machine, or no administrator has allowed this one
    noSuchMouse, ///< unplugged or forgotten
    failed
};

/// Called from within the bus's processing; may make calls.
class InputdListener {
  public:
    virtual ~InputdListener() = default;
    virtual void serviceCame() = 0; ///< it has started, without any earlier state
    virtual void serviceLeft() = 0;
    virtual void miceChanged() = 0;
    virtual void statusChanged(const std::string& id, const MouseStatus& status) = 0;
    /// Inputs 8 and 9, a notch of the wheel, only go down.
    virtual void inputChanged(const std::string& id, std::uint8_t input, bool pressed) = 0;
    /// A button or key of the mouse, by its code of the Linux input layer (EV_KEY).
    virtual void codeChanged(const std::string& id, std::uint16_t code, bool pressed) = 0;
};

class InputdLink {
  public:
    using Answer = std::function<void(InputdResult)>;

    /// Both must outlive the object.
    InputdLink(sd_bus* bus, InputdListener& listener);
    InputdLink(const InputdLink&) = delete;
    InputdLink& operator=(const InputdLink&) = delete;

    /// The only call that starts the service.
    void list(const std::function<void(InputdResult, std::vector<ListedMouse>)>& answer);
    /// May take long: the service may ask an administrator.
    void use(const std::string& id, std::span<const std::uint8_t> record, const engine::Options& options,
        const Answer& answer);
    void setOptions(const std::string& id, const engine::Options& options, const Answer& answer);
    void setRecord(const std::string& id, std::span<const std::uint8_t> record, const Answer& answer);
    void forget(const std::string& id);
    void status(const std::string& id, std::function<void(const MouseStatus&)> answer);
    /// Subscribes to statusChanged(), and to inputChanged() if `inputs` is true.
    void watch(bool inputs);
    /// Subscribes to codeChanged() for that mouse, or unsubscribes.
    void watchCodes(const std::string& id, bool wanted);

  private:
    static int ownerChanged(sd_bus_message* signal, void* self, sd_bus_error* error);
    static int signalled(sd_bus_message* signal, void* self, sd_bus_error* error);
    void setOwner(std::string owner);
    void receive(sd_bus_message* signal);
    [[nodiscard]] events::MessageRef newCall(const char* method) const;
    void callFor(const events::MessageRef& call, std::chrono::milliseconds timeout, const Answer& answer);

    sd_bus* m_bus;
    InputdListener& m_listener;
    events::AsyncCalls m_calls;
    std::string m_owner; ///< the service's unique name; empty while it is not running
    events::SlotPtr m_ownerMatch;
    events::SlotPtr m_signalMatch;
};

} // namespace quorvi
