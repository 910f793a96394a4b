#include "events/EventBusPrivate.h"
#include "events/ProcessName.h"

namespace quorvi {

namespace {

using Watch = EventBus::Private::Watch;

void reportGone(const Watch& watch) {
    watch.connection->work.emplace_back(watch.psn);
}

int receiveLeft(sd_bus_message* message, void* watch, sd_bus_error*) {
    if (events::isOfTheBus(message))
        reportGone(*static_cast<const Watch*>(watch));
    return 0;
}

int receiveHasOwner(sd_bus_message* message, void* watch, sd_bus_error*) {
    int hasOwner = 1;
    if (events::isOfTheBus(message) && sd_bus_message_read_basic(message, 'b', &hasOwner) > 0 && !hasOwner)
        reportGone(*static_cast<const Watch*>(watch));
    return 1;
}

} // namespace

void EventBus::watchProcess(const ProcessSerialNumber& psn) {
    const auto [entry, added] = d->watches.try_emplace(psn, Watch{d.get(), psn, {}, {}});
    if (!added || !isConnected())
        return;
    // One rule for each watched process, so that other processes do not wake this one.
    const std::string name = events::uniqueName(psn);
    sd_bus_slot* slot = nullptr;
    sd_bus_add_match_async(d->bus.get(), &slot, events::ruleForLeaving(name).c_str(), receiveLeft,
        events::receiveRuleAdded, &entry->second);
    entry->second.left.reset(slot);
    // The process may have left before the rule existed. The bus answers in order, so this check leaves no
    // gap.
    slot = nullptr;
    sd_bus_call_method_async(d->bus.get(), &slot, events::kBusName, events::kBusPath, events::kBusName,
        "NameHasOwner", receiveHasOwner, &entry->second, "s", name.c_str());
    entry->second.leftBefore.reset(slot);
    d->notifyPending();
}

void EventBus::unwatchProcess(const ProcessSerialNumber& psn) {
    d->watches.erase(psn);
}

void EventBus::onProcessGone(std::function<void(const ProcessSerialNumber&)> function) {
    d->goneFunction = std::move(function);
}

void EventBus::Private::dispatch(const ProcessSerialNumber& gone) {
    if (watches.erase(gone) == 0)
        return; // reported already, or no longer of interest
    if (const auto function = goneFunction)
        function(gone);
}

} // namespace quorvi
