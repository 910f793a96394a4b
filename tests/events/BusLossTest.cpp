// A bus that is missing, never answers, or goes away.
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "events/BusFixture.h"

namespace quorvi::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// A variable of the environment with another value for a while.
class Variable {
  public:
    Variable(const char* name, const char* value) : m_name(name) {
        if (const char* earlier = std::getenv(name))
            m_earlier = earlier;
        change(value);
    }
    ~Variable() { change(m_earlier ? m_earlier->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void change(const char* value) const {
        if (value)
            setenv(m_name, value, 1);
        else
            unsetenv(m_name);
    }
    const char* m_name;
    std::optional<std::string> m_earlier;
};

TEST(NoBus, GivesNothingAtOnce) {
    const Variable runtime("XDG_RUNTIME_DIR", "/nonexistent");
    for (const char* address : {static_cast<const char*>(nullptr), "", "nonsense",
             "autolaunch:", "unix:path=/nonexistent/bus", "unix:abstract=quorvi-nobody-listens-here"}) {
        const Variable bus("DBUS_SESSION_BUS_ADDRESS", address);
        const auto start = steady_clock::now();
        EXPECT_EQ(EventBus::connect(), nullptr) << (address ? address : "none");
        EXPECT_LT(steady_clock::now() - start, milliseconds(500));
    }
}

TEST(MuteBus, IsGivenUpInTime) {
    // Accepts connections, as the kernel does for every listening socket, and then says nothing.
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof(sa_family_t)), 0);
    ASSERT_EQ(listen(listener, 4), 0);
    socklen_t length = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
    const std::string name(address.sun_path + 1, length - sizeof(sa_family_t) - 1);
    const Variable bus("DBUS_SESSION_BUS_ADDRESS", ("unix:abstract=" + name).c_str());

    const auto start = steady_clock::now();
    EXPECT_EQ(EventBus::connect(milliseconds(100)), nullptr);
    EXPECT_GE(steady_clock::now() - start, milliseconds(100));
    EXPECT_LT(steady_clock::now() - start, milliseconds(1000));
    close(listener);
}

class BusLoss : public BusTest {
  protected:
    void SetUp() override {
        BusTest::SetUp();
        ASSERT_EQ(bus->ownName("KyvarQuorviPane"), NameResult::owned);
        bus->onDisconnected([this] { ++disconnected; });
    }
    void expectErrorsOnly() {
        EXPECT_EQ(bus->ownName("Other"), NameResult::failed);
        EXPECT_EQ(bus->releaseName("KyvarQuorviPane"), connectionInvalid);
        EXPECT_TRUE(bus->processes().empty());
        EXPECT_TRUE(bus->processesInLine("KyvarQuorviPane").empty());
        ProcessSerialNumber psn;
        EXPECT_EQ(bus->getNextProcess(psn), connectionInvalid);
        std::string name;
        EXPECT_EQ(bus->getProcessInformation({1, 1}, name), connectionInvalid);
        EXPECT_EQ(bus->findProcessByName("KyvarQuorviPane", nullptr), -609);
        EXPECT_EQ(bus->send({1, 1}, makeCommand(kMessagePaneShown, 1)), connectionInvalid);
        EXPECT_EQ(
            bus->send({1, 1}, makeCommand(kMessagePaneShown, 1), SendMode::waitReply), connectionInvalid);
        bus->watchProcess({1, 1});
        bus->unwatchProcess({1, 1});
        EXPECT_FALSE(bus->isConnected());
    }
    int disconnected = 0;
};

TEST_F(BusLoss, IsReportedOnceAndGivesErrorsFromThenOn) {
    privateBus.kill();
    ASSERT_TRUE(waitFor(*bus, [&] { return disconnected > 0; }));
    EXPECT_EQ(bus->fd(), -1);
    EXPECT_EQ(bus->events(), 0);
    EXPECT_FALSE(bus->hasPending());
    expectErrorsOnly();
    bus->process();
    EXPECT_FALSE(bus->wait(milliseconds(0)));
    EXPECT_EQ(disconnected, 1);
}

TEST_F(BusLoss, IsFoundOutByTheNextCall) {
    int told = 0;
    bus->onPending([&] { ++told; });
    privateBus.kill();
    EXPECT_EQ(bus->findProcessByName("KyvarQuorviPane", nullptr), connectionInvalid);
    EXPECT_EQ(disconnected, 0) << "from process() only";
    EXPECT_TRUE(bus->hasPending());
    EXPECT_GT(told, 0);
    expectErrorsOnly();
    bus->process();
    EXPECT_EQ(disconnected, 1);
}

TEST_F(BusLoss, WakesAnEventLoop) {
    privateBus.kill();
    pollfd watched{bus->fd(), bus->events(), 0};
    ASSERT_EQ(poll(&watched, 1, 20'000), 1);
    bus->process();
    EXPECT_EQ(disconnected, 1);
}

TEST_F(BusLoss, DoesNotKillAProcessThatWrites) {
    privateBus.kill();
    // Without protection the second write to a closed connection ends the process with SIGPIPE.
    for (int i = 0; i < 8; ++i)
        (void)bus->send({1, 1}, makeCommand(kMessagePaneShown, 1));
    SUCCEED();
}

TEST_F(BusLoss, EndsTheWaitForAReply) {
    const auto silent = EventBus::connect();
    std::thread killer([&] { privateBus.kill(); });
    EXPECT_NE(bus->send(silent->processSerialNumber(), makeCommand(kMessagePaneShown, 1), SendMode::waitReply,
                  nullptr, std::chrono::seconds(20)),
        noErr);
    killer.join();
    EXPECT_FALSE(bus->isConnected());
}

} // namespace
} // namespace quorvi::test
