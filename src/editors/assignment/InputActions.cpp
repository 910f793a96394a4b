#include "editors/assignment/InputActions.h"

#include "editors/assignment/InputNumbers.h"
#include "window/ActionNames.h"

namespace quorvi {

namespace {

/// The text for the input.
const QString& textFor(int input, const QString& button, const QString& up, const QString& down) {
    return input == wheelUp ? up : input == wheelDown ? down : button;
}

/// The text with the input's number in it.
std::u16string numbered(int input, const QString& text) {
    return actionName(filledText(text, {QString::number(input)}));
}

} // namespace

std::u16string assignAction(int input, const PanelText& text) {
    return numbered(
        input, textFor(input, text("Assign Button ^1"), text("Assign Wheel Up"), text("Assign Wheel Down")));
}

std::u16string resetAction(int input, const PanelText& text) {
    return numbered(
        input, textFor(input, text("Reset Button ^1"), text("Reset Wheel Up"), text("Reset Wheel Down")));
}

std::u16string copyAction(int input, const std::u16string& profile, const PanelText& text) {
    if (input > lastButton)
        return actionName(
            textFor(input, {}, text("Copy Wheel Up from “^1”"), text("Copy Wheel Down from “^1”")), profile);
    const QString button = text("Copy Button ^1 from “^2”");
    return actionName(
        filledText(button, {QString::number(input), nameFor(button, QString::fromStdU16String(profile))}));
}

std::u16string copyAllAction(const std::u16string& profile, const PanelText& text) {
    return actionName(text("Copy All Inputs from “^1”"), profile);
}

} // namespace quorvi
