#include "macros/StepChecks.h"

#include "macros/StepPairs.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

/// Whether a step behind the press lets go what it presses.
bool isReleasedLater(const plist::Array& steps, std::size_t press, const Movement& pressed) {
    for (std::size_t index = press + 1; index < steps.size(); ++index) {
        const auto movement = movementOfStep(steps.dictionary(index));
        if (movement && !movement->isPress && movement->concernsSameAs(pressed))
            return true;
    }
    return false;
}

/// Whether something before the release can be what it lets go. Each release of a mouse button is for one
/// press, although the first one lets go of them all.
bool isPressedBefore(const plist::Array& steps, std::size_t release, const Movement& released) {
    if (!released.isButton)
        return false; // or the two would be a pair
    std::ptrdiff_t held = 0;
    for (std::size_t index = 0; index < release; ++index) {
        const auto movement = movementOfStep(steps.dictionary(index));
        if (movement && movement->concernsSameAs(released))
            held += movement->isPress ? 1 : -1;
    }
    return held > 0;
}

} // namespace

std::vector<StepCheck> checkSteps(const plist::Array& steps) {
    std::vector<StepCheck> found;
    const StepPairs pairs = pairsOf(steps);
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        const auto movement = movementOfStep(steps.dictionary(index));
        if (!movement || pairs[index])
            continue;
        if (!movement->isPress && !isPressedBefore(steps, index, *movement))
            found.push_back({index, StepFault::neverPressed});
        if (movement->isPress && !isReleasedLater(steps, index, *movement))
            found.push_back({index, StepFault::staysDown});
    }
    const std::size_t count = steps.size();
    if (count > 0 && steps.dictionary(count - 1).integer(keys::delay) != 0)
        found.push_back({count - 1, StepFault::delayAfterEnd});
    return found;
}

} // namespace quorvi
