// The connection behind EventBus, for the files of this folder only.
#pragma once

#include <deque>
#include <map>
#include <utility>
#include <variant>

#include "events/EventBus.h"
#include "events/KnownProcesses.h"
#include "events/SdBus.h"

namespace quorvi {

class EventBus::Private {
  public:
    explicit Private(events::BusPtr connected);

    using Deadline = std::chrono::steady_clock::time_point;

    /// Calls the process and waits for the answer. Returns null and sets the status on failure. The signature
    /// and the arguments are as for sd_bus_message_append.
    template <typename... Arguments>
    [[nodiscard]] events::MessageRef call(const char* destination, const char* path, const char* interface,
        const char* member, Deadline deadline, Status& status, const char* signature,
        Arguments... arguments) {
        auto message = newCall(destination, path, interface, member);
        if (message && sd_bus_message_append(message.get(), signature, arguments...) < 0)
            message.reset();
        return send(message, deadline, status);
    }

    /// A call that never starts its target process; null if the bus is gone.
    [[nodiscard]] events::MessageRef newCall(
        const char* destination, const char* path, const char* interface, const char* member) const;
    /// Sends a call and waits for the answer, as call() does; connectionInvalid for a null call.
    [[nodiscard]] events::MessageRef send(
        const events::MessageRef& message, Deadline deadline, Status& status);

    [[nodiscard]] bool isOpen() const { return sd_bus_is_open(bus.get()) > 0; }
    [[nodiscard]] bool hasPending() const;
    void notifyPending() const;
    /// Reads or writes once. Returns false if there was nothing to do.
    bool processOnce();
    void runWork();
    /// The longest poll(2) timeout, in milliseconds; -1 for none.
    [[nodiscard]] int pollTimeout(std::chrono::milliseconds wanted) const;

    events::BusPtr bus; // first, so that it outlives the slots
    ProcessSerialNumber own;
    events::KnownProcesses known{bus.get()};
    std::function<void()> pendingFunction;
    std::function<void()> disconnectedFunction;
    std::function<void()> processesChangedFunction;
    bool disconnectReported = false;

    using HandlerKey = std::pair<FourCharCode, FourCharCode>;
    std::map<HandlerKey, std::shared_ptr<const EventHandler>> handlers;
    events::SlotPtr eventsObject;

    struct Watch {
        Private* connection;
        ProcessSerialNumber psn;
        events::SlotPtr left;
        events::SlotPtr leftBefore;
    };
    std::map<ProcessSerialNumber, Watch> watches;
    std::function<void(const ProcessSerialNumber&)> goneFunction;

    struct ProcessesChanged {};
    /// Incoming events, departures and changes of the process list in the order of their arrival. They are
    /// queued until the library has returned, so that a handler may call any function, even run nested loops.
    std::deque<std::variant<events::MessageRef, ProcessSerialNumber, ProcessesChanged>> work;

    void dispatch(const events::MessageRef& message);
    void dispatch(const ProcessSerialNumber& gone);
    void dispatch(ProcessesChanged);
    /// Queues the change, unless the last queued item is one.
    void noteProcessesChanged();
    [[nodiscard]] bool offerEvents();
};

} // namespace quorvi
