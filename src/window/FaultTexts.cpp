#include "window/FaultTexts.h"

#include "macros/StepPairs.h"
#include "macros/StepText.h"
#include "model/Keys.h"
#include "window/InputName.h"

namespace quorvi {

namespace {

QString releaseWithoutPressText(const QString& number, const plist::Dictionary& step, const PanelText& text) {
    const auto movement = movementOfStep(step);
    if (movement && movement->isButton)
        return filledText(text("Step ^1 releases a mouse button, but none is pressed."), {number});
    return filledText(text("Step ^1 releases ^2, but nothing has pressed it."),
        {number, QString::fromStdU16String(keyNameOfStep(step))});
}

QString pressWithoutReleaseText(
    const QString& number, const plist::Array& steps, const StepCheck& fault, const PanelText& text) {
    QString sentence = filledText(text("Step ^1 presses ^2, but nothing releases it."),
        {number, nameOfPressed(steps.dictionary(fault.index), text)});
    return mendingOf(steps, fault) == Mending::removePress
               ? filledText(text("^1 ^2"), {sentence, text("There is no room for the release.")})
               : sentence;
}

} // namespace

QString faultText(const plist::Array& steps, const StepCheck& fault, const PanelText& text) {
    const QString number = QString::number(fault.index + 1);
    switch (fault.fault) {
    case StepFault::staysDown:
        return pressWithoutReleaseText(number, steps, fault, text);
    case StepFault::neverPressed:
        return releaseWithoutPressText(number, steps.dictionary(fault.index), text);
    case StepFault::delayAfterEnd:
        break;
    }
    return filledText(text("Step ^1 is the last one, so nothing waits for its delay."), {number});
}

QString mendingTitle(Mending mending, const PanelText& text) {
    switch (mending) {
    case Mending::addRelease:
        return text("Add the Missing Release");
    case Mending::removePress:
        return text("Remove the Press");
    case Mending::removeRelease:
        return text("Remove the Release");
    case Mending::removeDelay:
        break;
    }
    return text("Remove the Delay");
}

QString nameOfPressed(const plist::Dictionary& step, const PanelText& text) {
    const int button = buttonOfStep(step);
    return button == 0 ? QString::fromStdU16String(keyNameOfStep(step))
                       : filledText(text("mouse button ^1"), {QString::number(button)});
}

QString emptyMacroText(
    const plist::Dictionary& tree, const std::vector<ProfileInput>& inputs, const PanelText& text) {
    const ProfileInput& first = inputs.front();
    const auto profile = tree.array(keys::profiles).dictionary(first.profile);
    QString sentence = filledText(text("^1 runs this macro, which has no steps yet."),
        {inputName(first.input, QString::fromStdU16String(profile.string(keys::name)), text)});
    if (inputs.size() == 1)
        return sentence;
    return filledText(
        text("^1 ^2"), {sentence, filledText(text("And ^1 more."), {QString::number(inputs.size() - 1)})});
}

} // namespace quorvi
