// A process found by its name is found again without a bus query, and the cached answer is never stale.
#include <poll.h>

#include "events/BusFixture.h"

namespace quorvi::test {
namespace {

class KnownProcess : public BusTest {
  protected:
    static constexpr char kName[] = "KyvarQuorviHelper";

    void SetUp() override {
        BusTest::SetUp();
        helper = EventBus::connect();
        ASSERT_EQ(helper->ownName(kName), NameResult::owned);
        becomeKnown();
    }
    void becomeKnown() {
        settle(*helper);
        bus->process();
        ASSERT_EQ(found(), helper->processSerialNumber());
        bus->process();
    }
    /// {0, 0} when it is not found.
    ProcessSerialNumber found() {
        ProcessSerialNumber psn;
        (void)bus->findProcessByName(kName, &psn);
        return psn;
    }
    /// The daemon has done everything that this connection and those before it asked for: it does one thing
    /// after the other.
    static void settle(EventBus& connection) { (void)connection.processes(); }

    std::unique_ptr<EventBus> helper;
};

TEST_F(KnownProcess, IsFoundWithoutAQuestionToTheBus) {
    privateBus.pause();
    EXPECT_EQ(found(), helper->processSerialNumber());
    EXPECT_EQ(bus->findProcessByName(kName, nullptr), noErr);
    EXPECT_FALSE(bus->hasPending());
    EXPECT_EQ(bus->events(), POLLIN) << "and nothing is left to be sent";
}

TEST_F(KnownProcess, IsAskedForInItsOwnLetters) {
    ProcessSerialNumber psn;
    EXPECT_EQ(bus->findProcessByName("kyvarquorvihelper", &psn), noErr);
    EXPECT_EQ(psn, helper->processSerialNumber());
    EXPECT_EQ(bus->findProcessByName("KyvarQuorvi", nullptr), procNotFound);
}

TEST_F(KnownProcess, WakesNobodyWhileTheProcessListStays) {
    auto stranger = EventBus::connect();
    settle(*stranger);
    stranger.reset();
    settle(*helper);
    pollfd watched{bus->fd(), bus->events(), 0};
    EXPECT_EQ(poll(&watched, 1, 0), 0);
}

TEST_F(KnownProcess, WakesNobodyWhoLooksOnlyOnce) {
    const auto once = EventBus::connect();
    ASSERT_EQ(once->findProcessByName(kName, nullptr), noErr);
    once->process();
    ASSERT_EQ(helper->releaseName(kName), noErr);
    settle(*helper);
    pollfd watched{once->fd(), once->events(), 0};
    EXPECT_EQ(poll(&watched, 1, 0), 0);
}

TEST_F(KnownProcess, IsGoneWhenItLeaves) {
    helper.reset();
    EXPECT_TRUE(waitFor(*bus, [&] { return found() == ProcessSerialNumber{}; }));
}

TEST_F(KnownProcess, IsGoneWhenItLetsGoOfItsName) {
    ASSERT_EQ(helper->releaseName(kName), noErr);
    settle(*helper);
    EXPECT_EQ(found(), ProcessSerialNumber{}) << "before the owner came to look at what the bus says";
    bus->process();
    EXPECT_EQ(found(), ProcessSerialNumber{}) << "and after";
}

TEST_F(KnownProcess, IsTheNewOneWhenItWasStartedAgain) {
    helper.reset();
    helper = EventBus::connect();
    ASSERT_TRUE(waitFor(*helper, [&] { return helper->ownName(kName) == NameResult::owned; }));
    settle(*helper);
    EXPECT_EQ(found(), helper->processSerialNumber()) << "before the owner came to look at what the bus says";
    bus->process();
    EXPECT_EQ(found(), helper->processSerialNumber()) << "and after";
    bus->process();
    privateBus.pause();
    EXPECT_EQ(found(), helper->processSerialNumber()) << "and it is known again";
}

TEST_F(KnownProcess, GetsItsMessagesAlsoWhenItWasStartedAgain) {
    helper.reset();
    helper = EventBus::connect();
    int received = 0;
    helper->installHandler(
        kEventClassQuorvi, kEventCommand, [&](const Event&, const ProcessSerialNumber&, Event&) {
            ++received;
            return noErr;
        });
    ASSERT_TRUE(waitFor(*helper, [&] { return helper->ownName(kName) == NameResult::owned; }));
    settle(*helper);
    ASSERT_EQ(bus->send(found(), makeCommand(kMessageSettingsSaved, 0)), noErr);
    bus->process();
    EXPECT_TRUE(waitFor(*helper, [&] { return received == 1; }));
}

TEST_F(KnownProcess, IsTheNextInLineWhenTheNameIsTakenOver) {
    const auto second = EventBus::connect();
    ASSERT_EQ(second->ownName(kName), NameResult::queued);
    becomeKnown();
    ASSERT_EQ(helper->releaseName(kName), noErr);
    settle(*helper);
    EXPECT_EQ(found(), second->processSerialNumber());
}

TEST_F(KnownProcess, GivesWayToOneThatComesBeforeItInOtherLetters) {
    const auto first = std::move(helper);
    helper = EventBus::connect();
    ASSERT_EQ(first->releaseName(kName), noErr);
    ASSERT_EQ(helper->ownName(kName), NameResult::owned);
    becomeKnown();
    ASSERT_EQ(first->ownName("kyvarquorvihelper"), NameResult::owned);
    settle(*first);
    EXPECT_EQ(found(), first->processSerialNumber());
    bus->process();
    EXPECT_EQ(found(), first->processSerialNumber());
}

TEST_F(KnownProcess, IsNotFoundOnABusThatWentAway) {
    int told = 0;
    bus->onPending([&] { ++told; });
    privateBus.kill();
    EXPECT_EQ(bus->findProcessByName(kName, nullptr), connectionInvalid);
    EXPECT_TRUE(bus->hasPending());
    EXPECT_GT(told, 0);
    bus->process();
    EXPECT_EQ(bus->findProcessByName(kName, nullptr), connectionInvalid);
}

} // namespace
} // namespace quorvi::test
