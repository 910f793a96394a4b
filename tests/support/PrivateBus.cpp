#include "support/PrivateBus.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <sys/wait.h>

namespace quorvi::test {

namespace {

constexpr char kVariable[] = "DBUS_SESSION_BUS_ADDRESS";

std::string valueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

} // namespace

PrivateBus::PrivateBus(const std::filesystem::path& services) : m_earlierAddress(valueOf(kVariable)) {
    const std::filesystem::path file = m_configuration / "bus.conf";
    std::ofstream(file) << "<busconfig><include>" QUORVI_TEST_DATA "/private-bus.conf</include><servicedir>"
                        << services.native() << "</servicedir></busconfig>\n";
    // A folder without other files: what others make beside the socket would wake who waits for it to come
    // back. Compositors look into it as another user.
    std::filesystem::permissions(m_configuration.path(), std::filesystem::perms(0755));
    startDaemon("unix:path=" + m_configuration.path("bus"));
    setenv(kVariable, m_address.c_str(), 1);
}

void PrivateBus::startDaemon(const std::string& place) {
    m_daemon = std::make_unique<ChildProcess>(std::vector<std::string>{"dbus-daemon", "--nofork",
        "--config-file=" + m_configuration.path("bus.conf"), "--print-address=1", "--address=" + place});
    const auto address = m_daemon->readLine();
    if (!address)
        throw std::runtime_error("dbus-daemon does not start: " + m_daemon->readError());
    m_address = address->substr(0, address->find(",guid="));
}

PrivateBus::~PrivateBus() {
    if (m_earlierAddress.empty())
        unsetenv(kVariable);
    else
        setenv(kVariable, m_earlierAddress.c_str(), 1);
    m_daemon->signal(SIGTERM); // it removes its socket
    goOn();
    (void)m_daemon->wait();
}

void PrivateBus::kill() {
    m_daemon->kill();
}

void PrivateBus::startAnew() {
    startDaemon(m_address);
}

void PrivateBus::pause() {
    m_daemon->signal(SIGSTOP);
    siginfo_t stopped{};
    waitid(P_PID, static_cast<id_t>(m_daemon->pid()), &stopped, WSTOPPED);
}

void PrivateBus::goOn() {
    m_daemon->signal(SIGCONT);
}

} // namespace quorvi::test
