// A session of a new user: an empty home folder, a bus, and the simulated mouse of the helper that comes to
// run there.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

#include "events/EventBus.h"
#include "host/UserHome.h"
#include "support/EnvironmentVariable.h"
#include "support/PrivateBus.h"

namespace quorvi::test {

/// Where the record of the mouse holds what the tests change.
constexpr int kPollingCodeOffset = 3;        ///< 8, 2 and 1 for 125, 500 and 1000 Hz
constexpr int kFirstProfileLights = 212 + 1; ///< bit 0 the wheel, bit 1 the battery indicator

/// The session of this process and of what it starts, for as long as the object lives. The helper outlives
/// every panel; it ends with the bus, and its staying ends the test program.
class Session {
  public:
    explicit Session(Storage storage = Storage::disk);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    UserHome home;

    /// Runs the bundle's helper without a panel and waits until it can be found.
    void startHelper();
    /// Has the bus start the bundle's helper, as it does for whoever calls it, and waits until it can be
    /// found.
    void activateHelper();
    /// Ends the helper by force, and waits until it has left the bus. The panel starts another one as soon as
    /// it has something to tell it.
    void killHelper();
    /// The ids of the helper processes of this session.
    [[nodiscard]] std::vector<pid_t> helpers() const;
    /// The process is in the process list.
    [[nodiscard]] bool runs(const std::string& processName) const;
    /// Its serial number; one that is not in the list ends the test program.
    [[nodiscard]] ProcessSerialNumber process(const std::string& processName) const;

    // The simulated mouse. A call that fails ends the test program.

    void attach() const;
    void detach() const;
    [[nodiscard]] bool isAttached() const;
    /// The 13232 bytes that the helper last wrote to the mouse; empty while there is no helper.
    [[nodiscard]] std::vector<std::uint8_t> record() const;
    /// The byte at the offset; -1 while there is none.
    [[nodiscard]] int recordByte(int offset) const;
    /// The bytes in which the mouse differs from the settings file, as changes() says them.
    [[nodiscard]] QString recordAgainstFile() const;

    /// Unplugs the mouse and counts the panels that the helper tells.
    [[nodiscard]] int panelsToldOfDetaching() const;

    /// Starts the settings application, as a process, with these arguments and additions to the environment.
    [[nodiscard]] std::unique_ptr<ChildProcess> startSettings(const std::vector<std::string>& arguments = {},
        const std::vector<std::string>& environment = {}) const;

  private:
    [[nodiscard]] ProcessSerialNumber helper() const;

    TemporaryFolder m_services; // before the bus, which looks for services there
    std::unique_ptr<PrivateBus> m_privateBus = std::make_unique<PrivateBus>(m_services.path());
    std::string m_address = m_privateBus->address();
    EnvironmentVariable m_home{"HOME", home.path()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", home.path() + "/.config"};
    EnvironmentVariable m_state{"XDG_STATE_HOME", home.path() + "/.local/state"};
    std::unique_ptr<EventBus> m_bus = EventBus::connect();
    std::unique_ptr<ChildProcess> m_helper;
};

/// The additions to an environment that leave it without any session bus. The folder is an empty one.
[[nodiscard]] std::vector<std::string> withoutSessionBus(const QTemporaryDir& emptyFolder);

/// The bytes in which two records differ, as "offset: old -> new", by commas; "size" when the sizes do.
[[nodiscard]] QString changes(
    const std::vector<std::uint8_t>& before, const std::vector<std::uint8_t>& after);

} // namespace quorvi::test
