// Answers that another program of the session makes up: they bear the numbers of calls to others.
#include "events/BusFixture.h"
#include "events/EventBusPrivate.h"
#include "support/Storm.h"

namespace quorvi::test {
namespace {

/// The number of the message that the connection sends last: this one, which is for nobody.
std::uint64_t lastNumber(const EventBus& bus) {
    auto* connection = bus.connection().bus.get();
    sd_bus_message* made = nullptr;
    EXPECT_GE(sd_bus_message_new_signal(connection, &made, "/", "com.example.Nothing", "Happens"), 0);
    const auto signal = events::adopt(made);
    std::uint64_t number = 0;
    EXPECT_GE(sd_bus_send(connection, made, &number), 0);
    return number;
}

/// Whether the answers made up are errors, or else empty replies.
class ForgedAnswers : public BusTest, public testing::WithParamInterface<bool> {
  protected:
    /// One of the next calls gets a forged answer before its own; 1 is the very next one.
    void forgeAnswerTo(std::uint64_t which) {
        Storm forger(bus->processSerialNumber());
        forger.sendUnwantedReply(lastNumber(*bus) + which, GetParam());
        forger.awaitPassedOn();
    }
};

TEST_P(ForgedAnswers, HideNoProcess) {
    const Participant helper("Helper");
    for (const std::uint64_t question : {1U, 2U}) { // for all names, and for the owner of the only one
        forgeAnswerTo(question);
        const auto found = bus->processes();
        ASSERT_EQ(found.size(), 1U) << question;
        EXPECT_EQ(found.front().psn, helper.psn());
    }
}

TEST_P(ForgedAnswers, KeepNobodyOutOfTheLineForAName) {
    const Participant helper("Helper");
    forgeAnswerTo(1);
    EXPECT_EQ(bus->processesInLine("Helper"), std::vector{helper.psn()});
}

TEST_P(ForgedAnswers, KeepNoNameAway) {
    forgeAnswerTo(1);
    EXPECT_EQ(bus->ownName("Helper"), NameResult::owned);
}

TEST_P(ForgedAnswers, AreNotTakenForTheAnswerToAnEvent) {
    const Participant helper("Helper", [](EventBus& served) {
        served.installHandler(
            kEventClassQuorvi, kEventCommand, [](const Event&, const ProcessSerialNumber&, Event& reply) {
                reply.putInteger(keyDirectObject, 7);
                return noErr;
            });
    });
    const auto answer = [&](Event& reply) {
        return bus->send(
            helper.psn(), makeCommand(kMessageRecording, 1), SendMode::waitReply, &reply, kPatience);
    };
    forgeAnswerTo(1);
    Event forged;
    EXPECT_EQ(answer(forged), connectionInvalid);
    Event reply;
    EXPECT_EQ(answer(reply), noErr);
    std::int32_t number = 0;
    EXPECT_EQ(reply.getInteger(keyDirectObject, number), noErr);
    EXPECT_EQ(number, 7);
}

INSTANTIATE_TEST_SUITE_P(Errors, ForgedAnswers, testing::Values(true));
INSTANTIATE_TEST_SUITE_P(EmptyReplies, ForgedAnswers, testing::Values(false));

} // namespace
} // namespace quorvi::test
