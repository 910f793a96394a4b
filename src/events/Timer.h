// A kernel timer, for programs that sleep on file descriptors.
#pragma once

#include <chrono>
#include <optional>

namespace quorvi {

/// Off until armed. Readable once due, until it is armed again or turned off.
class Timer {
  public:
    using Clock = std::chrono::steady_clock;

    Timer();
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// -1 if the system has no descriptors left.
    [[nodiscard]] int fd() const { return m_fd; }

    /// Sets the time, which may have passed; std::nullopt turns the timer off. Does nothing if the time is
    /// unchanged.
    void set(std::optional<Clock::time_point> due);

  private:
    int m_fd = -1;
    std::optional<Clock::time_point> m_due;
};

} // namespace quorvi
