#include "inputd/bus/SleepWatch.h"

#include <utility>

namespace quorvi::inputd {

SleepWatch::SleepWatch(sd_bus* bus, Questions& questions, std::function<void(bool)> sleeps)
    : m_questions(questions), m_sleeps(std::move(sleeps)) {
    sd_bus_slot* slot = nullptr;
    sd_bus_match_signal_async(bus, &slot, "org.freedesktop.login1", "/org/freedesktop/login1",
        "org.freedesktop.login1.Manager", "PrepareForSleep", received, nullptr, this);
    m_slot.reset(slot);
}

void SleepWatch::setNeeded(bool needed) {
    if (std::exchange(m_needed, needed) == needed)
        return;
    if (needed)
        takeDelay();
    else
        m_delay.reset();
}

void SleepWatch::takeDelay() {
    if (m_delay)
        return;
    // Without an answer keys are still released, perhaps only after the sleep.
    (void)m_questions.delaySleep("Keys that the mouse holds are released", [this](int descriptor) {
        Descriptor delay(descriptor);
        if (m_needed && !m_isAsleep) // a late one would delay the sleep needlessly
            m_delay = std::move(delay);
    });
}

/// Any bus connection can send us a signal that looks like the login manager's, and the library cannot tell
/// the difference. So the signal only triggers a query of the login manager, addressed by its name.
int SleepWatch::received(sd_bus_message* /*message*/, void* self, sd_bus_error* /*error*/) {
    static_cast<SleepWatch*>(self)->look();
    return 0;
}

/// One query at a time, however many signals arrive.
void SleepWatch::look() {
    m_looksAgain = m_isLooking;
    if (!m_isLooking)
        m_isLooking = m_questions.isPreparingForSleep([this](std::optional<bool> sleeps) {
            m_isLooking = false;
            looked(sleeps);
            if (std::exchange(m_looksAgain, false))
                look();
        });
}

void SleepWatch::looked(std::optional<bool> sleeps) {
    if (!sleeps)
        return;
    m_isAsleep = *sleeps;
    m_sleeps(*sleeps);
    if (*sleeps)
        m_delay.reset(); // the computer may sleep now
    else if (m_needed)
        takeDelay();
}

} // namespace quorvi::inputd
