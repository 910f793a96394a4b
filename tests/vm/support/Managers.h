// polkit and the log-in manager, as far as the service talks to them, on the machine's bus.
#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "events/SdBus.h"

namespace quorvi::test {

class Managers {
  public:
    Managers();
    ~Managers();
    Managers(const Managers&) = delete;
    Managers& operator=(const Managers&) = delete;

    /// What polkit answers.
    std::atomic<bool> letsUser = true;
    /// As long as it is, polkit answers nobody; what was asked meanwhile is answered later.
    std::atomic<bool> isSlow = false;
    /// How often it was asked, and for what the last time.
    [[nodiscard]] int timesAsked() const { return m_timesAsked; }
    /// Somebody makes the computer's sleep wait.
    [[nodiscard]] bool isSleepDelayed() const;
    void sayPrepareForSleep(bool begins);

  private:
    static int authorize(sd_bus_message* message, void* self, sd_bus_error* error);
    static int inhibit(sd_bus_message* message, void* self, sd_bus_error* error);
    static int isPreparingForSleep(sd_bus* bus, const char* path, const char* interface, const char* property,
        sd_bus_message* reply, void* self, sd_bus_error* error);
    static const sd_bus_vtable authority[];
    static const sd_bus_vtable manager[];
    void run();

    void answer();

    events::BusPtr m_bus;
    std::vector<events::MessageRef> m_asked; ///< of the thread's own
    int m_isPreparing = 0;                   ///< the same
    std::atomic<int> m_timesAsked = 0;
    std::atomic<int> m_delay = -1;     ///< the reading end of the inhibitor's pipe
    std::atomic<int> m_announced = -1; ///< a PrepareForSleep that waits to be said
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace quorvi::test
