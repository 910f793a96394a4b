#include "events/EventBus.h"

#include <algorithm>
#include <cerrno>
#include <limits>

#include <poll.h>

#include "events/EventBusPrivate.h"
#include "events/ProcessName.h"

namespace quorvi {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

/// For calls without their own timeout: the bus itself answers well within a millisecond.
constexpr milliseconds kBusCallTimeout{500};

/// Whether the called process made the answer. One that was called by a well-known name answers as itself.
bool isAnswerTo(sd_bus_message* call, sd_bus_message* reply) {
    const std::string_view called = sd_bus_message_get_destination(call);
    const char* sender = sd_bus_message_get_sender(reply);
    return called.starts_with(':') ? sender && called == sender
                                   : called != events::kBusName || events::isOfTheBus(reply);
}

/// Exchanges greetings with the bus. Gives up in time on a bus that accepts the connection but never answers.
bool becomeReady(sd_bus* bus, milliseconds timeout) {
    const auto deadline = steady_clock::now() + timeout;
    for (;;) {
        const int done = sd_bus_process(bus, nullptr);
        if (done < 0)
            return false;
        if (sd_bus_is_ready(bus) > 0)
            return true;
        const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
        if (left <= milliseconds::zero())
            return false;
        pollfd watched{sd_bus_get_fd(bus), static_cast<short>(sd_bus_get_events(bus)), 0};
        if (done == 0)
            poll(&watched, 1, static_cast<int>(left.count()));
    }
}

} // namespace

EventBus::Private::Private(events::BusPtr connected) : bus(std::move(connected)) {
    known.onChange([this] { noteProcessesChanged(); });
    const char* name = nullptr;
    if (sd_bus_get_unique_name(bus.get(), &name) >= 0)
        own = events::psnFromUniqueName(name).value_or(ProcessSerialNumber{});
}

events::MessageRef EventBus::Private::newCall(
    const char* destination, const char* path, const char* interface, const char* member) const {
    sd_bus_message* message = nullptr;
    if (!isOpen() ||
        sd_bus_message_new_method_call(bus.get(), &message, destination, path, interface, member) < 0)
        return {};
    sd_bus_message_set_auto_start(message, 0);
    return events::adopt(message);
}

events::MessageRef EventBus::Private::send(
    const events::MessageRef& message, Deadline deadline, Status& status) {
    status = connectionInvalid;
    if (!message)
        return {};
    // The library treats 0 as its default.
    const auto left =
        std::max(microseconds(1), std::chrono::ceil<microseconds>(deadline - steady_clock::now()));
    events::BusError error;
    sd_bus_message* reply = nullptr;
    const int result =
        sd_bus_call(bus.get(), message.get(), static_cast<std::uint64_t>(left.count()), error.get(), &reply);
    const auto answer = events::adopt(reply);
    status = result < 0 ? events::statusOf(*error.get(), result) : noErr;
    notifyPending();
    if (!answer || isAnswerTo(message.get(), answer.get()))
        return answer;
    status = connectionInvalid;
    return {};
}

bool EventBus::Private::hasPending() const {
    std::uint64_t queued = 0;
    return !disconnectReported &&
           (!work.empty() || !isOpen() || (sd_bus_get_n_queued_read(bus.get(), &queued) >= 0 && queued > 0));
}

void EventBus::Private::notifyPending() const {
    std::uint64_t unsent = 0;
    sd_bus_get_n_queued_write(bus.get(), &unsent);
    if (pendingFunction && (unsent > 0 || hasPending()))
        pendingFunction();
}

bool EventBus::Private::processOnce() {
    const int done = sd_bus_process(bus.get(), nullptr);
    if (done < 0 && done != -EBUSY) // busy: called from inside one of the library's own callbacks
        sd_bus_close(bus.get());
    return done > 0;
}

void EventBus::Private::runWork() {
    while (!work.empty()) {
        const auto item = std::move(work.front());
        work.pop_front();
        std::visit([this](const auto& what) { dispatch(what); }, item);
    }
}

int EventBus::Private::pollTimeout(milliseconds wanted) const {
    std::uint64_t due = 0;
    if (sd_bus_get_timeout(bus.get(), &due) > 0 && due != std::numeric_limits<std::uint64_t>::max()) {
        const auto now = std::chrono::duration_cast<microseconds>(steady_clock::now().time_since_epoch());
        const auto left = std::chrono::ceil<milliseconds>(microseconds(static_cast<std::int64_t>(due)) - now);
        wanted = wanted < milliseconds::zero() ? left : std::min(wanted, left);
        wanted = std::max(wanted, milliseconds::zero());
    }
    return static_cast<int>(std::clamp<std::int64_t>(wanted.count(), -1, std::numeric_limits<int>::max()));
}

EventBus::EventBus(std::unique_ptr<Private> connection) : d(std::move(connection)) {}

EventBus::~EventBus() = default;

std::unique_ptr<EventBus> EventBus::connect(milliseconds timeout) {
    sd_bus* opened = nullptr;
    if (sd_bus_open_user(&opened) < 0)
        return nullptr;
    events::BusPtr bus(opened);
    sd_bus_set_exit_on_disconnect(opened, 0);
    sd_bus_set_method_call_timeout(opened, static_cast<std::uint64_t>(microseconds(kBusCallTimeout).count()));
    if (!becomeReady(opened, timeout))
        return nullptr;
    auto connection = std::make_unique<Private>(std::move(bus));
    if (!connection->offerEvents())
        return nullptr;
    return std::unique_ptr<EventBus>(new EventBus(std::move(connection)));
}

bool EventBus::isConnected() const {
    return d->isOpen();
}

ProcessSerialNumber EventBus::processSerialNumber() const {
    return d->own;
}

int EventBus::fd() const {
    return d->disconnectReported ? -1 : std::max(sd_bus_get_fd(d->bus.get()), -1);
}

short EventBus::events() const {
    return static_cast<short>(std::max(sd_bus_get_events(d->bus.get()), 0));
}

bool EventBus::hasPending() const {
    return d->hasPending();
}

void EventBus::process() {
    d->runWork();
    for (int messages = 0; messages < kProcessedAtOnce && d->processOnce(); ++messages)
        d->runWork();
    if (d->isOpen() || d->disconnectReported)
        return;
    d->disconnectReported = true;
    if (d->disconnectedFunction)
        d->disconnectedFunction();
    d->dispatch(Private::ProcessesChanged{});
}

bool EventBus::wait(milliseconds timeout) {
    if (!isConnected() && !hasPending())
        return false;
    bool timeIsUp = false;
    if (!hasPending()) {
        pollfd watched{fd(), events(), 0};
        timeIsUp = poll(&watched, 1, d->pollTimeout(timeout)) == 0;
    }
    process();
    return isConnected() && !timeIsUp;
}

void EventBus::onPending(std::function<void()> function) {
    d->pendingFunction = std::move(function);
}

void EventBus::onDisconnected(std::function<void()> function) {
    d->disconnectedFunction = std::move(function);
}

} // namespace quorvi
