#include <random>

#include "engine/Witness.h"

namespace quorvi::test {
namespace {

struct Sum {
    std::int64_t x = 0;
    std::int64_t y = 0;
};

Sum sumOf(const Witness& witness) {
    Sum sum;
    for (const Change& change : witness.changes)
        (change.code == REL_X ? sum.x : sum.y) += change.value;
    return sum;
}

/// Only adds up, for millions of counts.
class Adder : public engine::Output {
  public:
    void write(engine::Device, std::span<const input_event> frame) override {
        for (const auto& event : frame)
            if (event.type == EV_REL)
                (event.code == REL_X ? sum.x : sum.y) += event.value;
    }
    void runs(const engine::Running&) override {}

    Sum sum;
};

TestRecord recordOf(int dpiX, int dpiY) {
    TestRecord record;
    record.stages(1, {{dpiX, dpiY}});
    return record;
}

/// Moves a million times by the function's counts, and returns the sum of the output.
template <typename Counts>
Sum sumOfAMillion(int dpiX, int dpiY, Counts&& counts) {
    Adder adder;
    engine::Engine engine(adder);
    EXPECT_TRUE(engine.setRecord(recordOf(dpiX, dpiY).bytes(), engine::Time(0)));
    for (int i = 0; i < 1'000'000; ++i) {
        const auto [x, y] = counts(i);
        const input_event frame[] = {TestMouse::event(EV_REL, REL_X, x), TestMouse::event(EV_REL, REL_Y, y)};
        engine.input(frame, engine::Time(0));
    }
    return adder.sum;
}

TEST(Motion, LosesNoCountOfAMillion) {
    for (const auto& [dpiX, dpiY] : {std::pair{800, 400}, {1600, 1600}, {6475, 100}, {1575, 925}}) {
        const auto sum = sumOfAMillion(dpiX, dpiY, [](int) { return std::pair(1, -1); });
        EXPECT_EQ(sum.x, std::int64_t{1'000'000} * dpiX / 1600) << dpiX;
        EXPECT_EQ(sum.y, -std::int64_t{1'000'000} * dpiY / 1600) << dpiY;
    }
}

TEST(Motion, EndsWhereItBeganWhateverTheWay) {
    std::mt19937 random(1);
    std::uniform_int_distribution<> any(-40, 40);
    std::pair<int, int> way;
    const auto sum = sumOfAMillion(775, 6475, [&](int i) {
        if (i == 999'999)
            return std::pair(-way.first, -way.second);
        const std::pair counts(any(random), any(random));
        way.first += counts.first;
        way.second += counts.second;
        return counts;
    });
    EXPECT_EQ(sum.x, 0);
    EXPECT_EQ(sum.y, 0);
}

TEST(Motion, HasAnExactSumWithAccelerationToo) {
    TestMouse mouse(recordOf(1600, 1600));
    mouse.options.acceleration[0] = 2.0F;
    mouse.engine.setOptions(mouse.options, mouse.now);
    for (int report = 0; report < 100'000; ++report) {
        mouse.wait(std::chrono::milliseconds(8));
        mouse.move(256, 0);
    }
    // The first report has no speed yet; all others are as fast as the fastest.
    EXPECT_EQ(sumOf(mouse.witness).x, 256 + 99'999 * 512);
}

TEST(Motion, IsAsFastByOneReportOrByEight) {
    std::vector<std::int64_t> ways;
    for (const int perSecond : {125, 1000}) {
        TestMouse mouse(recordOf(1600, 1600));
        mouse.options.acceleration[0] = 0.5F;
        mouse.engine.setOptions(mouse.options, mouse.now);
        for (int report = 0; report < perSecond; ++report) {
            mouse.wait(std::chrono::microseconds(1'000'000 / perSecond));
            mouse.move(16'000 / perSecond, 0);
        }
        ways.push_back(sumOf(mouse.witness).x);
    }
    // Ten inches a second, half of the fastest: two thirds of 16,000 counts, but for the first reports.
    EXPECT_NEAR(static_cast<double>(ways[0]), 10'667, 50);
    EXPECT_NEAR(static_cast<double>(ways[1]), static_cast<double>(ways[0]), 50);
}

TEST(Motion, OfGarbageStaysWithinItsBounds) {
    TestMouse mouse(recordOf(6475, 6475));
    mouse.options.sensorDpi = 100;
    mouse.options.acceleration[0] = 2.0F;
    mouse.engine.setOptions(mouse.options, mouse.now);
    const std::vector<input_event> most(
        100, TestMouse::event(EV_REL, REL_X, std::numeric_limits<int>::max()));
    const std::vector<input_event> least(
        100, TestMouse::event(EV_REL, REL_X, std::numeric_limits<int>::min()));
    for (int i = 0; i < 100; ++i) {
        mouse.frame(most);
        mouse.frame(least);
        mouse.wait(std::chrono::milliseconds(8));
    }
    ASSERT_EQ(mouse.witness.changes.size(), 200U);
    for (std::size_t i = 0; i < 200; ++i)
        EXPECT_EQ(mouse.witness.changes[i].value, i % 2 == 0 ? 2147483647 : -2147483647);
    mouse.move(1, 0);
    EXPECT_LE(mouse.witness.changes.back().value, 130);
}

TEST(Motion, WithoutARecordPassesUnchanged) {
    Witness witness;
    engine::Engine engine(witness);
    const std::vector<input_event> frame{
        TestMouse::event(EV_REL, REL_X, 3), TestMouse::event(EV_REL, REL_WHEEL, 1)};
    engine.input(frame, engine::Time(5));
    const Change x{5, engine::Device::Pointer, EV_REL, REL_X, 3};
    ASSERT_EQ(witness.changes.size(), 3U);
    EXPECT_EQ(witness.changes[0], x);
    EXPECT_TRUE(witness.running.empty());
    EXPECT_EQ(engine.running(), engine::Running{});
}

} // namespace
} // namespace quorvi::test
