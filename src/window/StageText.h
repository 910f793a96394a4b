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
/// A short form of the same, without the unit: "800", or "800 × 1600".
[[nodiscard]] QString stageShortText(const plist::Dictionary& stage, const PanelText& text);
/// "800 DPI", or "800 × 1600 DPI": as in the short form, for where a unit is needed.
[[nodiscard]] QString stageSpokenText(const plist::Dictionary& stage, const PanelText& text);

} // namespace quorvi
