#include "events/AsyncCalls.h"

#include <algorithm>
#include <limits>

namespace quorvi::events {

using std::chrono::microseconds;

bool AsyncCalls::call(const MessageRef& message, std::chrono::milliseconds timeout, Answer answer) {
    if (!message)
        return false;
    auto pending = std::make_unique<Pending>(Pending{this, std::move(answer), nullptr});
    const auto limit = timeout < timeout.zero() ? std::numeric_limits<std::uint64_t>::max()
                                                : static_cast<std::uint64_t>(microseconds(timeout).count());
    sd_bus_slot* slot = nullptr;
    if (sd_bus_call_async(m_bus, &slot, message.get(), answered, pending.get(), limit) < 0)
        return false;
    pending->slot.reset(slot);
    m_pending.insert(std::move(pending));
    return true;
}

int AsyncCalls::answered(sd_bus_message* reply, void* pending, sd_bus_error* /*error*/) {
    auto& calls = static_cast<Pending*>(pending)->owner->m_pending;
    const auto found = std::ranges::find_if(calls, [&](const auto& each) { return each.get() == pending; });
    const auto own = std::move(calls.extract(found).value());
    const auto* error = sd_bus_message_get_error(reply);
    own->answer(reply, error && error->name ? error->name : "");
    return 1;
}

SlotPtr matchSignal(sd_bus* bus, const char* rule, sd_bus_message_handler_t received, void* userdata) {
    sd_bus_slot* slot = nullptr;
    sd_bus_add_match_async(bus, &slot, rule, received, receiveRuleAdded, userdata);
    return SlotPtr(slot);
}

} // namespace quorvi::events
