// What is shown of a change, in the user's language.
#pragma once

#include <string>

#include "engine/Output.h"
#include "helper/display/RunningChanges.h"
#include "platform/Bundle.h"

namespace quorvi {

/// "Profile: Drawing", "800 DPI" or "X = 800, Y = 400 DPI", by the bundle's string table; UTF-8. A name is
/// cut where it gets long, holds no control characters, and turns no text around it.
[[nodiscard]] std::string textOf(
    ChangeShown change, const engine::Running& running, const plist::Array& profiles, const Bundle& bundle);

} // namespace quorvi
