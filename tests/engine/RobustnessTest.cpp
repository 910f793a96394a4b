// Jumping times, and invalid events and records.
#include <limits>

#include "engine/RandomMouse.h"

namespace quorvi::test {
namespace {

constexpr engine::Time kEarliest = engine::Time::min();
constexpr engine::Time kLatest = engine::Time::max();

TestRecord busyRecord() {
    TestRecord record;
    record.function(1, 1, 65).function(1, 2, 8).function(1, 3, 4).macro(
        0, 0, {1, 4, 19, 255, 255, 255, 0, 4});
    return record;
}

TEST(Time, OfAnyValueIsTaken) {
    TestMouse mouse(busyRecord());
    for (const auto time : {kLatest, kEarliest, engine::Time(0), kEarliest, kLatest, engine::Time(-1)}) {
        mouse.now = time;
        for (int input = 1; input <= 3; ++input)
            mouse.press(input);
        mouse.engine.wake(time);
        ASSERT_TRUE(mouse.engine.nextWake());
        EXPECT_GE(*mouse.engine.nextWake(), time);
        for (int input = 1; input <= 3; ++input)
            mouse.release(input);
    }
    mouse.engine.releaseAll(kEarliest);
    EXPECT_EQ(mouse.witness.down(), std::vector<int>{});
    EXPECT_FALSE(mouse.engine.nextWake());
}

TEST(Time, ThatStandsStillEndsNothing) {
    TestMouse mouse(busyRecord());
    mouse.press(2);
    for (int i = 0; i < 1000; ++i)
        mouse.engine.wake(mouse.now);
    EXPECT_EQ(mouse.witness.changes.size(), 2U);
}

TEST(Macro, OfTheLongestDelayEndsBehindIt) {
    TestMouse mouse(busyRecord());
    mouse.press(1);
    mouse.wait(std::chrono::milliseconds(0xFFFFFE));
    EXPECT_EQ(mouse.witness.down(), std::vector<int>{KEY_A});
    mouse.wait(std::chrono::milliseconds(1));
    EXPECT_EQ(mouse.witness.down(), std::vector<int>{});
}

TEST(Macro, OfNothingButPressesReleasesAll) {
    std::vector<std::uint8_t> steps;
    for (std::uint8_t usage = 4; steps.size() < 128; ++usage)
        steps.insert(steps.end(), {1, usage});
    TestMouse mouse(TestRecord().function(1, 1, 65).macro(0, 0, steps));
    mouse.press(1);
    // Two of the 64 usages are one key.
    EXPECT_EQ(mouse.witness.changes.size(), 126U);
    EXPECT_EQ(mouse.witness.down(), std::vector<int>{});
}

TEST(Frame, OfManyEventsComesOutInFramesOfTheKernelsSize) {
    TestMouse mouse;
    std::vector<input_event> events;
    for (const auto key : engine::keyboardKeys())
        events.push_back(TestMouse::event(EV_KEY, key, 1));
    mouse.frame(events);
    EXPECT_EQ(mouse.witness.changes.size(), events.size());
    EXPECT_EQ(mouse.witness.frames.size(), (events.size() + 62) / 63);
}

TEST(Frame, WithinAFrameIsOneOfItsOwn) {
    TestMouse mouse;
    mouse.frame({TestMouse::event(EV_REL, REL_X, 1), TestMouse::event(EV_SYN, SYN_REPORT, 0),
        TestMouse::event(EV_REL, REL_X, 2), TestMouse::event(EV_SYN, SYN_DROPPED, 0)});
    ASSERT_EQ(mouse.witness.changes.size(), 2U);
    EXPECT_EQ(mouse.witness.changes[1].value, 2);
}

TEST(Frame, OfNothingIsNothing) {
    TestMouse mouse;
    mouse.frame({});
    EXPECT_TRUE(mouse.witness.frames.empty());
}

TEST(Record, OfAnyBytesNeverLeavesAKeyDown) {
    RandomMouse random(3);
    for (int run = 0; run < 500; ++run) {
        TestMouse mouse;
        TestRecord record = random.record();
        auto* bytes = reinterpret_cast<std::uint8_t*>(&record.raw());
        for (int i = 0; i < 2000; ++i)
            bytes[212 + random.below(13232 - 212)] = static_cast<std::uint8_t>(random.below(256));
        for (int slot = 0; slot < 5; ++slot)
            record.raw().profiles[static_cast<std::size_t>(slot)].number =
                static_cast<std::uint8_t>(slot + 1);
        mouse.set(record);
        for (int input = 1; input <= 7; ++input) {
            mouse.press(input);
            mouse.turn(8 + input % 2, 3);
            mouse.release(input);
        }
        mouse.wait(std::chrono::hours(24 * 365));
        EXPECT_EQ(mouse.witness.down(), std::vector<int>{}) << run;
        EXPECT_FALSE(mouse.engine.isBusy()) << run;
    }
}

} // namespace
} // namespace quorvi::test
