// The displayed text of a change, in the user's language.
#pragma once

#include <string>

#include "engine/Output.h"
#include "helper/display/RunningChanges.h"
#include "platform/Bundle.h"

namespace quorvi {

/// "Profile: Drawing", "800 DPI" or "800 × 400 DPI", by the bundle's string table; UTF-8. Long names
/// are cut, control characters removed, and direction marks isolated.
[[nodiscard]] std::string textOf(
    ChangeShown change, const engine::Running& running, const plist::Array& profiles, const Bundle& bundle);

} // namespace quorvi
