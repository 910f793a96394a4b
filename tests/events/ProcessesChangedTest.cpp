// Notifications of changes of the process list.

#include "events/BusFixture.h"

namespace quorvi::test {
namespace {

class ProcessesChanged : public BusTest {
  protected:
    void SetUp() override {
        BusTest::SetUp();
        bus->onProcessesChanged([this] {
            ++changes;
            ProcessSerialNumber now;
            found = bus->findProcessByName("Helper", &now) == noErr ? now : ProcessSerialNumber{};
        });
        catchUp();
        changes = 0;
    }
    /// All that the bus has said by now has been taken in.
    void catchUp() {
        ASSERT_EQ(bus->findProcessByName("nobody", nullptr), procNotFound);
        bus->process();
    }

    int changes = 0;
    ProcessSerialNumber found; ///< when it was called last
};

TEST_F(ProcessesChanged, IsSaidWhenOneComesAndWhenItLeaves) {
    Participant helper("Helper");
    EXPECT_TRUE(waitFor(*bus, [&] { return found == helper.psn(); }));
    helper.leave();
    EXPECT_TRUE(waitFor(*bus, [&] { return found == ProcessSerialNumber{}; }));
}

TEST_F(ProcessesChanged, IsSaidWhenANamePassesToAnother) {
    auto first = std::make_unique<Participant>("Helper");
    ASSERT_TRUE(waitFor(*bus, [&] { return found == first->psn(); }));
    const auto second = EventBus::connect();
    ASSERT_EQ(second->ownName("Helper"), NameResult::queued);
    first.reset();
    EXPECT_TRUE(waitFor(*bus, [&] { return found == second->processSerialNumber(); }));
}

TEST_F(ProcessesChanged, IsNotSaidOfProcessesThatAreNotInTheList) {
    (void)EventBus::connect();
    catchUp();
    EXPECT_EQ(changes, 0);
}

TEST_F(ProcessesChanged, IsSaidBeforeWhatTheNewProcessSends) {
    std::vector<ProcessSerialNumber> knownWhenItSent;
    bus->installHandler(
        kEventClassQuorvi, kEventCommand, [&](const Event&, const ProcessSerialNumber&, Event&) {
            knownWhenItSent.push_back(found);
            return noErr;
        });
    const auto helper = EventBus::connect();
    ASSERT_EQ(helper->ownName("Helper"), NameResult::owned);
    ASSERT_EQ(helper->send(bus->processSerialNumber(), makeCommand(kMessageRecording, 1)), noErr);
    ASSERT_TRUE(waitFor(*bus, [&] { return !knownWhenItSent.empty(); }));
    EXPECT_EQ(knownWhenItSent.front(), helper->processSerialNumber());
}

TEST_F(ProcessesChanged, IsSaidWhenTheBusGoes) {
    Participant helper("Helper");
    ASSERT_TRUE(waitFor(*bus, [&] { return found == helper.psn(); }));
    privateBus.kill();
    EXPECT_TRUE(waitFor(*bus, [&] { return found == ProcessSerialNumber{}; }));
    const int before = changes;
    bus->process();
    EXPECT_EQ(changes, before);
}

TEST_F(ProcessesChanged, IsNoLongerSaidWhenNobodyWantsToHear) {
    bus->onProcessesChanged(nullptr);
    const Participant helper("Helper");
    catchUp();
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace quorvi::test
