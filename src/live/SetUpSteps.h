// Assigns a mouse's buttons to inputs, as the user presses one after the other.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvi {

class SetUpSteps {
  public:
    /// Inputs 1 to 7 are asked for in this order; 8 and 9, the wheel, are fixed.
    static constexpr int inputs = 7;
    using Codes = std::array<std::uint16_t, inputs>; ///< EV_KEY, of inputs from 1; 0 for none

    /// Begins with the inputs' present codes.
    explicit SetUpSteps(const Codes& before) : m_before(before) {}

    /// The input asked for now; 0 if all are done.
    [[nodiscard]] int asked() const { return m_asked <= inputs ? m_asked : 0; }
    /// The input for which the code was pressed since the beginning; 0 for none.
    [[nodiscard]] int inputOf(std::uint16_t code) const;
    [[nodiscard]] bool isPressed(int input) const;

    /// Assigns the code to the input asked for, and advances to the next. Returns false and changes nothing
    /// if the code was pressed for another input, or none is asked for.
    [[nodiscard]] bool take(std::uint16_t code);
    /// Leaves the input unchanged, and advances to the next.
    void skip();
    [[nodiscard]] bool canGoBack() const { return m_asked > 1; }
    /// Asks for the previous input again, and forgets its code.
    void back();

    /// The resulting codes. An unchanged input whose code was pressed for another one has none.
    [[nodiscard]] Codes codes() const;

  private:
    Codes m_before;
    Codes m_pressed{};
    int m_asked = 1;
};

} // namespace quorvi
