#include "capture/KeyOwnership.h"

#include <algorithm>

#include "platform/PressedKeys.h"

namespace quorvi {

void KeyOwnership::press(std::uint32_t scanCode, const QObject* window) {
    m_held.push_back({scanCode, window});
}

void KeyOwnership::take(std::uint32_t scanCode) {
    m_taken.push_back(scanCode);
    if (!m_detectableAutoRepeat)
        m_detectableAutoRepeat.emplace();
}

bool KeyOwnership::release(std::uint32_t scanCode) {
    std::erase_if(m_held, [scanCode](const HeldKey& key) { return key.scanCode == scanCode; });
    const bool wasTaken = std::erase(m_taken, scanCode) != 0;
    if (m_taken.empty())
        m_detectableAutoRepeat.reset();
    return wasTaken;
}

bool KeyOwnership::isHeld(std::uint32_t scanCode) const {
    return std::ranges::find(m_held, scanCode, &HeldKey::scanCode) != m_held.end();
}

bool KeyOwnership::isTaken(std::uint32_t scanCode) const {
    return std::ranges::find(m_taken, scanCode) != m_taken.end();
}

void KeyOwnership::forgetReleasedIn(const QObject* window) {
    const std::vector<HeldKey> held = m_held;
    for (const HeldKey& key : held)
        if (key.window == window && isKeyKnownToBeUp(key.scanCode))
            release(key.scanCode);
}

void KeyOwnership::forget() {
    m_held.clear();
    m_taken.clear();
    m_detectableAutoRepeat.reset();
}

} // namespace quorvi
