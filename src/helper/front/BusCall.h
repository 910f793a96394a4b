// One question to another program on the bus, without waiting for its answer.
#pragma once

#include <functional>

#include "platform/events/EventBusPrivate.h"

namespace quorvi::front {

class BusCall {
  public:
    /// Gets the answer, or null for an error and for none within half a minute: a desktop that is starting
    /// may take its time.
    using Answer = std::function<void(sd_bus_message*)>;

    explicit BusCall(const EventBus& bus) : m_bus(bus.connection()) {}
    BusCall(const BusCall&) = delete;
    BusCall& operator=(const BusCall&) = delete;

    /// Gives up what is still on its way. The signature and what follows are as for sd_bus_message_append.
    template <typename... Arguments>
    void make(const std::string& destination, const std::string& path, const char* interface,
        const char* member, Answer answer, const char* signature = "", Arguments... arguments) {
        auto message = m_bus.newCall(destination.c_str(), path.c_str(), interface, member);
        if (message && sd_bus_message_append(message.get(), signature, arguments...) >= 0)
            send(message, std::move(answer));
    }
    void giveUp();

  private:
    void send(const events::MessageRef& message, Answer answer);
    static int receive(sd_bus_message* answer, void* self, sd_bus_error*);

    EventBus::Private& m_bus;
    Answer m_answer;
    events::SlotPtr m_slot;
};

} // namespace quorvi::front
