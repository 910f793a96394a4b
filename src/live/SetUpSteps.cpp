#include "live/SetUpSteps.h"

#include <algorithm>

namespace quorvi {

int SetUpSteps::inputOf(std::uint16_t code) const {
    const auto found = std::ranges::find(m_pressed, code);
    return code == 0 || found == m_pressed.end() ? 0 : static_cast<int>(found - m_pressed.begin()) + 1;
}

bool SetUpSteps::isPressed(int input) const {
    return input >= 1 && input <= inputs && m_pressed.at(static_cast<std::size_t>(input - 1)) != 0;
}

bool SetUpSteps::take(std::uint16_t code) {
    if (code == 0 || asked() == 0 || inputOf(code) != 0)
        return false;
    m_pressed.at(static_cast<std::size_t>(m_asked - 1)) = code;
    ++m_asked;
    return true;
}

void SetUpSteps::skip() {
    if (asked() != 0)
        ++m_asked;
}

void SetUpSteps::back() {
    if (canGoBack())
        m_pressed.at(static_cast<std::size_t>(--m_asked - 1)) = 0;
}

SetUpSteps::Codes SetUpSteps::codes() const {
    Codes codes = m_pressed;
    for (std::size_t input = 0; input < codes.size(); ++input)
        if (codes.at(input) == 0 && inputOf(m_before.at(input)) == 0)
            codes.at(input) = m_before.at(input);
    return codes;
}

} // namespace quorvi
