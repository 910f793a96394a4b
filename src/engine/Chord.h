// Keys pressed and released together: modifiers are pressed first and released last.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/Functions.h"
#include "engine/HeldKeys.h"
#include "engine/Options.h"

namespace quorvi::engine {

class Chord {
  public:
    Chord() = default;

    /// The chord of a function of Keys, Letter or SingleKey; empty for any other, and for an unknown key
    /// without modifiers.
    Chord(const Function& function, const ButtonAssignment& assignment, const LetterKeys& letters);

    void press(HeldKeys& keys) const;
    void release(HeldKeys& keys) const;

  private:
    void add(std::uint16_t code);
    void addModifiers(std::uint8_t bits);

    std::array<std::uint16_t, 9> m_codes{}; ///< eight modifiers and a key
    std::size_t m_size = 0;
};

} // namespace quorvi::engine
