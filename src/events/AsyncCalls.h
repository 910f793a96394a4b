// Asynchronous calls over a bus, for programs that must not block.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string_view>

#include "events/SdBus.h"

namespace quorvi::events {

/// No time limit.
constexpr std::chrono::milliseconds kForEver{-1};

class AsyncCalls {
  public:
    /// Receives the reply; `error` is the error's name, or empty for success. Runs once, from within the
    /// bus's processing; it may make calls, and destroy this object.
    using Answer = std::function<void(sd_bus_message* reply, std::string_view error)>;

    /// The bus must outlive the object.
    explicit AsyncCalls(sd_bus* bus) : m_bus(bus) {}
    AsyncCalls(const AsyncCalls&) = delete;
    AsyncCalls& operator=(const AsyncCalls&) = delete;

    /// A call with arguments as for sd_bus_message_append; null if the bus is gone.
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

    /// Sends the call. Returns false, and never calls `answer`, if it could not be sent.
    bool call(const MessageRef& message, std::chrono::milliseconds timeout, Answer answer);

    /// Drops the answers of all pending calls.
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

/// Subscribes to the rule's signals while the slot lives, without waiting for the bus to accept the rule.
/// Returns null if the request could not be sent.
[[nodiscard]] SlotPtr matchSignal(
    sd_bus* bus, const char* rule, sd_bus_message_handler_t received, void* userdata);

} // namespace quorvi::events
