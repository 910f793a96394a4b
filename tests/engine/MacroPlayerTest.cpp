// What the player of macros tells of itself. What it plays is in tests/data/engine.
#include "engine/MacroPlayer.h"

#include "engine/UsbKeys.h"
#include "engine/Witness.h"

namespace quorvi::test {
namespace {

using namespace std::chrono_literals;

TEST(MacroPlayer, TellsHowManyStepsHaveGoneOut) {
    Witness output;
    engine::FrameWriter writer(output);
    engine::HeldKeys keys(writer);
    engine::MacroPlayer player(keys, writer);
    // A before 20 ms, its release before 10 ms, a press of B.
    const std::vector<std::uint8_t> steps{1, 4, 17, 20, 0, 4, 17, 10, 1, 5, 17, 5};
    EXPECT_EQ(player.stepsPlayed(7), std::nullopt);
    player.start(7, {.steps = steps, .delay = 3}, 0ms);
    EXPECT_EQ(player.stepsPlayed(7), 0U) << "the macro's own delay";
    player.wake(3ms);
    EXPECT_EQ(player.stepsPlayed(7), 1U);
    player.wake(22ms);
    EXPECT_EQ(player.stepsPlayed(7), 1U);
    player.wake(23ms);
    EXPECT_EQ(player.stepsPlayed(7), 2U);
    player.wake(33ms);
    EXPECT_EQ(player.stepsPlayed(7), 3U);
    EXPECT_EQ(player.stepsPlayed(8), std::nullopt) << "another macro";
    player.wake(38ms);
    EXPECT_EQ(player.stepsPlayed(7), std::nullopt) << "it has ended";
}

TEST(UsbKeys, LeadBackToTheLowestUsage) {
    EXPECT_EQ(engine::usageOfKey(KEY_A), 0x04);
    EXPECT_EQ(engine::usageOfKey(KEY_BACKSLASH), 0x31) << "0x32 is the same key";
    EXPECT_EQ(engine::usageOfKey(KEY_RIGHTALT), 0xE6);
    EXPECT_EQ(engine::usageOfKey(KEY_RESERVED), 0);
    EXPECT_EQ(engine::usageOfKey(BTN_LEFT), 0);
    for (std::uint32_t usage = 0; usage < 0xFF; ++usage)
        if (const auto key = engine::keyOfUsage(usage); key != KEY_RESERVED) {
            EXPECT_EQ(engine::keyOfUsage(engine::usageOfKey(key)), key) << usage;
        }
}

} // namespace
} // namespace quorvi::test
