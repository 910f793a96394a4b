// Waits for a display or a bus that went away or has not started yet.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

#include "events/EventLoop.h"
#include "events/Timer.h"

namespace quorvi {

/// Watches the folder of a server's socket, without wake-ups while the folder does not change, and tries to
/// connect when the socket exists. A server creates its socket a moment before it answers, so a failed try is
/// repeated a few times.
class ReturningSocket {
  public:
    /// Returns whether it connected.
    using Connect = std::function<bool()>;

    /// The loop must outlive the object.
    ReturningSocket(EventLoop& loop, std::filesystem::path socket, Connect connect);
    ~ReturningSocket();
    ReturningSocket(const ReturningSocket&) = delete;
    ReturningSocket& operator=(const ReturningSocket&) = delete;

    /// Waits from now on until a try succeeds. Tries an existing socket after the pause, and a new one at
    /// once. Does nothing if the folder does not exist.
    void wait(std::chrono::milliseconds pause = std::chrono::milliseconds(100));

  private:
    void look();
    void tryAgain();
    void tryAfter(std::chrono::milliseconds pause);
    void stop();

    EventLoop& m_loop;
    std::filesystem::path m_socket;
    Connect m_connect;
    int m_inotify = -1;
    Timer m_timer;
    int m_triesLeft = 0;
};

} // namespace quorvi
