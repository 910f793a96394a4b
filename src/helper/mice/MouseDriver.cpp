#include "helper/mice/MouseDriver.h"

#include <utility>

namespace quorvi {

MouseDriver::MouseDriver(KnownMice& mice, const MouseOrders& orders, const InputdService& service,
    InputdListener& listener, std::function<void()> changed)
    : m_mice(mice), m_orders(orders), m_service(service), m_listener(listener),
      m_changed(std::move(changed)) {}

void MouseDriver::updateAll() {
    for (auto& [id, mouse] : m_mice.all())
        update(mouse);
}

void MouseDriver::updateOthers() {
    for (auto& [id, mouse] : m_mice.all())
        if (!mouse.isOurs)
            update(mouse);
}

/// One call at a time for each mouse, so that dragging a slider does not fill the connection of a slow
/// service: later changes go with the next call.
void MouseDriver::update(KnownMouse& mouse) {
    const auto chosen = m_mice.chosen(mouse);
    if (!m_orders.hasRecord() || mouse.isRefused || !chosen.inUse)
        return;
    if (std::exchange(mouse.isCalling, true)) {
        mouse.isOutdated = true;
        return;
    }
    mouse.isOutdated = false;
    auto& link = *m_service.link();
    const auto record = m_orders.recordFor(mouse.listed);
    const auto options = m_orders.optionsFor(mouse.listed, chosen);
    const auto answer = [this, id = mouse.listed.id](InputdResult result) { updated(id, result); };
    if (mouse.isPluggedIn)
        return link.use(mouse.listed.id, record, options, answer);
    link.setOptions(mouse.listed.id, options, [](InputdResult) {});
    link.setRecord(mouse.listed.id, record, answer);
}

void MouseDriver::updated(const std::string& id, InputdResult result) {
    auto* mouse = m_mice.find(id);
    if (!mouse)
        return;
    mouse->isCalling = false;
    const bool wasOurs = mouse->isOurs;
    // A failed call changes nothing.
    mouse->isOurs = result == InputdResult::done || (result == InputdResult::failed && wasOurs);
    mouse->isRefused = result == InputdResult::denied;
    if (!m_mice.chosen(*mouse).inUse) // the user has changed their mind
        release(*mouse);
    if (mouse->isOurs && mouse->isOutdated)
        update(*mouse);
    if (mouse->isOurs == wasOurs && !mouse->isRefused)
        return;
    if (mouse->isOurs)
        greet(id);
    m_changed();
}

/// A mouse that becomes ours: it or the service was away before.
void MouseDriver::greet(const std::string& id) {
    watch();
    if (id == m_orders.inSetUp().id)
        m_service.link()->watchCodes(id, true);
    m_service.link()->status(
        id, [this, id](const MouseStatus& status) { m_listener.statusChanged(id, status); });
}

void MouseDriver::release(KnownMouse& mouse) {
    if (std::exchange(mouse.isOurs, false))
        m_service.link()->forget(mouse.listed.id);
}

void MouseDriver::watch() {
    if (m_mice.anyOurs())
        m_service.link()->watch(m_orders.wantsInputs());
}

} // namespace quorvi
