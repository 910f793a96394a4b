// A timer of the kernel's, for programs that sleep on file descriptors.
#pragma once

#include <chrono>
#include <optional>

namespace quorvi {

/// Off until it is armed. Readable once it is due, until it is armed anew or off.
class Timer {
  public:
    using Clock = std::chrono::steady_clock;

    Timer();
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// -1 when the system has no room for one more.
    [[nodiscard]] int fd() const { return m_fd; }

    /// For the time, which may have passed; nothing switches it off. What is set already is not set again.
    void set(std::optional<Clock::time_point> due);

  private:
    int m_fd = -1;
    std::optional<Clock::time_point> m_due;
};

} // namespace quorvi
