#include "engine/DoubleClicks.h"

#include <algorithm>

namespace quorvi::engine {

namespace {

constexpr Time kBetweenChanges = std::chrono::milliseconds(40);

} // namespace

void DoubleClicks::press(std::uint8_t input, std::uint16_t button, Time now) {
    Clicks& clicks = m_clicks[input - 1U];
    if (clicks.phase != Phase::Idle)
        return;
    clicks = {Phase::FirstDown, true, button, now + kBetweenChanges};
    m_keys.press(button);
}

void DoubleClicks::release(std::uint8_t input) {
    Clicks& clicks = m_clicks[input - 1U];
    clicks.inputIsDown = false;
    if (clicks.phase == Phase::Held)
        end(clicks);
}

void DoubleClicks::wake(Time now) {
    for (Clicks& clicks : m_clicks)
        if (clicks.phase != Phase::Idle && clicks.phase != Phase::Held && clicks.due <= now)
            advance(clicks, now);
}

std::optional<Time> DoubleClicks::nextWake() const {
    std::optional<Time> next;
    for (const Clicks& clicks : m_clicks)
        if (clicks.phase != Phase::Idle && clicks.phase != Phase::Held)
            next = earlier(next, clicks.due);
    return next;
}

void DoubleClicks::endAll() {
    for (Clicks& clicks : m_clicks)
        end(clicks);
}

bool DoubleClicks::areAny() const {
    return std::ranges::any_of(m_clicks, [](const Clicks& clicks) { return clicks.phase != Phase::Idle; });
}

void DoubleClicks::advance(Clicks& clicks, Time now) {
    clicks.due = now + kBetweenChanges;
    switch (clicks.phase) {
    case Phase::FirstDown:
        clicks.phase = Phase::Between;
        return m_keys.release(clicks.button);
    case Phase::Between:
        clicks.phase = Phase::SecondDown;
        return m_keys.press(clicks.button);
    default:
        clicks.phase = Phase::Held;
        if (!clicks.inputIsDown)
            end(clicks);
    }
}

void DoubleClicks::end(Clicks& clicks) {
    if (clicks.phase != Phase::Idle && clicks.phase != Phase::Between)
        m_keys.release(clicks.button);
    clicks.phase = Phase::Idle;
}

} // namespace quorvi::engine
