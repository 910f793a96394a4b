#include "macros/StepMending.h"

#include <algorithm>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/VirtualKeys.h"
#include "macros/StepCodes.h"
#include "macros/StepPairs.h"
#include "model/Keys.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

bool isFull(const plist::Array& steps) {
    return steps.size() >= limits::macroSteps;
}

plist::Dictionary releaseOf(const plist::Dictionary& press) {
    const auto pressed = static_cast<std::uint32_t>(press.integer(keys::command));
    auto release = plist::Dictionary::create();
    release.set(keys::command, static_cast<std::int32_t>(matchingCommand(pressed, nullptr)));
    release.set(keys::argument, press.integer(keys::argument));
    release.set(keys::delay, 0);
    return release;
}

bool isSameMovement(const plist::Dictionary& one, const plist::Dictionary& other) {
    return one.integer(keys::command) == other.integer(keys::command) &&
           one.integer(keys::argument) == other.integer(keys::argument);
}

/// Where the same key is pressed again after the press; the end of the macro if it is not.
std::size_t placeOfRelease(const plist::Array& steps, std::size_t press) {
    std::size_t place = press + 1;
    while (place < steps.size() && !isSameMovement(steps.dictionary(place), steps.dictionary(press)))
        ++place;
    return place;
}

std::size_t addRelease(const plist::Array& steps, std::size_t press) {
    const std::size_t place = placeOfRelease(steps, press);
    steps.insert(place, releaseOf(steps.dictionary(press)));
    return place;
}

void removeLastDelay(const plist::Array& steps) {
    if (steps.size() > 0)
        steps.dictionary(steps.size() - 1).set(keys::delay, 0);
}

std::size_t removeStep(const plist::Array& steps, std::size_t index) {
    steps.remove(index);
    if (index < steps.size())
        return index;
    removeLastDelay(steps);
    return steps.size() > 0 ? steps.size() - 1 : 0;
}

} // namespace

Mending mendingOf(const plist::Array& steps, const StepCheck& fault) {
    switch (fault.fault) {
    case StepFault::neverPressed:
        return Mending::removeRelease;
    case StepFault::delayAfterEnd:
        return Mending::removeDelay;
    case StepFault::staysDown:
        break;
    }
    return isFull(steps) ? Mending::removePress : Mending::addRelease;
}

std::size_t mendStep(const plist::Array& steps, const StepCheck& fault) {
    switch (mendingOf(steps, fault)) {
    case Mending::addRelease:
        return addRelease(steps, fault.index);
    case Mending::removePress:
    case Mending::removeRelease:
        return removeStep(steps, fault.index);
    case Mending::removeDelay:
        break;
    }
    removeLastDelay(steps);
    return fault.index;
}

std::vector<StepCheck> pressesLeftDown(const plist::Array& steps, std::size_t from) {
    std::vector<StepCheck> found = checkSteps(steps);
    std::erase_if(found,
        [from](const StepCheck& check) { return check.fault != StepFault::staysDown || check.index < from; });
    return found;
}

LettingGo letGo(const plist::Array& steps, std::size_t from) {
    LettingGo done;
    for (auto left = pressesLeftDown(steps, from); !left.empty(); left = pressesLeftDown(steps, from)) {
        if (steps.size() + left.size() <= limits::macroSteps) {
            addRelease(steps, left.back().index);
            ++done.added;
        } else {
            removeStep(steps, left.back().index);
            ++done.removed;
        }
    }
    return done;
}

bool removeCapsLock(const plist::Array& steps, std::size_t from) {
    const std::int32_t key = AdbToUsbKeycode(capsLockKey);
    const auto isOfIt = [&](std::size_t index, bool press) {
        const auto movement = movementOfStep(steps.dictionary(index));
        return movement && !movement->isButton && movement->key == key && movement->isPress == press;
    };
    for (std::size_t index = from; index + 1 < steps.size(); ++index) {
        if (!isOfIt(index, true) || !isOfIt(index + 1, false))
            continue;
        steps.remove(index);
        removeStep(steps, index);
        return true;
    }
    return false;
}

} // namespace quorvi
