// The processes of the session and the events between them, over the session bus.
//
// One thread only. Nothing happens by itself: the owner watches fd() for events() and calls process(), as any
// event loop can. Calls that wait for an answer (names, process list, send with a reply) are bounded in time,
// and may read further incoming messages while they wait; those stay queued, so the owner calls process()
// again whenever hasPending() says so, right after connect() too. onPending() tells it at once.
//
// When the bus goes away, every function returns its error and nothing else happens.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "events/EventTypes.h"

namespace quorvi {

/// How long a reply is waited for: 15 ticks of a sixtieth of a second.
constexpr std::chrono::milliseconds kEventReplyTimeout{250};

/// How many messages one call of process() takes, a few milliseconds of work at most.
constexpr int kProcessedAtOnce = 64;

enum class SendMode { noReply, waitReply };

/// What to do when another process owns the name already.
enum class NameMode {
    queueBehindOwner, ///< wait in line and own it when the other one lets go
    onlyIfFree
};

enum class NameResult {
    owned,
    queued, ///< behind another process
    taken,  ///< by another process, and not queued
    failed  ///< no bus, or not a valid name
};

/// Gets the event and who sent it; puts parameters into the reply, which is dropped when the sender wants
/// none. A result other than noErr is answered with an error.
using EventHandler =
    std::function<Status(const Event& event, const ProcessSerialNumber& sender, Event& reply)>;

struct ProcessEntry {
    ProcessSerialNumber psn;
    std::string name;

    // The check takes the 0 that a defaulted comparison compares with for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    auto operator<=>(const ProcessEntry&) const = default;
};

class EventBus {
  public:
    /// Connects to the bus of the session. A null pointer when there is none or when it does not answer in
    /// time; never starts a bus.
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
    /// What to watch it for, as for poll(2): POLLIN, and POLLOUT while something waits to be written.
    /// Changes with every call of this class.
    [[nodiscard]] short events() const;
    /// There is something for process() to do now, whatever the file descriptor says.
    [[nodiscard]] bool hasPending() const;
    /// Reads, answers and dispatches what is there, without waiting, but no more than kProcessedAtOnce
    /// messages: who floods this process cannot keep it from the rest of its work. What is left shows in
    /// hasPending() or in the file descriptor. Handlers run from here only, and may call anything of this
    /// class, this function included, but not destroy this object.
    void process();
    /// Waits until there is something to do, at most this long, and does it. False when nothing came or the
    /// bus is gone. A negative time waits for ever.
    bool wait(std::chrono::milliseconds timeout);
    /// Called when a call left incoming messages or unsent output behind. Runs inside that call: only
    /// schedule process() there, and look at events() again.
    void onPending(std::function<void()> function);
    /// Called once, from process(), when the bus went away. fd() is invalid by then.
    void onDisconnected(std::function<void()> function);

    // Names. A process takes part in the process list while it owns a name.

    [[nodiscard]] NameResult ownName(
        std::string_view processName, NameMode mode = NameMode::queueBehindOwner);
    /// Gives the name or the place in its queue up. procNotFound when it was not ours.
    Status releaseName(std::string_view processName);

    // The process list.

    /// The processes that own a name, ordered by serial number and name. Empty when there is no bus.
    [[nodiscard]] std::vector<ProcessEntry> processes();
    /// Goes on to the process after the given one, {0, 0} for the first. procNotFound at the end, where the
    /// number becomes {0, 0}; other errors leave it as it was.
    [[nodiscard]] Status getNextProcess(ProcessSerialNumber& psn);
    /// The name of a process; the first in order when it owns several.
    [[nodiscard]] Status getProcessInformation(const ProcessSerialNumber& psn, std::string& name);
    /// The first process with the name, in any case of the letters A to Z. procNotFound when there is none.
    /// The pointer may be null and is only written to on success.
    [[nodiscard]] Status findProcessByName(std::string_view name, ProcessSerialNumber* psn);
    /// The processes that own exactly this name or wait for it, the owner first. Empty when there is none.
    [[nodiscard]] std::vector<ProcessSerialNumber> processesInLine(std::string_view processName);
    /// Called from process() when the process list is another one than before: a process came, left or took a
    /// name over, once for several of them; and when the bus went away. What has come before it was called
    /// has been dispatched, what comes later has not. The bus tells of changes from this call on; one that
    /// came a moment before may be told as well. An empty function ends it.
    void onProcessesChanged(std::function<void()> function);

    // Events.

    /// Sends an event. Without a reply it only queues it: noErr does not say that it arrived. With one it
    /// waits, and the parameters of the answer go to the reply, which may be null.
    /// paramErr: a code is not four ASCII characters or a value does not fit its type; procNotFound: no such
    /// process; errAEEventNotHandled, errAEEventFailed: the answer of the other side; errAETimeout;
    /// connectionInvalid: no bus, or the other side left before it answered.
    [[nodiscard]] Status send(const ProcessSerialNumber& target, const Event& event,
        SendMode mode = SendMode::noReply, Event* reply = nullptr,
        std::chrono::milliseconds timeout = kEventReplyTimeout);

    /// Replaces an earlier handler for the same class and id.
    void installHandler(FourCharCode eventClass, FourCharCode eventID, EventHandler handler);
    /// Does nothing when there is none. A handler may remove itself.
    void removeHandler(FourCharCode eventClass, FourCharCode eventID);

    /// Starts to wait for a process to leave the bus; also reports one that has left already.
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
