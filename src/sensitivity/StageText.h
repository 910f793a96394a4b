// A sensitivity stage in words.
#pragma once

#include <QString>

#include "plist/Value.h"

namespace quorvi {

/// "800 DPI", or "X = 800, Y = 1600 DPI" for a stage with separate axes; empty for nil.
[[nodiscard]] QString stageText(const plist::Dictionary& stage);
/// The same where there is little room: "800", or "800 × 1600".
[[nodiscard]] QString stageShortText(const plist::Dictionary& stage);

} // namespace quorvi
