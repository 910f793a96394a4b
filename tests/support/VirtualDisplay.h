// An X server for tests.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace quorvi::test {

/// Whether the program can be found on the path.
[[nodiscard]] bool isInstalled(const std::string& program);

/// Runs Xvfb on a free display number as long as this object. Ends the test program if it does not start.
class VirtualDisplay {
  public:
    explicit VirtualDisplay(const std::vector<std::string>& arguments = {});

    /// The value for DISPLAY, ":5".
    [[nodiscard]] const std::string& name() const { return m_name; }
    /// Runs setxkbmap with the layouts and variants, separated by commas; false when it fails.
    [[nodiscard]] bool setLayout(const std::string& layout, const std::string& variant = "") const;
    /// Runs xdotool; false when it fails.
    [[nodiscard]] bool xdotool(std::vector<std::string> arguments) const;
    /// Locks the core keyboard's layout group. Returns the group that the server then reports as locked, or
    /// -1 if it cannot be queried. All clients have then been sent their notifications.
    int lockGroup(std::uint8_t group) const;
    /// Returns when all clients have been sent their notifications.
    void settle() const;
    void kill() { m_server->kill(); }

  private:
    std::unique_ptr<ChildProcess> m_server;
    std::string m_name;
};

} // namespace quorvi::test
