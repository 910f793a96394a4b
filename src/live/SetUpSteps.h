// Which button of a mouse is which input, as its user says by pressing one after the other.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvi {

class SetUpSteps {
  public:
    /// Inputs 1 to 7 are asked for, in that order: 8 and 9, the wheel, are what they are.
    static constexpr int inputs = 7;
    using Codes = std::array<std::uint16_t, inputs>; ///< EV_KEY, of inputs from 1; 0 for none

    /// Begins anew, with the codes that the inputs have had so far.
    explicit SetUpSteps(const Codes& before) : m_before(before) {}

    /// The input that is asked for now, 0 when all have been.
    [[nodiscard]] int asked() const { return m_asked <= inputs ? m_asked : 0; }
    /// The input that the code was pressed for since the beginning; 0 for none.
    [[nodiscard]] int inputOf(std::uint16_t code) const;
    [[nodiscard]] bool isPressed(int input) const;

    /// Takes the code for the input that is asked for, and goes on to the next. False, and nothing changes,
    /// when it was pressed for another one, and when none is asked for.
    [[nodiscard]] bool take(std::uint16_t code);
    /// Leaves the input as it was, and goes on to the next.
    void skip();
    [[nodiscard]] bool canGoBack() const { return m_asked > 1; }
    /// Asks for the input before once more, as if nothing had been pressed for it.
    void back();

    /// What comes of it. An input that was left as it was, but whose code was pressed for another, has none.
    [[nodiscard]] Codes codes() const;

  private:
    Codes m_before;
    Codes m_pressed{};
    int m_asked = 1;
};

} // namespace quorvi
