// Waiting for a display that went away, or that is not there yet.
#pragma once

#include <filesystem>
#include <functional>

#include "helper/front/Descriptors.h"
#include "platform/events/Timer.h"

namespace quorvi::front {

/// Watches the folder of a display's socket, which wakes nobody while nothing is made in it, and asks for a
/// try to connect when the socket is there. A display makes its socket a moment before it answers, so a try
/// that fails is made again after a while, a few times.
class ReturningSocket {
  public:
    /// Gives back whether it could connect.
    using Connect = std::function<bool()>;

    ReturningSocket(Descriptors& descriptors, std::filesystem::path socket, Connect connect);
    ~ReturningSocket();
    ReturningSocket(const ReturningSocket&) = delete;
    ReturningSocket& operator=(const ReturningSocket&) = delete;

    /// From now on, until a try succeeds. Does nothing where there is no folder to watch.
    void wait();

  private:
    void look();
    void tryAgain();
    void retryLater();
    void stop();

    Descriptors& m_descriptors;
    std::filesystem::path m_socket;
    Connect m_connect;
    int m_inotify = -1;
    Timer m_timer;
    int m_triesLeft = 0;
};

} // namespace quorvi::front
