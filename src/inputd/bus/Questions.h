// Questions to others on the bus, whose answers are not waited for: while they think, the mouse has to move.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include <sys/types.h>
#include <systemd/sd-bus.h>

#include "events/SdBus.h"

namespace quorvi::inputd {

class Questions {
  public:
    /// As many at once that others are the cause of. Whoever asks more is told so; the service's own find
    /// room.
    static constexpr std::size_t most = 32;

    explicit Questions(sd_bus* bus) : m_bus(bus) {}
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    /// The user of the connection with that unique name; nothing when it has left. False when too much has
    /// been asked.
    [[nodiscard]] bool userOf(const char* connection, std::function<void(std::optional<uid_t> user)> answer);
    /// Whether polkit, and an administrator if it asks one, lets the connection's user do that.
    [[nodiscard]] bool isAuthorized(
        const char* connection, const char* action, std::function<void(bool yes)> answer);
    /// A descriptor that keeps the computer from sleeping until it is closed, for some seconds at most; -1
    /// when there is none. It is the answer's.
    [[nodiscard]] bool delaySleep(const char* why, std::function<void(int descriptor)> answer);
    /// Whether the computer is on its way to sleep, by the log-in manager; nothing when that does not answer.
    [[nodiscard]] bool isPreparingForSleep(std::function<void(std::optional<bool> yes)> answer);

  private:
    struct Question {
        Questions* owner;
        events::SlotPtr slot;
        std::function<void(sd_bus_message* reply)> answer; ///< with null when the other side failed
    };
    [[nodiscard]] bool hasRoom() const { return m_questions.size() < most; }
    [[nodiscard]] bool ask(
        const events::MessageRef& call, std::uint64_t timeout, std::function<void(sd_bus_message*)> answer);
    static int answered(sd_bus_message* reply, void* question, sd_bus_error* error);

    sd_bus* m_bus;
    std::set<std::unique_ptr<Question>> m_questions;
};

} // namespace quorvi::inputd
