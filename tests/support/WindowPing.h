// Pings another program's window repeatedly, like window managers.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

#include <sys/types.h>

namespace quorvi::test {

/// Pings the window (_NET_WM_PING) from its own thread and connection, from its construction on. A click
/// takes the same way through the same loop, so the delay of the answer is the delay of a click. The time
/// that the panel, the display's server or the pinging thread waited for a processor is other programs' and
/// does not count.
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
    /// The time of the steady clock without the waits for a processor of all who take part.
    [[nodiscard]] std::int64_t countedUs() const;

    std::atomic<bool> m_stop = false;
    std::atomic<int> m_answers = 0;
    std::atomic<std::int64_t> m_longestUs = 0;
    std::atomic<std::int64_t> m_waitingSinceUs = 0; ///< of countedUs(); 0 while nothing is waited for
    std::array<pid_t, 3> m_threads{};               ///< those who take part; set before the first ping
    std::thread m_thread;
};

} // namespace quorvi::test
