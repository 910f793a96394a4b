// File descriptors that come and go, behind one that stays.
#pragma once

#include <functional>
#include <map>
#include <memory>

namespace quorvi::front {

/// For a loop that is told once what it is to watch.
class Descriptors {
  public:
    Descriptors();
    ~Descriptors();
    Descriptors(const Descriptors&) = delete;
    Descriptors& operator=(const Descriptors&) = delete;

    /// Readable when one of them is; serve() is wanted then. -1 when the system has no room for one more.
    [[nodiscard]] int fd() const { return m_epoll; }
    void serve();

    /// Calls the function when the descriptor is readable or its other end is gone, until unwatch(), which
    /// has to come before it is closed.
    void watch(int fd, std::function<void()> readable);
    void unwatch(int fd);

  private:
    using Function = std::function<void()>;

    int m_epoll = -1;
    std::map<int, std::shared_ptr<const Function>> m_functions;
};

} // namespace quorvi::front
