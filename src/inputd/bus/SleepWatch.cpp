#include "inputd/bus/SleepWatch.h"

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
    // Without an answer keys are released all the same, perhaps after the sleep.
    (void)m_questions.delaySleep("Keys that the mouse holds are released", [this](int descriptor) {
        Descriptor delay(descriptor);
        if (m_needed)
            m_delay = std::move(delay);
    });
}

int SleepWatch::received(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    auto& watch = *static_cast<SleepWatch*>(self);
    int begins = 0;
    if (sd_bus_message_read_basic(message, 'b', &begins) <= 0)
        return 0;
    watch.m_sleeps(begins != 0);
    if (begins != 0)
        watch.m_delay.reset(); // now it may
    else if (watch.m_needed)
        watch.takeDelay();
    return 0;
}

} // namespace quorvi::inputd
