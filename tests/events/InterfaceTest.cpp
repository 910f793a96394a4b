// The interface description files match the running objects.
#include "events/BusFixture.h"
#include "events/EventsInterface.h"
#include "events/Introspection.h"

namespace quorvi::test {
namespace {

TEST(InterfaceDescription, OfEventsIsWhatTheRunningObjectOffers) {
    const PrivateBus privateBus;
    const Participant participant("Somebody");
    EXPECT_EQ(interfaceElement(fileText(QUORVI_EVENTS_SOURCE "/com.kyvar.Events.xml"), "com.kyvar.Events"),
        interfaceElement(introspect(participant.psn(), events::kPath), events::kInterface));
}

} // namespace
} // namespace quorvi::test
