// Draws the mouse: its shape, and the place and look of its inputs.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QTransform>

namespace quorvi {

/// The sheet on which the picture is designed before scaling. It ends at the side buttons and the shadow.
inline constexpr QRectF mouseSheet(9.0, 8.0, 194.0, 318.0);
/// The radius of the circle around an input's number, on the sheet.
inline constexpr qreal badgeRadius = 11.0;

/// Maps the sheet to an area of that size, with the picture centred and as large as it fits, up to
/// metrics::mostMouse.
[[nodiscard]] QTransform sheetOn(const QSizeF& area);

/// The middle of the number of the input, 1 to 9, on the sheet.
[[nodiscard]] QPointF placeOfInput(int input);
/// The outline of the light around the wheel and of the battery's indicator, on the sheet. Nobody tells how
/// full the battery is, so the indicator is an outline, and nothing is drawn in it.
[[nodiscard]] QRectF wheelLight();
[[nodiscard]] QRectF batteryLight();

/// Draws the mouse without its numbers in the colours of the palette's current group.
void drawMouse(QPainter& painter, const QPalette& palette, bool wheelIsLit, bool batteryIsLit);

enum class BadgeState {
    Plain,
    Known, ///< with a tick next to it
    Marked,
    Pressed
};

/// Draws the number of the input, 1 to 9, in the painter's font. Of 0 to 1, "pressed" says how much is left
/// of a press that is over and fades.
void drawBadge(QPainter& painter, const QPalette& palette, int input, BadgeState state, qreal pressed = 0.0);

} // namespace quorvi
