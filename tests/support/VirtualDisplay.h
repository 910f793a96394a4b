// An X server of a test's own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace quorvi::test {

/// Whether the program can be found on the path.
[[nodiscard]] bool isInstalled(const std::string& program);

/// Runs Xvfb on a free display number until the test lets go of it. Ends the test program when it does not
/// start.
class VirtualDisplay {
  public:
    explicit VirtualDisplay(const std::vector<std::string>& arguments = {});

    /// What DISPLAY is to be, ":5".
    [[nodiscard]] const std::string& name() const { return m_name; }
    /// Runs setxkbmap with the layouts and variants, separated by commas; false when it fails.
    [[nodiscard]] bool setLayout(const std::string& layout, const std::string& variant = "") const;
    /// Runs xdotool; false when it fails.
    [[nodiscard]] bool xdotool(std::vector<std::string> arguments) const;
    /// Locks the core keyboard's layout group. Gives what the server counts as locked afterwards, -1 when it
    /// cannot be asked. When it returns, every client has been sent what it was to be told.
    int lockGroup(std::uint8_t group) const;
    /// Returns when every client has been sent what it was to be told of so far.
    void settle() const;
    void kill() { m_server->kill(); }

  private:
    std::unique_ptr<ChildProcess> m_server;
    std::string m_name;
};

} // namespace quorvi::test
