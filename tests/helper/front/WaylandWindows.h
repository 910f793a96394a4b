// Test windows on a Wayland compositor.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quorvi::test {

class WaylandWindows {
  public:
    /// The compositor's socket.
    explicit WaylandWindows(const std::string& socket);
    ~WaylandWindows();
    WaylandWindows(const WaylandWindows&) = delete;
    WaylandWindows& operator=(const WaylandWindows&) = delete;

    /// Shows a window of this app_id, which compositors bring to the front since it is new; one of it that
    /// was there goes. Returns when the compositor has taken it.
    void show(const std::string& appId);
    void setTitle(const std::string& appId, const std::string& title);
    void close(const std::string& appId);
    /// Returns when the compositor has done all that was asked.
    void settle() const;

  private:
    class Connection;
    struct Window;
    std::unique_ptr<Connection> m_connection;
    std::map<std::string, std::unique_ptr<Window>> m_windows;
};

} // namespace quorvi::test
