#include "editors/assignment/InputActions.h"

#include "window/ActionNames.h"

namespace quorvi {

namespace {

constexpr int kWheelUp = 8;
constexpr int kWheelDown = 9;

/// The text for the input, which is one of these.
QString textOf(int input, const QString& button, const QString& wheelUp, const QString& wheelDown) {
    return input == kWheelUp ? wheelUp : input == kWheelDown ? wheelDown : button;
}

} // namespace

std::u16string assignAction(int input, const PanelText& text) {
    return actionName(filledText(
        textOf(input, text("Assign Button ^1"), text("Assign Wheel Up"), text("Assign Wheel Down")),
        {QString::number(input)}));
}

} // namespace quorvi
