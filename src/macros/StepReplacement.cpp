#include "macros/StepReplacement.h"

#include "macros/StepCodes.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

/// A step without its delay.
struct Movement {
    std::uint32_t code;
    std::int32_t argument;
};

Movement movementOf(const plist::Dictionary& step) {
    return {static_cast<std::uint32_t>(step.integer(keys::command)), step.integer(keys::argument)};
}

void setMovement(const plist::Dictionary& step, const Movement& movement) {
    step.set(keys::command, static_cast<std::int32_t>(movement.code));
    step.set(keys::argument, movement.argument);
}

bool isPartner(const plist::Dictionary& step, const Movement& wanted) {
    if (!step)
        return false;
    const Movement movement = movementOf(step);
    // The release of a mouse button does not name it, so the press of any button is its partner.
    const bool codeFits = movement.code == wanted.code ||
                          (wanted.code == stepcodes::button1Down && movement.code > stepcodes::buttonsUp &&
                              movement.code <= stepcodes::button5Down);
    return codeFits && movement.argument == wanted.argument;
}

/// The first fitting step after the index, or the last one before it; nil if there is none.
plist::Dictionary partnerOf(
    const plist::Array& steps, std::size_t index, bool behind, const Movement& wanted) {
    // Before the first step the index wraps round and is past the end.
    for (std::size_t at = behind ? index + 1 : index - 1; at < steps.size(); behind ? ++at : --at)
        if (auto step = steps.dictionary(at); isPartner(step, wanted))
            return step;
    return {};
}

} // namespace

void replaceStep(const plist::Array& steps, std::size_t index, std::uint32_t code, std::uint8_t argument) {
    if (code != stepcodes::keyUp && code != stepcodes::keyDown && !stepcodes::isButton(code))
        return;
    const auto step = steps.dictionary(index);
    if (!step)
        return;
    const Movement old = movementOf(step);
    bool oldIsDown = false;
    const Movement wanted{matchingCommand(old.code, &oldIsDown), old.argument};
    const Movement given{code, argument};
    const Movement partner{matchingCommand(code, nullptr), argument};
    setMovement(step, oldIsDown ? given : partner);
    setMovement(partnerOf(steps, index, oldIsDown, wanted), oldIsDown ? partner : given);
}

} // namespace quorvi
