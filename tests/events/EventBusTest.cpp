#include <poll.h>

#include "events/BusFixture.h"
#include "events/DeviceList.h"

namespace quorvi::test {
namespace {

using EventBusTest = BusTest;

/// Keeps what arrives at a connection under the class 'KyvQ' and the id.
class Inbox {
  public:
    Inbox(EventBus& bus, FourCharCode id) {
        bus.installHandler(
            kEventClassQuorvi, id, [this](const Event& event, const ProcessSerialNumber& from, Event&) {
                events.push_back(event);
                senders.push_back(from);
                return noErr;
            });
    }
    std::vector<Event> events;
    std::vector<ProcessSerialNumber> senders;
};

TEST_F(EventBusTest, CarriesEventsWithTheirSenderInOrder) {
    const auto panel = EventBus::connect();
    Inbox inbox(*bus, kEventCommand);
    const Event first = makeCommand(kMessagePaneShown, 1);
    const Event second = makeCommand(kMessageSettingsSaved, -2147483647 - 1);
    EXPECT_EQ(panel->send(bus->processSerialNumber(), first), noErr);
    EXPECT_EQ(panel->send(bus->processSerialNumber(), second), noErr);
    ASSERT_TRUE(waitFor(*bus, [&] { return inbox.events.size() == 2; }));
    EXPECT_EQ(inbox.events[0], first);
    EXPECT_EQ(inbox.events[1], second);
    EXPECT_EQ(inbox.senders[0], panel->processSerialNumber());
}

TEST_F(EventBusTest, CarriesEveryKindOfValue) {
    Inbox inbox(*bus, kEventValue);
    const auto other = EventBus::connect();
    Event event{kEventClassQuorvi, kEventValue, {}};
    event.putMagnitude(keyDirectObject, 0xFFFFFFFF);
    event.putInteger(fourCharCode("numb"), -7);
    event.putBytes(fourCharCode("data"), typeProcessSerialNumber, {0, 0, 0, 1, 255, 0, 0, 2});
    event.putBytes(fourCharCode("none"), typeDeviceList, {});
    event.putBytes(fourCharCode("much"), fourCharCode("big "), EventBytes(1 << 20, 0xA5));
    EXPECT_EQ(other->send(bus->processSerialNumber(), event), noErr);
    // A megabyte may not go out in one piece: what is left is sent when the owner processes again.
    ASSERT_TRUE(waitFor(*bus, [&] {
        other->process();
        return inbox.events.size() == 1;
    }));
    EXPECT_EQ(inbox.events[0], event);
}

TEST_F(EventBusTest, WaitsForTheReplyAndGivesItsParameters) {
    const Participant helper("KyvarQuorviHelper", [](EventBus& own) {
        own.installHandler(kEventClassQuorvi, kEventCommand,
            [](const Event& event, const ProcessSerialNumber&, Event& reply) {
                std::int32_t value = 0;
                const Status status = event.getInteger(kKeyCommandParameter, value);
                reply.putInteger(keyDirectObject, value * 2);
                return status;
            });
    });
    Event reply;
    EXPECT_EQ(
        bus->send(helper.psn(), makeCommand(kMessagePaneShown, 21), SendMode::waitReply, &reply), noErr);
    std::int32_t value = 0;
    EXPECT_EQ(reply.getInteger(keyDirectObject, value), noErr);
    EXPECT_EQ(value, 42);
    EXPECT_EQ(bus->send(helper.psn(), makeCommand(kMessagePaneShown, 1), SendMode::waitReply), noErr);
}

TEST_F(EventBusTest, TellsThatAnEventWasNotHandled) {
    const Participant other("Other");
    Event reply{1, 2, {}};
    EXPECT_EQ(bus->send(other.psn(), makeCommand(kMessagePaneShown, 1), SendMode::waitReply, &reply), -1708);
    EXPECT_EQ(reply, (Event{1, 2, {}}));
}

TEST_F(EventBusTest, TellsThatAHandlerFailed) {
    const Participant other("Other", [](EventBus& own) {
        own.installHandler(kEventClassQuorvi, kEventCommand,
            [](const Event&, const ProcessSerialNumber&, Event&) { return paramErr; });
        own.installHandler(kEventClassQuorvi, kEventValue,
            [](const Event&, const ProcessSerialNumber&, Event&) { return errAEEventNotHandled; });
        own.installHandler(
            kEventClassQuorvi, kEventDeviceList, [](const Event&, const ProcessSerialNumber&, Event& reply) {
                reply.parameters.push_back({keyDirectObject, typeMagnitude, EventBytes{}});
                return noErr;
            });
    });
    const auto statusOf = [&](FourCharCode id) {
        return bus->send(other.psn(), {kEventClassQuorvi, id, {}}, SendMode::waitReply);
    };
    EXPECT_EQ(statusOf(kEventCommand), errAEEventFailed);
    EXPECT_EQ(statusOf(kEventValue), errAEEventNotHandled);
    EXPECT_EQ(statusOf(kEventDeviceList), errAEEventFailed) << "the reply cannot be written";
}

TEST_F(EventBusTest, GivesUpOnAProcessThatDoesNotAnswerAfter15Ticks) {
    const auto silent = EventBus::connect();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(
        bus->send(silent->processSerialNumber(), makeCommand(kMessagePaneShown, 1), SendMode::waitReply),
        -1712);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(250));
    EXPECT_LT(waited, std::chrono::milliseconds(1000));
}

TEST_F(EventBusTest, DoesNotWaitForAProcessThatIsNotThere) {
    EXPECT_EQ(bus->send({}, makeCommand(kMessagePaneShown, 1)), procNotFound);
    EXPECT_EQ(bus->send({1, 99999}, makeCommand(kMessagePaneShown, 1), SendMode::waitReply), procNotFound);
}

TEST_F(EventBusTest, RefusesEventsThatItCannotWrite) {
    const auto target = bus->processSerialNumber();
    EXPECT_EQ(bus->send(target, {0, kEventCommand, {}}), paramErr);
    EXPECT_EQ(bus->send(target, {kEventClassQuorvi, 0x80808080, {}}), paramErr);
    EXPECT_EQ(bus->send(target,
                  {kEventClassQuorvi, kEventCommand, {{keyDirectObject, typeMagnitude, EventBytes{1}}}}),
        paramErr);
    EXPECT_EQ(bus->send(target, {kEventClassQuorvi, kEventCommand, {{7, typeMagnitude, std::uint32_t{1}}}}),
        paramErr);
}

TEST_F(EventBusTest, StopsHandlingWhenTheHandlerIsRemoved) {
    Inbox inbox(*bus, kEventCommand);
    int values = 0;
    bus->installHandler(kEventClassQuorvi, kEventValue,
        [&](const Event&, const ProcessSerialNumber&, Event&) { return ++values, noErr; });
    bus->removeHandler(kEventClassQuorvi, kEventCommand);
    bus->removeHandler(kEventClassQuorvi, kEventCommand);
    const auto other = EventBus::connect();
    EXPECT_EQ(other->send(bus->processSerialNumber(), makeCommand(kMessagePaneShown, 1)), noErr);
    EXPECT_EQ(other->send(bus->processSerialNumber(), {kEventClassQuorvi, kEventValue, {}}), noErr);
    ASSERT_TRUE(waitFor(*bus, [&] { return values == 1; }));
    EXPECT_TRUE(inbox.events.empty());
}

TEST_F(EventBusTest, LetsAHandlerRemoveItselfAndServeTheBus) {
    int calls = 0;
    const Inbox inbox(*bus, kEventValue);
    bus->installHandler(
        kEventClassQuorvi, kEventCommand, [&](const Event&, const ProcessSerialNumber&, Event&) {
            ++calls;
            bus->removeHandler(kEventClassQuorvi, kEventCommand);
            // As a dialog's own event loop does.
            EXPECT_TRUE(waitFor(*bus, [&] { return inbox.events.size() == 1; }));
            return noErr;
        });
    const auto other = EventBus::connect();
    EXPECT_EQ(other->send(bus->processSerialNumber(), makeCommand(kMessagePaneShown, 1)), noErr);
    EXPECT_EQ(other->send(bus->processSerialNumber(), {kEventClassQuorvi, kEventValue, {}}), noErr);
    ASSERT_TRUE(waitFor(*bus, [&] { return calls == 1; }));
    EXPECT_EQ(inbox.events.size(), 1u);
}

TEST_F(EventBusTest, SaysWhenACallLeftMessagesBehind) {
    Inbox inbox(*bus, kEventCommand);
    int told = 0;
    bus->onPending([&] { ++told; });
    EXPECT_FALSE(bus->hasPending());
    const auto other = EventBus::connect();
    ASSERT_EQ(other->send(bus->processSerialNumber(), makeCommand(kMessagePaneShown, 1)), noErr);
    ASSERT_EQ(other->ownName("Other"), NameResult::owned) << "the bus has passed the event on by now";

    // The answer that this waits for comes behind the event.
    EXPECT_EQ(bus->findProcessByName("Other", nullptr), noErr);
    EXPECT_TRUE(bus->hasPending());
    EXPECT_GT(told, 0);
    EXPECT_TRUE(inbox.events.empty()) << "handlers run from process() only";
    bus->process();
    EXPECT_EQ(inbox.events.size(), 1u);
    EXPECT_FALSE(bus->hasPending());
}

TEST_F(EventBusTest, MakesItsFileDescriptorReadableForAnEventLoop) {
    Inbox inbox(*bus, kEventCommand);
    const auto other = EventBus::connect();
    ASSERT_EQ(other->send(bus->processSerialNumber(), makeCommand(kMessagePaneShown, 1)), noErr);
    EXPECT_EQ(bus->events(), POLLIN);
    pollfd watched{bus->fd(), bus->events(), 0};
    ASSERT_EQ(poll(&watched, 1, 20'000), 1);
    bus->process();
    EXPECT_EQ(inbox.events.size(), 1u);
}

TEST_F(EventBusTest, ReturnsFromAWaitInWhichNothingComes) {
    EXPECT_FALSE(bus->wait(std::chrono::milliseconds(1)));
    EXPECT_TRUE(bus->isConnected());
}

} // namespace
} // namespace quorvi::test
