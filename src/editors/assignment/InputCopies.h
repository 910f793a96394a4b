// Copies inputs' functions from another profile: from the default one, or one of the user's. At least one
// button keeps a primary click, without which the mouse would be unusable. An input is a number, 1 to 9.
#pragma once

#include "plist/Value.h"

namespace quorvi {

/// The input's assignment in the profile; nil if it has none.
[[nodiscard]] plist::Dictionary assignmentIn(const plist::Dictionary& profile, int input);

/// Whether the source has a different function for the input that the profile can copy.
[[nodiscard]] bool canTakeInput(const plist::Dictionary& profile, int input, const plist::Dictionary& source);
/// Copies the input's function from the source. Returns false and does nothing if that is not possible.
[[nodiscard]] bool takeInput(const plist::Dictionary& profile, int input, const plist::Dictionary& source);

/// Whether any input has a different function in the source.
[[nodiscard]] bool canTakeAllInputs(const plist::Dictionary& profile, const plist::Dictionary& source);
/// Copies all inputs' functions from the source. Button 1 gets the primary click if no input has it there.
/// Returns false and does nothing if all are equal.
[[nodiscard]] bool takeAllInputs(const plist::Dictionary& profile, const plist::Dictionary& source);

} // namespace quorvi
