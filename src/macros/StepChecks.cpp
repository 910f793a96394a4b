#include "macros/StepChecks.h"

#include "macros/StepPairs.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

/// Whether a step after the press releases what it presses.
bool isReleasedLater(const plist::Array& steps, std::size_t press, const StepMovement& pressed) {
    for (std::size_t index = press + 1; index < steps.size(); ++index) {
        const auto movement = movementOfStep(steps.dictionary(index));
        if (movement && !movement->isPress && movement->concernsSameAs(pressed))
            return true;
    }
    return false;
}

/// Whether a step before the release can be its press. Each release of a mouse button belongs to one press,
/// although the first one releases all buttons.
bool isPressedBefore(const plist::Array& steps, std::size_t release, const StepMovement& released) {
    if (!released.isButton)
        return false; // otherwise the two would be a pair
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

std::vector<ProfileInput> inputsThatRunNothing(const plist::Dictionary& tree, std::size_t macro) {
    const plist::Array macros = tree.array(keys::macros);
    const bool isEmpty = macro < macros.size() && macros.dictionary(macro).array(keys::steps).size() == 0;
    return isEmpty ? inputsThatRun(tree, macro) : std::vector<ProfileInput>();
}

} // namespace quorvi
