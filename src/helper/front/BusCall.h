// One question after another to a desktop, without waiting for its answers.
#pragma once

#include <string>
#include <utility>

#include "events/AsyncCalls.h"
#include "events/EventBusPrivate.h"

namespace quorvi::front {

class BusCall {
  public:
    /// Gets the answer, or null for an error and for none within half a minute: a desktop that is starting
    /// may take its time.
    using Answer = std::function<void(sd_bus_message*)>;

    explicit BusCall(const EventBus& bus) : m_calls(bus.connection().bus.get()) {}

    /// The signature and what follows are as for sd_bus_message_append.
    template <typename... Arguments>
    void make(const std::string& destination, const std::string& path, const char* interface,
        const char* member, Answer answer, const char* signature = "", Arguments... arguments) {
        m_calls.call(
            m_calls.newCall(destination.c_str(), path.c_str(), interface, member, signature, arguments...),
            std::chrono::seconds(30),
            [answer = std::move(answer)](
                sd_bus_message* reply, std::string_view error) { answer(error.empty() ? reply : nullptr); });
    }
    /// What is under way is not answered any more.
    void giveUp() { m_calls.dropAll(); }

  private:
    events::AsyncCalls m_calls;
};

} // namespace quorvi::front
