// The rules that every saved configuration keeps, whatever happened in the window.
#pragma once

#include <QStringList>

#include "plist/Value.h"

namespace quorvi::test {

/// What of the rules does not hold of the tree; empty when all is well.
[[nodiscard]] QStringList brokenRules(const plist::Dictionary& tree);

/// Assignments that play a macro or switch to a profile that the tree does not have.
[[nodiscard]] QStringList danglingAssignments(const plist::Dictionary& tree);

/// Whether the profile can be clicked with: an input of 1 to 7 has the primary click, or input 1 has it with
/// what an earlier function left behind, or there is no input 1 to give it to.
[[nodiscard]] bool hasPrimaryClick(const plist::Dictionary& profile);

/// The value as a file that was written with it gives it back.
[[nodiscard]] plist::Value asWritten(const plist::Value& value);

} // namespace quorvi::test
