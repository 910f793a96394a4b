// More events at once than a process handles in one call.
#include "events/BusFixture.h"

namespace quorvi::test {
namespace {

constexpr int kEvents = 5 * kProcessedAtOnce;

class Flood : public BusTest {
  protected:
    void SetUp() override {
        BusTest::SetUp();
        bus->installHandler(
            kEventClassQuorvi, kEventCommand, [this](const Event& event, const ProcessSerialNumber&, Event&) {
                std::int32_t number = -1;
                EXPECT_EQ(event.getInteger(kKeyCommandParameter, number), noErr);
                numbers.push_back(number);
                return noErr;
            });
        for (int i = 0; i < kEvents; ++i)
            EXPECT_EQ(other->send(bus->processSerialNumber(), makeCommand(kMessageSettingsSaved, i)), noErr);
    }

    std::unique_ptr<EventBus> other = EventBus::connect();
    std::vector<std::int32_t> numbers;
};

TEST_F(Flood, IsTakenInPiecesAndInOrder) {
    // The answers come behind the events, so that all of them wait in this process.
    ASSERT_EQ(other->findProcessByName("nobody", nullptr), procNotFound);
    ASSERT_EQ(bus->findProcessByName("nobody", nullptr), procNotFound);
    std::size_t largestPiece = 0;
    while (bus->hasPending()) {
        const std::size_t before = numbers.size();
        bus->process();
        largestPiece = std::max(largestPiece, numbers.size() - before);
    }
    EXPECT_LE(largestPiece, std::size_t(kProcessedAtOnce));
    ASSERT_EQ(numbers.size(), std::size_t(kEvents));
    for (int i = 0; i < kEvents; ++i)
        EXPECT_EQ(numbers[std::size_t(i)], i);
}

TEST_F(Flood, LosesNothingWhileItIsWaitedFor) {
    ASSERT_TRUE(waitFor(*bus, [&] { return numbers.size() == std::size_t(kEvents); }));
}

} // namespace
} // namespace quorvi::test
