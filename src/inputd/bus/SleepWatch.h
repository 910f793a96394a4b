// Releases held keys before the computer sleeps, and delays the sleep until that is done.
#pragma once

#include <functional>
#include <optional>

#include "inputd/bus/Questions.h"
#include "inputd/loop/Descriptor.h"

namespace quorvi::inputd {

class SleepWatch {
  public:
    /// `sleeps` is called with true before the computer goes to sleep and with false when it has woken up or
    /// did not sleep after all.
    SleepWatch(sd_bus* bus, Questions& questions, std::function<void(bool)> sleeps);

    /// Whether there are keys to release: only then is sleep delayed.
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
    bool m_isAsleep = false; ///< or about to
    bool m_isLooking = false;
    bool m_looksAgain = false; ///< a signal came after the query was sent
};

} // namespace quorvi::inputd
