#include "events/Introspection.h"
#include "events/SimulatedMouseInterface.h"
#include "helper/HelperFixture.h"

namespace quorvi::test {
namespace {

using HelperProtocol = HelperTest;

TEST_F(HelperProtocol, RemembersWhetherAMacroIsBeingRecorded) {
    start();
    bool recording = true;
    EXPECT_EQ(getSimulatedMouseRecording(*bus, psn, recording), noErr);
    EXPECT_FALSE(recording);
    EXPECT_EQ(ask(kMessageRecording, 1), 1);
    EXPECT_EQ(getSimulatedMouseRecording(*bus, psn, recording), noErr);
    EXPECT_TRUE(recording);
    EXPECT_EQ(ask(kMessageRecording, 0), 0);
    EXPECT_EQ(getSimulatedMouseRecording(*bus, psn, recording), noErr);
    EXPECT_FALSE(recording);
}

TEST_F(HelperProtocol, RepliesWithTheNumberOfDevicesToAPanelThatIsShown) {
    start();
    EXPECT_EQ(ask(kMessagePaneShown, 1), 1);
    EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    EXPECT_EQ(ask(kMessagePaneShown, 0), 0);
}

TEST_F(HelperProtocol, IgnoresMessagesThatItDoesNotKnow) {
    start();
    EXPECT_EQ(ask(fourCharCode("KyXX"), 1), -1) << "a reply without a value";
    Event empty{kEventClassQuorvi, kEventCommand, {}};
    EXPECT_EQ(bus->send(psn, empty, SendMode::waitReply), noErr);
    Event reversed{kEventClassQuorvi, kEventCommand, {}};
    reversed.putInteger(keyDirectObject, 1);
    reversed.putMagnitude(kKeyCommandParameter, kMessagePaneShown);
    EXPECT_EQ(bus->send(psn, reversed, SendMode::waitReply), noErr);
    EXPECT_EQ(ask(kMessageRecording, 1), 1) << "it goes on";
}

TEST_F(HelperProtocol, HandlesNoOtherEvents) {
    start();
    EXPECT_EQ(
        bus->send(psn, {kEventClassQuorvi, kEventValue, {}}, SendMode::waitReply), errAEEventNotHandled);
    EXPECT_EQ(
        bus->send(psn, {fourCharCode("none"), kEventCommand, {}}, SendMode::waitReply), errAEEventNotHandled);
}

TEST_F(HelperProtocol, OffersTheSimulatedMouseAsDescribed) {
    start();
    EXPECT_EQ(interfaceElement(
                  fileText(QUORVI_EVENTS_SOURCE "/com.kyvar.SimulatedMouse.xml"), "com.kyvar.SimulatedMouse"),
        interfaceElement(introspect(psn, simulatedmouse::kPath), simulatedmouse::kInterface));
}

TEST_F(HelperProtocol, IsAloneInOfferingASimulatedMouse) {
    const Participant other("Other");
    bool attached = true;
    EXPECT_EQ(attachSimulatedMouse(*bus, other.psn()), errAEEventNotHandled);
    EXPECT_EQ(attachSimulatedMouse(*bus, {1, 99999}), procNotFound);
    EXPECT_EQ(getSimulatedMouseAttached(*bus, {1, 99999}, attached), procNotFound);
    EXPECT_TRUE(attached);
}

} // namespace
} // namespace quorvi::test
