// Waiting for a display or a bus that went away, or that is not there yet.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

#include "events/EventLoop.h"
#include "events/Timer.h"

namespace quorvi {

/// Watches the folder of a server's socket, which wakes nobody while nothing is made in it, and asks for a
/// try to connect when the socket is there. A server makes its socket a moment before it answers, so a try
/// that fails is made again after a while, a few times.
class ReturningSocket {
  public:
    /// Gives back whether it could connect.
    using Connect = std::function<bool()>;

    /// The loop must live longer.
    ReturningSocket(EventLoop& loop, std::filesystem::path socket, Connect connect);
    ~ReturningSocket();
    ReturningSocket(const ReturningSocket&) = delete;
    ReturningSocket& operator=(const ReturningSocket&) = delete;

    /// From now on, until a try succeeds. A socket that is there is tried after the pause, one that is made
    /// meanwhile at once. Does nothing where there is no folder to watch.
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
