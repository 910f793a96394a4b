// The rule that picks the profile bound to an application.
#pragma once

#include <string>

#include "plist/Value.h"

namespace quorvi {

/// Index of the profile that agrees with the application on most of the four keys "application",
/// "identifier", "signature" and "executable" of its "driver" dictionary; the first of several; -1 when none
/// agrees on any.
///
/// A key counts only if the argument is given (not null) and the profile holds a non-empty string for it; if
/// they then differ, the profile is excluded. With `automaticOnly`, profiles whose "autoswitch" is not true
/// are excluded.
[[nodiscard]] int KyvarMatchProfile(const plist::Array& profiles, bool automaticOnly,
    const std::u16string* application, const std::u16string* identifier, const std::u16string* signature,
    const std::u16string* executable);

} // namespace quorvi
