// Random configuration trees that lean toward the edges: numbers beside every limit, names cut inside a
// surrogate pair, macros around the last step byte, missing keys and values of other types.
#pragma once

#include <cstdint>
#include <random>

#include "plist/Value.h"

namespace quorvi::test {

class RandomTrees {
  public:
    explicit RandomTrees(std::uint32_t seed) : m_random(seed) {}

    [[nodiscard]] plist::Dictionary next();
    /// 0 to count - 1.
    [[nodiscard]] std::uint32_t below(std::uint32_t count);

  private:
    [[nodiscard]] bool oneIn(std::uint32_t count) { return below(count) == 0; }
    [[nodiscard]] std::int32_t number();
    [[nodiscard]] std::u16string name();
    [[nodiscard]] plist::Value otherType();
    /// Sets the key; now and then leaves it out or gives it another type.
    void set(const plist::Dictionary& dictionary, const char* key, plist::Value value);

    [[nodiscard]] plist::Dictionary numbers(std::initializer_list<const char*> keys);
    [[nodiscard]] plist::Dictionary step();
    [[nodiscard]] plist::Dictionary macro();
    [[nodiscard]] plist::Dictionary buttons();
    [[nodiscard]] plist::Dictionary profile();
    template <typename Make>
    [[nodiscard]] plist::Array arrayOf(std::uint32_t count, Make make);

    std::mt19937 m_random;
};

} // namespace quorvi::test
