// A list to a panel that is gone reaches nobody; only a monitor of the bus sees whether it is sent.
#include <systemd/sd-bus.h>

#include "helper/HelperFixture.h"
#include "platform/events/ProcessName.h"

namespace quorvi::test {
namespace {

/// Sees the calls of Send that pass the bus.
class Monitor {
  public:
    explicit Monitor(const std::string& address) {
        sd_bus_new(&m_bus);
        sd_bus_set_address(m_bus, address.c_str());
        sd_bus_set_bus_client(m_bus, 1);
        sd_bus_set_monitor(m_bus, 1);
        sd_bus_start(m_bus);
        EXPECT_GE(sd_bus_call_method(m_bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                      "org.freedesktop.DBus.Monitoring", "BecomeMonitor", nullptr, nullptr, "asu", 1,
                      "type='method_call',member='Send'", 0),
            0);
        sd_bus_add_filter(m_bus, nullptr, receive, this);
    }
    ~Monitor() { sd_bus_flush_close_unref(m_bus); }
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

    /// Waits until a call goes to the destination, and gives all destinations up to that one.
    std::vector<std::string> destinationsUntil(const std::string& last) {
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while ((m_destinations.empty() || m_destinations.back() != last) &&
               std::chrono::steady_clock::now() < end)
            if (sd_bus_process(m_bus, nullptr) == 0)
                sd_bus_wait(m_bus, 100'000);
        return m_destinations;
    }

  private:
    static int receive(sd_bus_message* message, void* monitor, sd_bus_error*) {
        const char* destination = sd_bus_message_get_destination(message);
        if (destination && sd_bus_message_is_method_call(message, "com.kyvar.Events", "Send") > 0)
            static_cast<Monitor*>(monitor)->m_destinations.emplace_back(destination);
        return 1;
    }
    sd_bus* m_bus = nullptr;
    std::vector<std::string> m_destinations;
};

class ForgottenPanel : public HelperTest {
  protected:
    void SetUp() override {
        HelperTest::SetUp();
        start();
        EXPECT_EQ(leaving->command(kMessagePaneShown, 1), noErr);
        EXPECT_EQ(staying.command(kMessagePaneShown, 1), noErr);
        EXPECT_EQ(leaving->countAfterLists(1), 1);
        EXPECT_EQ(staying.countAfterLists(1), 1);
    }
    std::vector<std::string> destinationsOfTheNextList() {
        Monitor monitor(privateBus.address());
        EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
        return monitor.destinationsUntil(nameOf(staying));
    }
    static std::string nameOf(const Panel& panel) {
        return events::uniqueName(panel.bus->processSerialNumber());
    }

    std::unique_ptr<Panel> leaving = std::make_unique<Panel>(); // first, and so first in the helper's list
    Panel staying;
};

TEST_F(ForgottenPanel, WasOnTheList) {
    EXPECT_EQ(destinationsOfTheNextList(), (std::vector{nameOf(*leaving), nameOf(staying)}));
}

TEST_F(ForgottenPanel, IsOneThatLeftTheBus) {
    ASSERT_EQ(leaving->bus->ownName("Leaving"), NameResult::owned);
    leaving.reset();
    ASSERT_TRUE(waitFor(*bus, [&] { return bus->findProcessByName("Leaving", nullptr) == procNotFound; }));
    EXPECT_EQ(destinationsOfTheNextList(), std::vector{nameOf(staying)});
}

} // namespace
} // namespace quorvi::test
