#include "inputd/devices/KeyHolders.h"

#include <limits>

namespace quorvi::inputd {

bool KeyHolders::passes(const input_event& event) {
    if (event.type != EV_KEY || event.code >= m_holders.size())
        return true;
    auto& holders = m_holders[event.code];
    const bool kernelListens = (isHeld(KEY_LEFTALT) || isHeld(KEY_RIGHTALT)) && isHeld(KEY_SYSRQ);
    switch (event.value) {
    case 0:
        if (holders > 0)
            --holders;
        return holders == 0;
    case 1:
        if (kernelListens && holders == 0)
            return false;
        if (holders < std::numeric_limits<std::uint8_t>::max())
            ++holders;
        return holders == 1;
    default:
        return isHeld(event.code);
    }
}

} // namespace quorvi::inputd
