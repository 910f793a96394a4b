#include "events/BusFixture.h"

namespace quorvi::test {
namespace {

class ProcessWatch : public BusTest {
  protected:
    void SetUp() override {
        BusTest::SetUp();
        bus->onProcessGone([this](const ProcessSerialNumber& psn) { gone.push_back(psn); });
    }
    std::vector<ProcessSerialNumber> gone;
};

TEST_F(ProcessWatch, ReportsAProcessThatLeaves) {
    auto panel = EventBus::connect();
    const auto psn = panel->processSerialNumber();
    bus->watchProcess(psn);
    bus->watchProcess(psn);
    EXPECT_EQ(bus->findProcessByName("none", nullptr), procNotFound);
    bus->process();
    EXPECT_TRUE(gone.empty());
    panel.reset();
    ASSERT_TRUE(waitFor(*bus, [&] { return !gone.empty(); }));
    EXPECT_EQ(gone, std::vector{psn}) << "once";
}

TEST_F(ProcessWatch, ReportsAProcessThatHadLeftBefore) {
    const ProcessSerialNumber never{1, 99999};
    bus->watchProcess(never);
    ASSERT_TRUE(waitFor(*bus, [&] { return !gone.empty(); }));
    EXPECT_EQ(gone, std::vector{never});
}

TEST_F(ProcessWatch, ReportsOnlyTheProcessesThatAreWatched) {
    auto watched = EventBus::connect();
    auto unwatched = EventBus::connect();
    auto stranger = EventBus::connect();
    const auto psn = watched->processSerialNumber();
    bus->watchProcess(psn);
    bus->watchProcess(unwatched->processSerialNumber());
    bus->unwatchProcess(unwatched->processSerialNumber());
    stranger.reset();
    unwatched.reset();
    watched.reset();
    ASSERT_TRUE(waitFor(*bus, [&] { return !gone.empty(); }));
    EXPECT_EQ(gone, std::vector{psn});
}

TEST_F(ProcessWatch, ReportsAProcessBehindItsLastEvent) {
    std::vector<std::string> order;
    bus->installHandler(
        kEventClassQuorvi, kEventCommand, [&](const Event&, const ProcessSerialNumber& sender, Event&) {
            order.emplace_back("event");
            bus->watchProcess(sender);
            return noErr;
        });
    bus->onProcessGone([&](const ProcessSerialNumber&) { order.emplace_back("gone"); });
    auto panel = EventBus::connect();
    EXPECT_EQ(panel->send(bus->processSerialNumber(), makeCommand(kMessagePaneShown, 1)), noErr);
    panel.reset();
    ASSERT_TRUE(waitFor(*bus, [&] { return order.size() == 2; }));
    EXPECT_EQ(order, (std::vector<std::string>{"event", "gone"}));
}

} // namespace
} // namespace quorvi::test
