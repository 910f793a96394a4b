// Compares the engine with the plain one under random use: output, running state and wake-up time after every
// call. In the end no key is down.
#include <cstdlib>

#include "engine/PlainMouse.h"
#include "engine/RandomMouse.h"

namespace quorvi::test {

namespace {

/// QUORVI_ENGINE_RUNS=1000000 for a long run.
unsigned runs() {
    const char* wanted = std::getenv("QUORVI_ENGINE_RUNS");
    return wanted ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10)) : 10'000;
}

class Pair {
  public:
    explicit Pair(unsigned seed) : m_random(seed) {}

    void act() {
        switch (m_random.below(20)) {
        case 0:
            return setRecord();
        case 1:
            m_options = m_random.options();
            m_engine.setOptions(m_options, m_now);
            return m_plain.setOptions(m_options, m_now.count());
        case 2:
            return m_random.oneIn(3) ? releaseAll() : jump();
        case 3:
        case 4:
        case 5:
        case 6:
        case 7:
            return wait();
        default:
            const auto frame = m_random.frame(m_options);
            m_engine.input(frame, m_now);
            return m_plain.input(frame, m_now.count());
        }
    }

    void releaseAll() {
        m_engine.releaseAll(m_now);
        m_plain.releaseAll(m_now.count());
    }

    [[nodiscard]] bool agree() const {
        EXPECT_EQ(m_witness.changes, m_plain.changes);
        EXPECT_EQ(m_engine.running(), m_plain.running());
        const auto next = m_engine.nextWake();
        EXPECT_EQ(next ? std::optional(next->count()) : std::nullopt, m_plain.nextWake());
        return !testing::Test::HasFailure();
    }

    [[nodiscard]] const Witness& witness() const { return m_witness; }
    [[nodiscard]] bool isBusy() const { return m_engine.isBusy(); }

    /// Output that has been compared is forgotten.
    void forget() {
        m_witness.changes.clear();
        m_witness.frames.clear();
        m_plain.changes.clear();
    }

  private:
    void setRecord() {
        if (m_random.oneIn(2))
            m_record = m_random.record();
        else
            m_record.function(1, 1 + m_random.below(9), 1);
        const bool taken = m_engine.setRecord(m_record.bytes(), m_now);
        EXPECT_EQ(taken, m_plain.setRecord(m_record.bytes(), m_now.count()));
    }

    void wakeBoth() {
        m_engine.wake(m_now);
        m_plain.wake(m_now.count());
    }

    void jump() {
        m_now += std::chrono::microseconds((m_random.below(2000) - 1000) * 1'000'000LL);
        wakeBoth();
    }

    /// To the microsecond, too late, or too early.
    void wait() {
        const auto next = m_engine.nextWake();
        if (next && m_random.oneIn(2))
            m_now = *next;
        else
            m_now += std::chrono::microseconds(m_random.below(150'000));
        wakeBoth();
    }

    RandomMouse m_random;
    TestRecord m_record;
    engine::Options m_options;
    engine::Time m_now{0};
    Witness m_witness;
    engine::Engine m_engine{m_witness};
    PlainMouse m_plain;
};

TEST(Engine, DoesWhatThePlainOneDoes) {
    std::size_t changes = 0;
    for (unsigned seed = 1; seed <= runs(); ++seed) {
        Pair pair(seed);
        for (int act = 0; act < 80; ++act) {
            pair.act();
            ASSERT_TRUE(pair.agree()) << "seed " << seed << ", act " << act;
            changes += pair.witness().changes.size();
            pair.forget();
        }
        pair.releaseAll();
        ASSERT_TRUE(pair.agree()) << "seed " << seed;
        ASSERT_EQ(pair.witness().down(), std::vector<int>{}) << "seed " << seed;
        ASSERT_FALSE(pair.isBusy()) << "seed " << seed;
    }
    EXPECT_GE(changes, runs() * 20);
}

} // namespace
} // namespace quorvi::test
