#include <cerrno>

#include "events/EventBusPrivate.h"
#include "events/EventMessage.h"
#include "events/EventsInterface.h"
#include "events/ProcessName.h"

namespace quorvi {

namespace {

using events::kErrorEventFailed;
using events::kErrorEventNotHandled;
using events::kErrorInvalidArguments;

int receiveSend(sd_bus_message* message, void* connection, sd_bus_error*) {
    static_cast<EventBus::Private*>(connection)
        ->work.emplace_back(events::adopt(sd_bus_message_ref(message)));
    return 1; // answered when it is dispatched
}

const sd_bus_vtable kG_eventsVtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES(events::kSend, events::kSendArguments, events::kSendNames, events::kSendResult,
        /* all names together */, receiveSend, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

// The answers. They send nothing if no answer is wanted, and ignore errors: there is no one left to report
// them to.

void answerError(sd_bus_message* call, const char* name, const char* text) {
    sd_bus_reply_method_errorf(call, name, "%s", text);
}

void answerParameters(sd_bus_message* call, const Event& reply) {
    sd_bus_message* created = nullptr;
    if (sd_bus_message_new_method_return(call, &created) < 0)
        return;
    const auto answer = events::adopt(created);
    if (events::writeParameters(created, reply))
        sd_bus_send(nullptr, created, nullptr);
    else
        answerError(call, kErrorEventFailed, "The reply cannot be written.");
}

void answer(sd_bus_message* call, Status status, const Event& reply) {
    if (status == errAEEventNotHandled)
        answerError(call, kErrorEventNotHandled, "The event was not handled.");
    else if (status != noErr)
        answerError(call, kErrorEventFailed, "The event's handler failed.");
    else if (sd_bus_message_get_expect_reply(call) > 0)
        answerParameters(call, reply);
}

} // namespace

bool EventBus::Private::offerEvents() {
    sd_bus_slot* slot = nullptr;
    const int added =
        sd_bus_add_object_vtable(bus.get(), &slot, events::kPath, events::kInterface, kG_eventsVtable, this);
    eventsObject.reset(slot);
    return added >= 0;
}

void EventBus::Private::dispatch(const events::MessageRef& message) {
    const auto event = events::readEvent(message.get());
    const char* name = sd_bus_message_get_sender(message.get());
    const auto sender = events::psnFromUniqueName(name ? name : "");
    if (!event || !sender) {
        answerError(message.get(), kErrorInvalidArguments,
            "Codes are four ASCII characters; the value is u for 'magn', i for 'long', else ay.");
        return;
    }
    const auto found = handlers.find({event->eventClass, event->eventID});
    if (found == handlers.end()) {
        answer(message.get(), errAEEventNotHandled, {});
        return;
    }
    const auto handler = found->second; // keeps it while it removes itself
    Event reply{event->eventClass, event->eventID, {}};
    const Status status = (*handler)(*event, *sender, reply);
    answer(message.get(), status, reply);
    notifyPending();
}

void EventBus::installHandler(FourCharCode eventClass, FourCharCode eventID, EventHandler handler) {
    d->handlers[{eventClass, eventID}] = std::make_shared<const EventHandler>(std::move(handler));
}

void EventBus::removeHandler(FourCharCode eventClass, FourCharCode eventID) {
    d->handlers.erase({eventClass, eventID});
}

Status EventBus::send(const ProcessSerialNumber& target, const Event& event, SendMode mode, Event* reply,
    std::chrono::milliseconds timeout) {
    if (!isConnected())
        return connectionInvalid;
    if (target == ProcessSerialNumber{})
        return procNotFound;
    const auto call =
        d->newCall(events::uniqueName(target).c_str(), events::kPath, events::kInterface, events::kSend);
    if (!call || !events::writeEvent(call.get(), event))
        return paramErr;
    if (mode == SendMode::noReply) {
        sd_bus_message_set_expect_reply(call.get(), 0);
        const int sent = sd_bus_send(d->bus.get(), call.get(), nullptr);
        d->notifyPending();
        return sent < 0 ? connectionInvalid : noErr;
    }
    Status status = noErr;
    const auto answered = d->send(call, std::chrono::steady_clock::now() + timeout, status);
    if (!answered)
        return status;
    Event result{event.eventClass, event.eventID, {}};
    if (!events::readParameters(answered.get(), result))
        return errAECoercionFail;
    if (reply)
        *reply = std::move(result);
    return noErr;
}

} // namespace quorvi
