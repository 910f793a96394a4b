#include "macros/MacroRecorder.h"

#include <algorithm>
#include <utility>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/ModifierKeys.h"
#include "keyboard/VirtualKeys.h"
#include "macros/DelayScale.h"
#include "macros/StepCodes.h"
#include "macros/StepMaking.h"
#include "macros/StepReplacement.h"
#include "model/Keys.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

/// The delay assumed before a run's first step.
constexpr double kFirstInterval = 0.05;

} // namespace

void MacroRecorder::start(bool oneStep) {
    m_recording = true;
    m_oneStep = oneStep;
    m_lastModifiers = 0;
    m_foundModifiers.reset();
    m_hasReceivedKey = false;
    m_foundCapsLock.reset();
    m_lastTime.reset();
    m_heldEscape.reset();
    m_place.reset();
}

void MacroRecorder::startAt(std::size_t index) {
    start(false);
    m_place = index;
}

std::size_t MacroRecorder::nextPlace(std::size_t count) const {
    return std::min(m_place.value_or(count), count);
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
    m_hasReceivedKey = true;
    const bool alone = (modifiers & ~capsLockModifier) == 0;
    if (key == escapeKey && goingDown && alone && !m_oneStep)
        holdEscape(target, now);
    else if (key != noKey)
        recordKey(target, goingDown, key, now);
    return true;
}

void MacroRecorder::holdEscape(const RecordingTarget& target, double now) {
    const std::size_t count = target.steps.size();
    const std::size_t place = nextPlace(count);
    m_heldEscape = HeldEscape{
        count, place, place > 0 ? target.steps.dictionary(place - 1).value(keys::delay) : plist::Value()};
    recordKey(target, true, escapeKey, now);
}

void MacroRecorder::takeBackEscape(const plist::Array& steps) {
    const auto held = std::exchange(m_heldEscape, std::nullopt);
    // A full macro did not record the press.
    if (!held || steps.size() != held->stepsBefore + 1)
        return;
    steps.remove(held->place);
    if (held->place > 0)
        steps.dictionary(held->place - 1).set(keys::delay, held->delayBefore);
    if (m_place)
        m_place = held->place;
}

void MacroRecorder::recordModifiers(const RecordingTarget& target, std::uint16_t modifiers, double now) {
    const unsigned changed = modifiers ^ m_lastModifiers;
    for (const ModifierKey& modifier : modifierKeys) {
        if ((changed & modifier.bit) == 0)
            continue;
        if (modifier.bit == capsLockModifier)
            recordCapsLock(target, now);
        else
            recordKey(target, (modifiers & modifier.bit) != 0, modifier.virtualKey, now);
    }
    m_lastModifiers = modifiers;
}

// The lock changed; the key is released again right away.
void MacroRecorder::recordCapsLock(const RecordingTarget& target, double now) {
    const std::size_t count = target.steps.size();
    const std::size_t place = nextPlace(count);
    recordKey(target, true, capsLockKey, now);
    recordKey(target, false, capsLockKey, now);
    const bool wasOn = !m_hasReceivedKey && (m_foundModifiers.value_or(0) & capsLockModifier) != 0;
    if (wasOn && !m_oneStep && target.steps.size() == count + 2)
        m_foundCapsLock = place;
}

void MacroRecorder::findModifiers(std::uint16_t modifiers) {
    if (m_recording && !m_foundModifiers)
        m_foundModifiers = modifiers;
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
    const std::size_t place = nextPlace(steps.size());
    const bool isAtEnd = place == steps.size();
    const bool isFirst = !m_lastTime;
    const std::int32_t delay = delayOfInterval(isFirst ? kFirstInterval : now - *m_lastTime);
    m_lastTime = now;
    // The step before an insertion already has its delay.
    if (place > 0 && (isAtEnd || !isFirst))
        steps.dictionary(place - 1).set(keys::delay, delay);
    steps.insert(place, makeStep(code, argument, isAtEnd ? 0 : delayOfInterval(kFirstInterval)));
    if (m_place)
        m_place = place + 1;
}

} // namespace quorvi
