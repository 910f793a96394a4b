#include <algorithm>
#include <cerrno>

#include "events/EventBusPrivate.h"
#include "events/EventsInterface.h"
#include "events/ProcessName.h"

namespace quorvi {

using std::chrono::steady_clock;

namespace {

/// For a whole look-up, however many queries it needs.
constexpr std::chrono::milliseconds kLookupTimeout{1000};

/// How often the bus is asked the same. A foreign answer that bears the number of a question takes the place
/// of its own (SdBus.h); the next question has another number.
constexpr int kAttempts = 3;

/// Asks until the answer is not a failure that the bus is not known to give.
template <typename... Arguments>
events::MessageRef askBus(EventBus::Private& connection, const char* member,
    EventBus::Private::Deadline deadline, Status& status, const char* signature, Arguments... arguments) {
    using events::kBusName;
    for (int attempt = 1;; ++attempt) {
        auto reply = connection.call(
            kBusName, events::kBusPath, kBusName, member, deadline, status, signature, arguments...);
        if (status != connectionInvalid || attempt == kAttempts || !connection.isOpen())
            return reply;
    }
}

/// The serial number of a name's owner; procNotFound if it no longer has one.
Status ownerOf(EventBus::Private& connection, const std::string& name, EventBus::Private::Deadline deadline,
    ProcessSerialNumber& psn) {
    Status status = noErr;
    const auto reply = askBus(connection, "GetNameOwner", deadline, status, "s", name.c_str());
    const char* owner = nullptr;
    if (!reply)
        return status;
    if (sd_bus_message_read_basic(reply.get(), 's', &owner) <= 0)
        return connectionInvalid;
    const auto number = events::psnFromUniqueName(owner);
    psn = number.value_or(psn);
    return number ? noErr : procNotFound;
}

/// The process names on the bus that `wanted` accepts.
template <typename Wanted>
Status listNames(EventBus::Private& connection, EventBus::Private::Deadline deadline, Wanted&& wanted,
    std::vector<std::string>& processNames) {
    Status status = noErr;
    const auto reply = askBus(connection, "ListNames", deadline, status, "");
    if (!reply)
        return status;
    if (sd_bus_message_enter_container(reply.get(), 'a', "s") < 0)
        return connectionInvalid;
    const char* name = nullptr;
    while (sd_bus_message_read_basic(reply.get(), 's', &name) > 0)
        if (const auto processName = events::processNameOf(name); processName && wanted(*processName))
            processNames.emplace_back(*processName);
    return noErr;
}

/// The processes whose name `wanted` accepts, in order.
template <typename Wanted>
Status listProcesses(EventBus::Private& connection, Wanted&& wanted, std::vector<ProcessEntry>& list) {
    const auto deadline = steady_clock::now() + kLookupTimeout;
    std::vector<std::string> names;
    if (const Status status = listNames(connection, deadline, wanted, names); status != noErr)
        return status;
    for (auto& name : names) {
        ProcessSerialNumber psn;
        const Status status = ownerOf(connection, events::wellKnownName(name), deadline, psn);
        if (status == noErr)
            list.push_back({psn, std::move(name)});
        else if (status != procNotFound) // it may have left since the names were listed
            return status;
    }
    std::sort(list.begin(), list.end());
    return noErr;
}

bool every(std::string_view) {
    return true;
}

} // namespace

std::vector<ProcessEntry> EventBus::processes() {
    std::vector<ProcessEntry> list;
    if (listProcesses(*d, every, list) != noErr)
        list.clear();
    return list;
}

Status EventBus::getNextProcess(ProcessSerialNumber& psn) {
    std::vector<ProcessEntry> list;
    if (const Status status = listProcesses(*d, every, list); status != noErr)
        return status;
    const auto next =
        std::find_if(list.begin(), list.end(), [&](const ProcessEntry& entry) { return entry.psn > psn; });
    psn = next == list.end() ? ProcessSerialNumber{} : next->psn;
    return next == list.end() ? procNotFound : noErr;
}

Status EventBus::getProcessInformation(const ProcessSerialNumber& psn, std::string& name) {
    std::vector<ProcessEntry> list;
    if (const Status status = listProcesses(*d, every, list); status != noErr)
        return status;
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const ProcessEntry& entry) { return entry.psn == psn; });
    if (found == list.end())
        return procNotFound;
    name = found->name;
    return noErr;
}

Status EventBus::findProcessByName(std::string_view name, ProcessSerialNumber* psn) {
    auto found = d->known.find(name);
    if (!found) {
        d->known.startWatching();
        d->notifyPending(); // this call may be the first to notice that the bus went away
        std::vector<ProcessEntry> list;
        const auto wanted = [&](std::string_view other) { return events::sameProcessName(name, other); };
        if (const Status status = listProcesses(*d, wanted, list); status != noErr)
            return status;
        if (list.empty())
            return procNotFound;
        found = list.front().psn;
        d->known.remember(name, *found);
    }
    if (psn)
        *psn = *found;
    return noErr;
}

std::vector<ProcessSerialNumber> EventBus::processesInLine(std::string_view processName) {
    std::vector<ProcessSerialNumber> line;
    Status status = noErr;
    const std::string name = events::wellKnownName(processName);
    const auto reply =
        askBus(*d, "ListQueuedOwners", steady_clock::now() + kLookupTimeout, status, "s", name.c_str());
    if (!reply || sd_bus_message_enter_container(reply.get(), 'a', "s") < 0)
        return line;
    const char* process = nullptr;
    while (sd_bus_message_read_basic(reply.get(), 's', &process) > 0)
        if (const auto psn = events::psnFromUniqueName(process))
            line.push_back(*psn);
    return line;
}

void EventBus::onProcessesChanged(std::function<void()> function) {
    if (function)
        d->known.watch();
    d->processesChangedFunction = std::move(function);
    d->notifyPending();
}

void EventBus::Private::noteProcessesChanged() {
    if (processesChangedFunction && (work.empty() || !std::holds_alternative<ProcessesChanged>(work.back())))
        work.emplace_back(ProcessesChanged{});
}

void EventBus::Private::dispatch(ProcessesChanged) {
    if (const auto function = processesChangedFunction) // keeps the function alive while it removes itself
        function();
}

NameResult EventBus::ownName(std::string_view processName, NameMode mode) {
    const std::string name = events::wellKnownName(processName);
    const std::uint64_t flags = mode == NameMode::queueBehindOwner ? SD_BUS_NAME_QUEUE : 0;
    int result = -EIO;
    const auto isAnswered = [&] { return result >= 0 || result == -EEXIST || result == -EALREADY; };
    for (int attempt = 0; attempt < kAttempts && !isAnswered() && d->isOpen(); ++attempt)
        result = sd_bus_request_name(d->bus.get(), name.c_str(), flags);
    d->notifyPending();
    if (result == -EEXIST)
        return NameResult::taken;
    if (result > 0 || result == -EALREADY)
        return NameResult::owned;
    return result == 0 ? NameResult::queued : NameResult::failed;
}

Status EventBus::releaseName(std::string_view processName) {
    const int result = sd_bus_release_name(d->bus.get(), events::wellKnownName(processName).c_str());
    d->notifyPending();
    if (result >= 0)
        return noErr;
    return result == -ESRCH || result == -EADDRINUSE ? procNotFound : connectionInvalid;
}

} // namespace quorvi
