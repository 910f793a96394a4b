// What an input of one profile takes over from another: from the one by default, or from one of the user's.
// Some button always keeps a primary click, without which nobody could use the mouse. An input is a number, 1
// to 9.
#pragma once

#include "plist/Value.h"

namespace quorvi {

/// What the input does in the profile; nil when the profile does not say it.
[[nodiscard]] plist::Dictionary assignmentIn(const plist::Dictionary& profile, int input);

/// Whether the input does something else in the source, which the profile can take over.
[[nodiscard]] bool canTakeInput(const plist::Dictionary& profile, int input, const plist::Dictionary& source);
/// Gives the input of the profile a copy of what it does in the source. False, and nothing, when it cannot
/// take that over.
[[nodiscard]] bool takeInput(const plist::Dictionary& profile, int input, const plist::Dictionary& source);

/// Whether any input does something else in the source.
[[nodiscard]] bool canTakeAllInputs(const plist::Dictionary& profile, const plist::Dictionary& source);
/// Gives all inputs copies of what they do in the source. Button 1 has the primary click when none has it
/// there. False, and nothing, when they do the same already.
[[nodiscard]] bool takeAllInputs(const plist::Dictionary& profile, const plist::Dictionary& source);

} // namespace quorvi
