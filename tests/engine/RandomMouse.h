// A randomly used mouse: records, options, reports and waits from a seed.
#pragma once

#include <functional>
#include <random>
#include <vector>

#include "engine/Witness.h"

namespace quorvi::test {

class RandomMouse {
  public:
    explicit RandomMouse(unsigned seed) : m_random(seed) {}

    /// From 0 on, below the number.
    int below(int number) { return static_cast<int>(m_random() % static_cast<unsigned>(number)); }
    bool oneIn(int number) { return below(number) == 0; }

    TestRecord record();
    engine::Options options();
    std::vector<input_event> frame(const engine::Options& options);
    std::vector<std::uint8_t> steps();

  private:
    int value();

    std::mt19937 m_random;
};

} // namespace quorvi::test
