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

/// Maps the sheet to an area of that size. The picture is centred and as large as fits, up to
/// metrics::mostMouse.
[[nodiscard]] QTransform sheetOn(const QSizeF& area);

/// The middle of the number of the input, 1 to 9, on the sheet.
[[nodiscard]] QPointF placeOfInput(int input);
/// The outlines of the light around the wheel and of the battery's indicator, on the sheet. The battery's
/// level is unknown, so the indicator is an empty outline.
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

/// Draws the number of the input, 1 to 9, in the painter's font. "pressed" is the remaining part of a fading
/// press, 0 to 1.
void drawBadge(QPainter& painter, const QPalette& palette, int input, BadgeState state, qreal pressed = 0.0);

} // namespace quorvi
