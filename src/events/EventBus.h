// The processes of the session and the events between them, over the session bus.
//
// For one thread only. It does not run on its own: the owner watches fd() for events() and calls process(),
// as any event loop can. Calls that wait for an answer (names, process list, send with a reply) are bounded
// in time, and may read further incoming messages while they wait; those stay queued, so the owner calls
// process() again whenever hasPending() is true, even right after connect(). onPending() notifies the owner
// at once.
//
// After the bus has gone away every function just returns its error.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "events/EventTypes.h"

namespace quorvi {

/// The timeout of a reply: 15 ticks of a sixtieth of a second.
constexpr std::chrono::milliseconds kEventReplyTimeout{250};

/// The most messages that one call of process() handles, a few milliseconds of work.
constexpr int kProcessedAtOnce = 64;

enum class SendMode { noReply, waitReply };

/// What to do if another process already owns the name.
enum class NameMode {
    queueBehindOwner, ///< queue, and own it when the other one releases it
    onlyIfFree
};

enum class NameResult {
    owned,
    queued, ///< behind another process
    taken,  ///< by another process, and not queued
    failed  ///< no bus, or not a valid name
};

/// Receives the event and its sender, and adds parameters to the reply, which is dropped if the sender wants
/// none. A result other than noErr sends an error.
using EventHandler =
    std::function<Status(const Event& event, const ProcessSerialNumber& sender, Event& reply)>;

struct ProcessEntry {
    ProcessSerialNumber psn;
    std::string name;

    // The linter takes the 0 that a defaulted comparison compares with for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    auto operator<=>(const ProcessEntry&) const = default;
};

class EventBus {
  public:
    /// Connects to the bus of the session. Returns null if there is none or it does not answer in time; never
    /// starts a bus.
    [[nodiscard]] static std::unique_ptr<EventBus> connect(
        std::chrono::milliseconds timeout = std::chrono::seconds(1));

    ~EventBus();
    EventBus(const EventBus&) = delete;
    EventBus& operator=(const EventBus&) = delete;

    /// False once the bus went away; it does not come back.
    [[nodiscard]] bool isConnected() const;
    /// This process.
    [[nodiscard]] ProcessSerialNumber processSerialNumber() const;

    // For the owner's event loop.

    /// The file descriptor to watch; -1 once the bus went away.
    [[nodiscard]] int fd() const;
    /// The events to poll(2) for: POLLIN, and POLLOUT while output is queued. May change with every call of
    /// this class.
    [[nodiscard]] short events() const;
    /// Whether process() has work now, even if the file descriptor is not ready.
    [[nodiscard]] bool hasPending() const;
    /// Reads, answers and dispatches queued messages without waiting, at most kProcessedAtOnce, so a flood of
    /// messages cannot starve the rest of the process. If any are left, hasPending() is true or the file
    /// descriptor ready. Handlers run only from here, and may call any function of this class, this function
    /// included, but not destroy this object.
    void process();
    /// Waits for messages, at most this long, and processes them. Returns false if none came or the bus is
    /// gone. A negative time waits without limit.
    bool wait(std::chrono::milliseconds timeout);
    /// Called when a call has left incoming messages or unsent output. Runs inside that call: only schedule
    /// process() there, and re-read events().
    void onPending(std::function<void()> function);
    /// Called once, from process(), when the bus went away. fd() is invalid by then.
    void onDisconnected(std::function<void()> function);

    // Names. A process takes part in the process list while it owns a name.

    [[nodiscard]] NameResult ownName(
        std::string_view processName, NameMode mode = NameMode::queueBehindOwner);
    /// Releases the name, or leaves its queue. Returns procNotFound if this process neither owned nor queued
    /// for it.
    Status releaseName(std::string_view processName);

    // The process list.

    /// The processes that own a name, ordered by serial number and name. Empty without a bus.
    [[nodiscard]] std::vector<ProcessEntry> processes();
    /// Advances to the process after the given one; {0, 0} starts at the first. Returns procNotFound at the
    /// end and sets the number to {0, 0}; other errors leave it unchanged.
    [[nodiscard]] Status getNextProcess(ProcessSerialNumber& psn);
    /// The name of a process; the first in order if it owns several.
    [[nodiscard]] Status getProcessInformation(const ProcessSerialNumber& psn, std::string& name);
    /// The first process with the name, in any case of the letters A to Z. Returns procNotFound if there is
    /// none. The pointer may be null and is only written on success.
    [[nodiscard]] Status findProcessByName(std::string_view name, ProcessSerialNumber* psn);
    /// The processes that own exactly this name or queue for it, the owner first.
    [[nodiscard]] std::vector<ProcessSerialNumber> processesInLine(std::string_view processName);
    /// Sets a function that process() calls once after one or more changes of the process list (a process
    /// came, left or took over a name), and when the bus goes away. Messages that arrived before the change
    /// are dispatched first, later ones afterwards. Changes count from this call on; one from just before may
    /// be reported too. An empty function ends this.
    void onProcessesChanged(std::function<void()> function);

    // Events.

    /// Sends an event. Without a reply it is only queued: noErr does not mean that it arrived. With one,
    /// waits and stores the answer's parameters in the reply, which may be null. paramErr: a code is not four
    /// ASCII characters or a value does not fit its type; procNotFound: no such process;
    /// errAEEventNotHandled, errAEEventFailed: the other side's answer; errAETimeout; connectionInvalid: no
    /// bus, or the other side left before it answered.
    [[nodiscard]] Status send(const ProcessSerialNumber& target, const Event& event,
        SendMode mode = SendMode::noReply, Event* reply = nullptr,
        std::chrono::milliseconds timeout = kEventReplyTimeout);

    /// Replaces an earlier handler for the same class and id.
    void installHandler(FourCharCode eventClass, FourCharCode eventID, EventHandler handler);
    /// Does nothing if there is none. A handler may remove itself.
    void removeHandler(FourCharCode eventClass, FourCharCode eventID);

    /// Watches for a process to leave the bus; also reports one that has already left.
    void watchProcess(const ProcessSerialNumber& psn);
    void unwatchProcess(const ProcessSerialNumber& psn);
    /// Called once, from process(), for each watched process that left.
    void onProcessGone(std::function<void(const ProcessSerialNumber&)> function);

    class Private; // the connection; for the other parts of src/events only
    [[nodiscard]] Private& connection() const { return *d; }

  private:
    explicit EventBus(std::unique_ptr<Private> connection);
    std::unique_ptr<Private> d;
};

} // namespace quorvi
