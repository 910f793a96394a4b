// A private session bus, so that a test neither sees nor disturbs the user's.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

/// Starts a bus daemon and makes it the session bus of this process and of the programs that it starts, by
/// DBUS_SESSION_BUS_ADDRESS. Restores the earlier one at the end.
class PrivateBus {
  public:
    PrivateBus() : PrivateBus("/nonexistent") {}
    /// One that can start the programs of the service files in that folder.
    explicit PrivateBus(const std::filesystem::path& services);
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Only the place, so that a restarted daemon there counts as the same bus.
    [[nodiscard]] const std::string& address() const { return m_address; }
    /// Ends the daemon by force; every connection is cut, and its socket stays behind.
    void kill();
    /// Starts another one at the place of the one that was killed.
    void startAnew();
    /// Stops the daemon, which does not answer until it continues.
    void pause();
    void goOn();

  private:
    /// At that address.
    void startDaemon(const std::string& place);

    TemporaryFolder m_configuration;
    std::unique_ptr<ChildProcess> m_daemon;
    std::string m_address;
    std::string m_earlierAddress;
};

} // namespace quorvi::test
