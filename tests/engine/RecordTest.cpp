// The records that the engine accepts, and their immediate effects.
#include <filesystem>
#include <fstream>

#include "engine/Witness.h"

namespace quorvi::test {
namespace {

bool isTaken(std::span<const std::uint8_t> bytes) {
    Witness witness;
    engine::Engine engine(witness);
    const bool taken = engine.setRecord(bytes, engine::Time(0));
    EXPECT_EQ(taken, engine.running() != engine::Running{});
    EXPECT_EQ(witness.running.size(), taken ? 1U : 0U);
    return taken;
}

TEST(Record, OfTheRightSizeWithAProfileIsTaken) {
    EXPECT_TRUE(isTaken(TestRecord().bytes()));
}

TEST(Record, OfAnotherSizeIsRefused) {
    const TestRecord record;
    EXPECT_FALSE(isTaken({}));
    EXPECT_FALSE(isTaken(record.bytes().first(13231)));
    std::vector<std::uint8_t> longer(record.bytes().begin(), record.bytes().end());
    longer.push_back(0);
    EXPECT_FALSE(isTaken(longer));
}

TEST(Record, OfOneByteValueIsRefused) {
    EXPECT_FALSE(isTaken(std::vector<std::uint8_t>(13232, 0)));
    EXPECT_FALSE(isTaken(std::vector<std::uint8_t>(13232, 0xFF)));
}

TEST(Record, WithAProfileOfAnotherNumberIsRefused) {
    TestRecord record;
    record.profile(2).raw().profiles[1].number = 3;
    EXPECT_FALSE(isTaken(record.bytes()));
}

TEST(Record, ThatIsRefusedLeavesTheOldOne) {
    TestMouse mouse(TestRecord().function(1, 4, 98));
    EXPECT_FALSE(mouse.engine.setRecord({}, mouse.now));
    mouse.press(4);
    ASSERT_EQ(mouse.witness.changes.size(), 1U);
    EXPECT_EQ(mouse.witness.changes[0].code, KEY_HOME);
}

TEST(Record, ThatNamesNoProfileInUseRunsTheFirst) {
    for (const int active : {0, 1, 5, 6, 255}) {
        TestRecord record;
        record.profile(3).active(active, 1).raw().profileNames[0].name.fill(0xFF);
        const TestMouse mouse(record);
        EXPECT_EQ(mouse.engine.running().profile, 3) << active;
    }
}

TEST(Record, ThatNamesNoStageRunsTheFirst) {
    for (const int stage : {0, 3, 255}) {
        TestRecord record;
        record.stages(1, {{400, 800}, {1600, 1600}}).active(1, stage);
        const TestMouse mouse(record);
        EXPECT_EQ(mouse.engine.running(), (engine::Running{1, 1, 400, 800})) << stage;
    }
}

TEST(Record, OfMoreStagesThanThereCanBeHasFive) {
    TestRecord record;
    record.stages(1, {{400, 400}, {500, 500}, {600, 600}, {700, 700}, {800, 800}}).function(1, 4, 16);
    record.raw().profiles[0].stageCount = 255;
    TestMouse mouse(record);
    for (int press = 0; press < 20; ++press) {
        mouse.press(4);
        mouse.release(4);
    }
    EXPECT_EQ(mouse.engine.running(), (engine::Running{1, 5, 800, 800}));
}

TEST(Record, OfEachVectorIsTaken) {
    int taken = 0;
    for (const auto& entry : std::filesystem::directory_iterator(QUORVI_TEST_DATA "/vectors")) {
        if (entry.path().extension() != ".bin")
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<std::uint8_t> bytes{
            std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        EXPECT_TRUE(isTaken(bytes)) << entry.path();
        ++taken;
    }
    EXPECT_GE(taken, 10);
}

} // namespace
} // namespace quorvi::test
