// Asks a window of another program again and again whether it answers, as window managers do.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

namespace quorvi::test {

/// Pings the window (_NET_WM_PING) from a thread and a connection of its own, from its construction on. What
/// a user does comes to the program on the same way and waits for the same loop, so that the delay of the
/// answer is the delay of a click.
class WindowPing {
  public:
    /// The window's number as xdotool gives it.
    explicit WindowPing(const std::string& window);
    ~WindowPing();
    WindowPing(const WindowPing&) = delete;
    WindowPing& operator=(const WindowPing&) = delete;

    /// Answers so far.
    [[nodiscard]] int answers() const { return m_answers; }
    /// The longest delay of an answer so far, in milliseconds. One that is still missing counts with the time
    /// that it has been waited for.
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
