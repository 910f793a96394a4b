// A process on the bus under the helper's name that says when it has been told of saved settings.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include "bench/Figures.h"
#include "events/EventBus.h"

namespace quorvi::bench {

class Receiver {
  public:
    /// Owns the helper's name before the constructor returns. The function is called for each 'KyPR', on the
    /// receiver's own thread, with the moment when it came. Throws when there is no bus or the name is taken.
    explicit Receiver(std::function<void(Clock::time_point)> received);
    ~Receiver();
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

  private:
    std::unique_ptr<EventBus> m_bus; // the thread's
    std::function<void(Clock::time_point)> m_received;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

} // namespace quorvi::bench
