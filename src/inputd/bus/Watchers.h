// The connections that want to be told of their users' mice.
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

    /// Both must live longer.
    Watchers(sd_bus* bus, Questions& questions) : m_bus(bus), m_questions(questions) {}
    Watchers(const Watchers&) = delete;
    Watchers& operator=(const Watchers&) = delete;

    /// Until it leaves the bus. False when there are too many, or too much has been asked.
    [[nodiscard]] bool add(const char* connection, uid_t user, bool inputs);

    /// From now on it is told of that mouse's buttons by their codes; of no mouse when the id is empty. False
    /// when there are too many.
    [[nodiscard]] bool addForCodes(const char* connection, uid_t user, const std::string& mouse);

    /// Tells those of its owner alone: nobody learns what another one presses.
    void tellStatus(const UsedMouse& mouse, const char* state) const;
    void tellInput(const UsedMouse& mouse, std::uint8_t input, bool pressed) const;
    /// True when somebody was told.
    [[nodiscard]] bool tellCode(const UsedMouse& mouse, std::uint16_t code, bool pressed) const;
    /// Somebody wants to know of inputs.
    [[nodiscard]] bool wantInputs() const;

  private:
    struct Watcher {
        Watchers* owner;
        std::string connection;
        uid_t user;
        bool inputs;
        bool status;       ///< wants to know of states
        std::string codes; ///< the mouse whose buttons it wants to know of; empty for none
        events::SlotPtr leaving;
    };
    /// Null when there are too many.
    [[nodiscard]] Watcher* findOrAdd(const char* connection, uid_t user);
    static int left(sd_bus_message* signal, void* watcher, sd_bus_error* error);
    void remove(const std::string& connection);

    sd_bus* m_bus;
    Questions& m_questions;
    std::vector<std::unique_ptr<Watcher>> m_watchers;
};

/// The name of a mouse's state in InputdInterface.h.
[[nodiscard]] const char* nameOf(MouseState state);

/// Appends state, profile, stage, DPI and pressed inputs. False when there is no memory.
[[nodiscard]] bool appendStatus(sd_bus_message* message, const UsedMouse& mouse, const char* state);

} // namespace quorvi::inputd
