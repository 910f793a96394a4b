// Asynchronous calls to other bus services: the mouse must keep moving while they are pending.
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
    /// The most pending calls caused by clients. Further ones are refused; the service's own are not limited.
    static constexpr std::size_t most = 32;

    explicit Questions(sd_bus* bus) : m_bus(bus) {}
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    /// Looks up the user of the connection with that unique name; the answer is std::nullopt if it has left.
    /// Returns false if too many calls are pending.
    [[nodiscard]] bool userOf(const char* connection, std::function<void(std::optional<uid_t> user)> answer);
    /// Asks polkit, which may ask an administrator, whether the connection's user may do that.
    [[nodiscard]] bool isAuthorized(
        const char* connection, const char* action, std::function<void(bool yes)> answer);
    /// Requests a descriptor that delays the computer's sleep until it is closed, for a few seconds at most;
    /// -1 on failure. The callback owns it.
    [[nodiscard]] bool delaySleep(const char* why, std::function<void(int descriptor)> answer);
    /// Asks the login manager whether the computer is going to sleep; the answer is std::nullopt if it does
    /// not reply.
    [[nodiscard]] bool isPreparingForSleep(std::function<void(std::optional<bool> yes)> answer);

  private:
    struct Question {
        Questions* owner;
        events::SlotPtr slot;
        std::function<void(sd_bus_message* reply)> answer; ///< called with null if the other side failed
    };
    [[nodiscard]] bool hasRoom() const { return m_questions.size() < most; }
    [[nodiscard]] bool ask(
        const events::MessageRef& call, std::uint64_t timeout, std::function<void(sd_bus_message*)> answer);
    static int answered(sd_bus_message* reply, void* question, sd_bus_error* error);

    sd_bus* m_bus;
    std::set<std::unique_ptr<Question>> m_questions;
};

} // namespace quorvi::inputd
