// Pings another program's window repeatedly, like window managers.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

namespace quorvi::test {

/// Pings the window (_NET_WM_PING) from its own thread and connection, from its construction on. A click
/// takes the same way through the same loop, so the delay of the answer is the delay of a click.
class WindowPing {
  public:
    /// The window's number as xdotool gives it.
    explicit WindowPing(const std::string& window);
    ~WindowPing();
    WindowPing(const WindowPing&) = delete;
    WindowPing& operator=(const WindowPing&) = delete;

    /// Answers so far.
    [[nodiscard]] int answers() const { return m_answers; }
    /// The longest delay of an answer so far, in milliseconds. A pending answer counts with its waiting time
    /// so far.
    [[nodiscard]] int longestDelayMs() const;

  private:
    void run(std::uint32_t window);

    std::atomic<bool> m_stop = false;
    std::atomic<int> m_answers = 0;
    std::atomic<std::int64_t> m_longestUs = 0;
    std::atomic<std::int64_t> m_waitingSinceUs = 0; ///< of the steady clock; 0 while nothing is waited for
    std::thread m_thread;
};

} // namespace quorvi::test
