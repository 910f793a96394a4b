#include "window/InputName.h"

namespace quorvi {

namespace {

constexpr int kWheelUp = 8;
constexpr int kWheelDown = 9;

} // namespace

QString inputName(int input, const QString& profile, const PanelText& text) {
    if (input == kWheelUp || input == kWheelDown) {
        const QString wheel =
            input == kWheelUp ? text("Turning the wheel up in “^1”") : text("Turning the wheel down in “^1”");
        return filledText(wheel, {nameFor(wheel, profile)});
    }
    const QString button = text("Button ^1 of “^2”");
    return filledText(button, {QString::number(input), nameFor(button, profile)});
}

} // namespace quorvi
