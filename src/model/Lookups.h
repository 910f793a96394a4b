// Searches over the profiles and macros of the tree. All search from index 0 upward and return the first hit,
// or -1. Strings are compared exactly, case included; a missing string argument is null.
#pragma once

#include <cstdint>
#include <string>

#include "plist/Value.h"

namespace quorvi {

/// Index of the first profile of this name; -1 when there is none or the name is missing.
[[nodiscard]] int KyvarFindProfileInArray(const std::u16string* name, const plist::Array& profiles);

/// Index of the first macro whose "macroid" is the identifier or whose "name" is the name, else -1. A
/// negative identifier searches by name only, a missing name by identifier only.
[[nodiscard]] int KyvarFindMacroInArray(
    std::int32_t macroId, const std::u16string* name, const plist::Array& macros);

/// The lowest identifier from 0 to 69 that no macro has; -1 when there is none or the array is full (12
/// macros).
[[nodiscard]] int KyvarFindUnusedMacroID(const plist::Array& macros);

/// The lowest bit of the mask, 0 to 31, whose button (bit + 1) is assigned to a plain click: command 1 with
/// second parameter 0. -1 when there is none or the profile has no "buttons".
[[nodiscard]] int KyvarFindClickInProfile(const plist::Dictionary& profile, std::uint32_t buttonMask);

} // namespace quorvi
