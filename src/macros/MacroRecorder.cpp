#include "macros/MacroRecorder.h"

#include <utility>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/ModifierKeys.h"
#include "keyboard/VirtualKeys.h"
#include "macros/DelayScale.h"
#include "macros/StepCodes.h"
#include "macros/StepReplacement.h"
#include "model/Keys.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

/// What counts as passed before the first step of a run.
constexpr double kFirstInterval = 0.05;

} // namespace

void MacroRecorder::start(bool oneStep) {
    m_recording = true;
    m_oneStep = oneStep;
    m_lastModifiers = 0;
    m_lastTime.reset();
    m_heldEscape.reset();
}

void MacroRecorder::stop() {
    m_recording = false;
    m_heldEscape.reset();
}

std::int32_t MacroRecorder::indexIn(const RecordingTarget& target) const {
    return m_oneStep ? target.row : -1;
}

bool MacroRecorder::receiveKey(
    const RecordingTarget& target, std::uint8_t key, std::uint16_t modifiers, bool goingDown, double now) {
    m_heldEscape.reset();
    if (!target.steps)
        return false;
    recordModifiers(target, modifiers, now);
    const bool alone = (modifiers & ~capsLockModifier) == 0;
    if (key == escapeKey && goingDown && alone && !m_oneStep)
        holdEscape(target, now);
    else if (key != noKey)
        recordKey(target, goingDown, key, now);
    return true;
}

void MacroRecorder::holdEscape(const RecordingTarget& target, double now) {
    const std::size_t count = target.steps.size();
    m_heldEscape =
        HeldEscape{count, count > 0 ? target.steps.dictionary(count - 1).value(keys::delay) : plist::Value()};
    recordKey(target, true, escapeKey, now);
}

void MacroRecorder::takeBackEscape(const plist::Array& steps) {
    const auto held = std::exchange(m_heldEscape, std::nullopt);
    // A macro that was full has not taken the press.
    if (!held || steps.size() != held->stepsBefore + 1)
        return;
    steps.remove(held->stepsBefore);
    if (held->stepsBefore > 0)
        steps.dictionary(held->stepsBefore - 1).set(keys::delay, held->delayBefore);
}

void MacroRecorder::recordModifiers(const RecordingTarget& target, std::uint16_t modifiers, double now) {
    const unsigned changed = modifiers ^ m_lastModifiers;
    for (const ModifierKey& modifier : modifierKeys) {
        if ((changed & modifier.bit) == 0)
            continue;
        if (modifier.bit == capsLockModifier) {
            // The key comes up by itself; what turned is the lock.
            recordKey(target, true, modifier.virtualKey, now);
            recordKey(target, false, modifier.virtualKey, now);
        } else {
            recordKey(target, (modifiers & modifier.bit) != 0, modifier.virtualKey, now);
        }
    }
    m_lastModifiers = modifiers;
}

void MacroRecorder::recordKey(const RecordingTarget& target, bool down, std::uint8_t virtualKey, double now) {
    setStep(target.steps, down ? stepcodes::keyDown : stepcodes::keyUp, AdbToUsbKeycode(virtualKey),
        indexIn(target), now);
}

void MacroRecorder::receiveMouse(const RecordingTarget& target, std::uint32_t code, double now) {
    m_heldEscape.reset();
    setStep(target.steps, code, 0, indexIn(target), now);
}

void MacroRecorder::setStep(
    const plist::Array& steps, std::uint32_t code, std::uint8_t argument, std::int32_t index, double now) {
    if (index >= 0 && static_cast<std::size_t>(index) < steps.size())
        replaceStep(steps, static_cast<std::size_t>(index), code, argument);
    else if (steps.size() < limits::macroSteps)
        appendStep(steps, code, argument, now);
}

void MacroRecorder::appendStep(
    const plist::Array& steps, std::uint32_t code, std::uint8_t argument, double now) {
    const double interval = m_lastTime ? now - *m_lastTime : kFirstInterval;
    m_lastTime = now;
    if (steps.size() > 0)
        steps.dictionary(steps.size() - 1).set(keys::delay, delayOfInterval(interval));
    const auto step = plist::Dictionary::create();
    step.set(keys::command, static_cast<std::int32_t>(code));
    step.set(keys::argument, std::int32_t{argument});
    step.set(keys::delay, 0);
    steps.append(step);
}

void setDelayForAllSteps(const plist::Array& steps, std::int32_t milliseconds) {
    const std::size_t count = steps.size();
    for (std::size_t index = 0; index < count; ++index)
        steps.dictionary(index).set(keys::delay, index + 1 < count ? milliseconds : 0);
}

} // namespace quorvi
