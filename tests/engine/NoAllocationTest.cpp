// The hot path allocates no memory: counted in operator new, for every function and for random reports.
#include <cstdlib>
#include <new>
#include <random>

#include "engine/Witness.h"
#include "model/Commands.h"

namespace {

std::size_t g_allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    ++g_allocations;
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace quorvi::test {
namespace {

class Counter : public engine::Output {
  public:
    void write(engine::Device, std::span<const input_event> frame) override { events += frame.size(); }
    void runs(const engine::Running&) override {}
    std::size_t events = 0;
};

void wakeFor(engine::Engine& engine, engine::Time& now, std::chrono::microseconds time) {
    const auto end = now + time;
    for (auto next = engine.nextWake(); next && *next <= end; next = engine.nextWake())
        engine.wake(now = *next);
    now = end;
}

TEST(HotPath, CountsWhatIsAllocated) {
    const auto before = g_allocations;
    const auto memory = std::make_unique<int>(1);
    EXPECT_EQ(g_allocations, before + 1);
}

TEST(HotPath, AllocatesNothing) {
    TestRecord record;
    TestRecord other;
    record.macro(0, 0, {1, 4, 17, 20, 1, 5, 129, 17, 20, 128}).stages(1, {{400, 400}, {800, 800}});
    record.stages(2, {{800, 800}});
    Counter counter;
    engine::Engine engine(counter);
    engine::Options options;
    options.acceleration.fill(1.5F);
    engine::Time now{0};
    std::mt19937 random(7);
    const auto before = g_allocations;
    engine.setOptions(options, now);
    for (const Command& command : commandTable()) {
        for (int input = 1; input <= 9; ++input)
            record.function(1, input, command.code, command.code == 49 ? 4 : 0);
        ASSERT_TRUE(engine.setRecord(other.bytes(), now));
        ASSERT_TRUE(engine.setRecord(record.bytes(), now));
        for (int i = 0; i < 200; ++i) {
            const auto value = static_cast<std::int32_t>(random() % 5) - 2;
            const input_event frame[] = {TestMouse::event(EV_KEY, BTN_LEFT + static_cast<int>(random() % 8),
                                             static_cast<int>(random() % 2)),
                TestMouse::event(EV_REL, REL_X, value), TestMouse::event(EV_REL, REL_Y, -value),
                TestMouse::event(EV_REL, REL_WHEEL, value), TestMouse::event(EV_SYN, SYN_REPORT, 0)};
            engine.input(frame, now);
            wakeFor(engine, now, std::chrono::milliseconds(random() % 100));
        }
        engine.releaseAll(now);
    }
    EXPECT_EQ(g_allocations, before);
    EXPECT_GE(counter.events, 10'000U);
}

} // namespace
} // namespace quorvi::test
