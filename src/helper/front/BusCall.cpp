#include "helper/front/BusCall.h"

#include <utility>

namespace quorvi::front {

namespace {

constexpr std::uint64_t patience = 30'000'000; // microseconds

} // namespace

void BusCall::giveUp() {
    m_slot.reset();
    m_answer = nullptr;
}

void BusCall::send(const events::MessageRef& message, Answer answer) {
    giveUp();
    sd_bus_slot* slot = nullptr;
    if (sd_bus_call_async(m_bus.bus.get(), &slot, message.get(), receive, this, patience) < 0)
        return;
    m_slot.reset(slot);
    m_answer = std::move(answer);
    m_bus.notifyPending();
}

int BusCall::receive(sd_bus_message* answer, void* self, sd_bus_error*) {
    // What it is answered with may be the next question.
    const auto function = std::exchange(static_cast<BusCall*>(self)->m_answer, nullptr);
    if (function)
        function(sd_bus_message_is_method_error(answer, nullptr) ? nullptr : answer);
    return 0;
}

} // namespace quorvi::front
