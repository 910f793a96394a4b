// The connections subscribed to their users' mice.
#pragma once

#include <memory>
#include <vector>

#include "events/SdBus.h"
#include "inputd/bus/Questions.h"
#include "inputd/devices/UsedMice.h"

namespace quorvi::inputd {

class Watchers {
  public:
    static constexpr std::size_t most = 16;

    /// Both must outlive the object.
    Watchers(sd_bus* bus, Questions& questions) : m_bus(bus), m_questions(questions) {}
    Watchers(const Watchers&) = delete;
    Watchers& operator=(const Watchers&) = delete;

    /// Subscribes the connection until it leaves the bus. Returns false if there are too many, or too many
    /// calls are pending.
    [[nodiscard]] bool add(const char* connection, uid_t user, bool inputs);

    /// Subscribes the connection to that mouse's button codes; an empty id ends this. Returns false if there
    /// are too many.
    [[nodiscard]] bool addForCodes(const char* connection, uid_t user, const std::string& mouse);

    /// Notifies only the owner's connections: users cannot see each other's presses.
    void tellStatus(const UsedMouse& mouse, const char* state) const;
    void tellInput(const UsedMouse& mouse, std::uint8_t input, bool pressed) const;
    /// Returns true if a connection was notified.
    [[nodiscard]] bool tellCode(const UsedMouse& mouse, std::uint16_t code, bool pressed) const;
    /// Whether any connection is subscribed to inputs.
    [[nodiscard]] bool wantInputs() const;

  private:
    struct Watcher {
        Watchers* owner;
        std::string connection;
        uid_t user;
        bool inputs;
        bool status;       ///< subscribed to states
        std::string codes; ///< the mouse whose button codes it is subscribed to; empty for none
        events::SlotPtr leaving;
    };
    /// Null if there are too many.
    [[nodiscard]] Watcher* findOrAdd(const char* connection, uid_t user);
    static int left(sd_bus_message* signal, void* watcher, sd_bus_error* error);
    void remove(const std::string& connection);

    sd_bus* m_bus;
    Questions& m_questions;
    std::vector<std::unique_ptr<Watcher>> m_watchers;
};

/// The name of a mouse's state in InputdInterface.h.
[[nodiscard]] const char* nameOf(MouseState state);

/// Appends state, profile, stage, DPI and pressed inputs. Returns false if out of memory.
[[nodiscard]] bool appendStatus(sd_bus_message* message, const UsedMouse& mouse, const char* state);

} // namespace quorvi::inputd
