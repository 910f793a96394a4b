// The computer's sleep: what is held is released before it, and the computer waits for that.
#pragma once

#include <functional>
#include <optional>

#include "inputd/bus/Questions.h"
#include "inputd/loop/Descriptor.h"

namespace quorvi::inputd {

class SleepWatch {
  public:
    /// `sleeps` is called with true before the computer goes to sleep and with false when it is awake again,
    /// or has stayed so.
    SleepWatch(sd_bus* bus, Questions& questions, std::function<void(bool)> sleeps);

    /// Whether there is something to release: only then is the computer made to wait.
    void setNeeded(bool needed);

  private:
    static int received(sd_bus_message* message, void* self, sd_bus_error* error);
    void look();
    void looked(std::optional<bool> sleeps);
    void takeDelay();

    Questions& m_questions;
    std::function<void(bool)> m_sleeps;
    events::SlotPtr m_slot;
    Descriptor m_delay;
    bool m_needed = false;
    bool m_isAsleep = false; ///< or on its way there
    bool m_isLooking = false;
    bool m_looksAgain = false; ///< something has changed since the question was asked
};

} // namespace quorvi::inputd
