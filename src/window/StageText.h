// A sensitivity stage in words.
#pragma once

#include <QString>

#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// The format with the numbers in place of its first two "%d", in this order.
[[nodiscard]] QString resolutionText(QString format, int x, int y = 0);
/// "800 DPI", or "X = 800, Y = 1600 DPI" for a stage with separate axes; empty for nil.
[[nodiscard]] QString stageText(const plist::Dictionary& stage, const PanelText& text);
/// The same where there is little room: "800", or "800 × 1600".
[[nodiscard]] QString stageShortText(const plist::Dictionary& stage);

} // namespace quorvi
