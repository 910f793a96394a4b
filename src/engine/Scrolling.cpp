#include "engine/Scrolling.h"

#include <algorithm>

namespace quorvi::engine {

namespace {

// Usual for keyboards, and slow enough to stop at a given line.
constexpr Time kBeforeRepeating = std::chrono::milliseconds(300);
constexpr Time kBetweenNotches = std::chrono::milliseconds(60);

std::uint16_t fineAxis(std::uint16_t axis) {
    return axis == REL_WHEEL ? REL_WHEEL_HI_RES : REL_HWHEEL_HI_RES;
}

} // namespace

void Scrolling::turn(ScrollDirection direction, std::int64_t notches, std::int64_t parts) {
    if (notches != 0)
        m_writer.put(Device::Pointer, EV_REL, direction.axis, notches * direction.sign);
    if (parts != 0)
        m_writer.put(Device::Pointer, EV_REL, fineAxis(direction.axis), parts * direction.sign);
}

void Scrolling::press(std::uint8_t input, ScrollDirection direction, Time now) {
    m_held[input - 1U] = {true, direction, now + kBeforeRepeating};
    turn(direction, 1, partsOfNotch);
}

void Scrolling::release(std::uint8_t input) {
    m_held[input - 1U].isDown = false;
}

void Scrolling::wake(Time now) {
    for (Held& held : m_held) {
        if (!held.isDown || held.due > now)
            continue;
        held.due = now + kBetweenNotches;
        turn(held.direction, 1, partsOfNotch);
    }
}

std::optional<Time> Scrolling::nextWake() const {
    std::optional<Time> next;
    for (const Held& held : m_held)
        if (held.isDown)
            next = earlier(next, held.due);
    return next;
}

void Scrolling::endAll() {
    m_held = {};
}

bool Scrolling::isAny() const {
    return std::ranges::any_of(m_held, &Held::isDown);
}

} // namespace quorvi::engine
