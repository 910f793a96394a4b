#include "widgets/InputMarks.h"

namespace quorvi {

namespace {

bool isInput(int input) {
    return input >= 1 && input <= mouseInputs;
}

} // namespace

void InputMarks::set(int input, Reason reason, bool on) {
    if (!isInput(input))
        return;
    Inputs inputs = m_inputs.at(reason);
    replace(reason, inputs.set(std::size_t(input), on));
}

void InputMarks::setOnly(int input, Reason reason) {
    Inputs inputs;
    if (isInput(input))
        inputs.set(std::size_t(input));
    replace(reason, inputs);
}

void InputMarks::replace(Reason reason, const Inputs& inputs) {
    if (m_inputs.at(reason) == inputs)
        return;
    m_inputs.at(reason) = inputs;
    emit changed();
}

bool InputMarks::isMarked(int input) const {
    if (!isInput(input))
        return false;
    const Reason shown = m_inputs[Pointed].any() ? Pointed : Focused;
    return isPressed(input) || m_inputs.at(shown).test(std::size_t(input));
}

bool InputMarks::isKnown(int input) const {
    return isInput(input) && m_inputs[Known].test(std::size_t(input));
}

bool InputMarks::isPressed(int input) const {
    return isInput(input) &&
           (m_inputs[Pressed] | m_inputs[Reported] | m_inputs[Asked]).test(std::size_t(input));
}

} // namespace quorvi
