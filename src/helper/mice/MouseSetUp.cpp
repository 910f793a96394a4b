#include "helper/mice/MouseSetUp.h"

#include <linux/input-event-codes.h>

namespace quorvi {

MouseResult MouseSetUp::begin(const std::string& mouse) {
    const auto* found = m_mice.find(mouse);
    if (!found)
        return MouseResult::noSuchMouse;
    if (!found->isOurs)
        return MouseResult::notInUse;
    if (m_orders.inSetUp().id != mouse) {
        end();
        m_orders.setInSetUp({.id = mouse});
    }
    m_service.link()->watchCodes(mouse, true);
    m_driver.updateAll();
    return MouseResult::done;
}

void MouseSetUp::end() {
    const auto mouse = m_orders.inSetUp().id;
    if (mouse.empty())
        return;
    m_orders.setInSetUp({});
    if (m_service.link())
        m_service.link()->watchCodes(mouse, false);
    m_driver.watch();
    m_driver.updateAll();
}

MouseResult MouseSetUp::watchKey(std::uint16_t code) {
    const auto inSetUp = m_orders.inSetUp();
    if (inSetUp.id.empty())
        return MouseResult::notInUse;
    if (code > KEY_MAX)
        return MouseResult::invalid;
    if (inSetUp.watchedKey != code) {
        m_orders.setInSetUp({inSetUp.id, code});
        m_driver.watch();
        m_driver.updateAll();
    }
    return MouseResult::done;
}

} // namespace quorvi
