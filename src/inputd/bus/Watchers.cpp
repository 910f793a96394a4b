#include "inputd/bus/Watchers.h"

#include <algorithm>

#include "events/InputdInterface.h"

namespace quorvi::inputd {

namespace {

events::MessageRef newSignal(sd_bus* bus, const std::string& connection, const char* name) {
    sd_bus_message* signal = nullptr;
    if (sd_bus_message_new_signal(bus, &signal, kPath, kInterface, name) >= 0)
        sd_bus_message_set_destination(signal, connection.c_str());
    return events::adopt(signal);
}

} // namespace

const char* nameOf(MouseState state) {
    switch (state) {
    case MouseState::absent:
        return kStateAbsent;
    case MouseState::waiting:
        return kStateWaiting;
    case MouseState::busy:
        return kStateBusy;
    case MouseState::driven:
        return kStateDriven;
    }
    return kStateAbsent;
}

bool appendStatus(sd_bus_message* message, const UsedMouse& mouse, const char* state) {
    const auto running = mouse.driven.running();
    return sd_bus_message_append(message, kStatus, state, running.profile, running.stage, running.dpiX,
               running.dpiY, mouse.driven.pressedInputs()) >= 0;
}

Watchers::Watcher* Watchers::findOrAdd(const char* connection, uid_t user) {
    const auto found = std::ranges::find_if(
        m_watchers, [&](const auto& watcher) { return watcher->connection == connection; });
    if (found != m_watchers.end())
        return found->get();
    if (m_watchers.size() >= most)
        return nullptr;
    auto watcher = std::make_unique<Watcher>(Watcher{this, connection, user, false, false, {}, nullptr});
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_match_async(m_bus, &slot, events::ruleForLeaving(watcher->connection).c_str(), left,
            events::receiveRuleAdded, watcher.get()) < 0)
        return nullptr;
    watcher->leaving.reset(slot);
    // The connection may have left before the match rule existed. The bus answers in order, so this check
    // leaves no gap.
    if (!m_questions.userOf(connection, [this, name = watcher->connection](std::optional<uid_t> there) {
            if (!there)
                remove(name);
        }))
        return nullptr;
    m_watchers.push_back(std::move(watcher));
    return m_watchers.back().get();
}

bool Watchers::add(const char* connection, uid_t user, bool inputs) {
    auto* watcher = findOrAdd(connection, user);
    if (watcher) {
        watcher->status = true;
        watcher->inputs = inputs;
    }
    return watcher != nullptr;
}

bool Watchers::addForCodes(const char* connection, uid_t user, const std::string& mouse) {
    auto* watcher = findOrAdd(connection, user);
    if (watcher)
        watcher->codes = mouse;
    return watcher != nullptr;
}

bool Watchers::tellCode(const UsedMouse& mouse, std::uint16_t code, bool pressed) const {
    bool told = false;
    for (const auto& watcher : m_watchers) {
        if (watcher->user != mouse.owner || watcher->codes != mouse.id)
            continue;
        const auto signal = newSignal(m_bus, watcher->connection, kCodeChanged);
        told = signal &&
               sd_bus_message_append(signal.get(), kCodeChangedArguments, mouse.id.c_str(), code,
                   static_cast<int>(pressed)) >= 0 &&
               sd_bus_send(m_bus, signal.get(), nullptr) >= 0;
    }
    return told;
}

int Watchers::left(sd_bus_message* signal, void* watcher, sd_bus_error* /*error*/) {
    auto& gone = *static_cast<Watcher*>(watcher);
    if (events::isOfTheBus(signal))
        gone.owner->remove(std::string(gone.connection));
    return 0;
}

void Watchers::remove(const std::string& connection) {
    std::erase_if(m_watchers, [&](const auto& each) { return each->connection == connection; });
}

bool Watchers::wantInputs() const {
    return std::ranges::any_of(m_watchers, [](const auto& watcher) { return watcher->inputs; });
}

void Watchers::tellStatus(const UsedMouse& mouse, const char* state) const {
    for (const auto& watcher : m_watchers) {
        if (watcher->user != mouse.owner || !watcher->status)
            continue;
        const auto signal = newSignal(m_bus, watcher->connection, kStatusChanged);
        if (signal && sd_bus_message_append_basic(signal.get(), 's', mouse.id.c_str()) >= 0 &&
            appendStatus(signal.get(), mouse, state))
            sd_bus_send(m_bus, signal.get(), nullptr);
    }
}

void Watchers::tellInput(const UsedMouse& mouse, std::uint8_t input, bool pressed) const {
    for (const auto& watcher : m_watchers) {
        if (watcher->user != mouse.owner || !watcher->inputs)
            continue;
        const auto signal = newSignal(m_bus, watcher->connection, kInputChanged);
        if (signal && sd_bus_message_append(signal.get(), kInputChangedArguments, mouse.id.c_str(), input,
                          static_cast<int>(pressed)) >= 0)
            sd_bus_send(m_bus, signal.get(), nullptr);
    }
}

} // namespace quorvi::inputd
