// Calls over a bus whose answers are not waited for. For programs that have other things to do meanwhile.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string_view>

#include "events/SdBus.h"

namespace quorvi::events {

/// As long as the other side takes.
constexpr std::chrono::milliseconds kForEver{-1};

class AsyncCalls {
  public:
    /// Gets the answer, whose `error` is the error's name and empty when there is none. Runs once, from
    /// within the bus's processing; it may make calls, and end this object.
    using Answer = std::function<void(sd_bus_message* reply, std::string_view error)>;

    /// The bus must live longer.
    explicit AsyncCalls(sd_bus* bus) : m_bus(bus) {}
    AsyncCalls(const AsyncCalls&) = delete;
    AsyncCalls& operator=(const AsyncCalls&) = delete;

    /// A call with arguments as for sd_bus_message_append; null when the bus is gone.
    template <typename... Arguments>
    [[nodiscard]] MessageRef newCall(const char* destination, const char* path, const char* interface,
        const char* member, const char* signature = "", Arguments... arguments) const {
        sd_bus_message* raw = nullptr;
        if (sd_bus_message_new_method_call(m_bus, &raw, destination, path, interface, member) < 0)
            return {};
        auto message = adopt(raw);
        if (*signature != '\0' && sd_bus_message_append(raw, signature, arguments...) < 0)
            return {};
        return message;
    }

    /// Sends the call. False, with the answer dropped, when it could not be sent.
    bool call(const MessageRef& message, std::chrono::milliseconds timeout, Answer answer);

    /// What is under way is not answered any more.
    void dropAll() { m_pending.clear(); }

  private:
    struct Pending {
        AsyncCalls* owner;
        Answer answer;
        SlotPtr slot;
    };
    static int answered(sd_bus_message* reply, void* pending, sd_bus_error* error);

    sd_bus* m_bus;
    std::set<std::unique_ptr<Pending>> m_pending;
};

/// Waits for a signal of the rule, for as long as the slot lives, without waiting for the bus to take the
/// rule. Null when it could not be asked for.
[[nodiscard]] SlotPtr matchSignal(
    sd_bus* bus, const char* rule, sd_bus_message_handler_t received, void* userdata);

} // namespace quorvi::events
