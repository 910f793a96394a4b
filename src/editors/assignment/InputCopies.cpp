#include "editors/assignment/InputCopies.h"

#include <algorithm>
#include <array>

#include "editors/assignment/InputNumbers.h"
#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "plist/DeepCopy.h"

namespace quorvi {

namespace {

/// Ignores the stored menu text: a macro may have been renamed.
bool doesTheSame(const plist::Dictionary& one, const plist::Dictionary& other) {
    constexpr std::array numbers{keys::command, keys::param1, keys::param2};
    return std::ranges::all_of(
        numbers, [&](std::string_view key) { return one.integer(key) == other.integer(key); });
}

/// Whether the source has another function for the input than the profile.
bool differs(const plist::Dictionary& profile, int input, const plist::Dictionary& source) {
    const plist::Dictionary other = assignmentIn(source, input);
    return other && !doesTheSame(assignmentIn(profile, input), other);
}

bool hasClick(const plist::Dictionary& profile, std::uint32_t buttons) {
    return KyvarFindClickInProfile(profile, buttons) >= 0;
}

void copyInput(const plist::Dictionary& profile, int input, const plist::Dictionary& source) {
    if (const plist::Dictionary other = assignmentIn(source, input))
        profile.dictionary(keys::buttons).set(keys::button(input), plist::mutableDeepCopy(other));
}

} // namespace

plist::Dictionary assignmentIn(const plist::Dictionary& profile, int input) {
    return profile.dictionary(keys::buttons).dictionary(keys::button(input));
}

bool canTakeInput(const plist::Dictionary& profile, int input, const plist::Dictionary& source) {
    const bool keepsClick = input > lastButton || hasClick(profile, buttonsBut(input)) ||
                            hasClick(source, allButtons & ~buttonsBut(input));
    return keepsClick && differs(profile, input, source);
}

bool takeInput(const plist::Dictionary& profile, int input, const plist::Dictionary& source) {
    if (!canTakeInput(profile, input, source))
        return false;
    copyInput(profile, input, source);
    return true;
}

bool canTakeAllInputs(const plist::Dictionary& profile, const plist::Dictionary& source) {
    for (int input = 1; input <= limits::buttons; ++input)
        if (differs(profile, input, source))
            return true;
    return false;
}

bool takeAllInputs(const plist::Dictionary& profile, const plist::Dictionary& source) {
    if (!canTakeAllInputs(profile, source))
        return false;
    for (int input = 1; input <= limits::buttons; ++input)
        copyInput(profile, input, source);
    if (!hasClick(profile, allButtons)) {
        const auto click = plist::Dictionary::create();
        click.set(keys::command, commands::click);
        profile.dictionary(keys::buttons).set(keys::button(1), click);
    }
    return true;
}

} // namespace quorvi
