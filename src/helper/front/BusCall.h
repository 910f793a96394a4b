// Sequential asynchronous calls to a desktop.
#pragma once

#include <string>
#include <utility>

#include "events/AsyncCalls.h"
#include "events/EventBusPrivate.h"

namespace quorvi::front {

class BusCall {
  public:
    /// Receives the answer; null for an error, or after half a minute without an answer: a starting desktop
    /// may be slow.
    using Answer = std::function<void(sd_bus_message*)>;

    explicit BusCall(const EventBus& bus) : m_calls(bus.connection().bus.get()) {}

    /// The signature and the arguments are as for sd_bus_message_append.
    template <typename... Arguments>
    void make(const std::string& destination, const std::string& path, const char* interface,
        const char* member, Answer answer, const char* signature = "", Arguments... arguments) {
        m_calls.call(
            m_calls.newCall(destination.c_str(), path.c_str(), interface, member, signature, arguments...),
            std::chrono::seconds(30),
            [answer = std::move(answer)](
                sd_bus_message* reply, std::string_view error) { answer(error.empty() ? reply : nullptr); });
    }
    /// Drops the answers of pending calls.
    void giveUp() { m_calls.dropAll(); }

  private:
    events::AsyncCalls m_calls;
};

} // namespace quorvi::front
