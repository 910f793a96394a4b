// The picture of the mouse itself: its shape, where its inputs are, and how they look.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QTransform>

namespace quorvi {

/// The size that the picture is made in; it is scaled from there.
inline constexpr QSizeF mouseSheet(220.0, 330.0);
/// Of the circle that holds an input's number, on the sheet.
inline constexpr qreal badgeRadius = 11.0;

/// From the sheet to an area of that size, in whose middle the picture stands as large as it fits.
[[nodiscard]] QTransform sheetOn(const QSizeF& area);

/// The middle of the number of the input, 1 to 9, on the sheet.
[[nodiscard]] QPointF placeOfInput(int input);
/// The outline of the light around the wheel and of the battery's indicator, on the sheet.
[[nodiscard]] QRectF wheelLight();
[[nodiscard]] QRectF batteryLight();

/// Draws the mouse without its numbers in the colours of the palette's current group.
void drawMouse(QPainter& painter, const QPalette& palette, bool wheelIsLit, bool batteryIsLit);

enum class BadgeState {
    Plain,
    Known, ///< with a tick beside it
    Marked,
    Pressed
};

/// Draws the number of the input, 1 to 9, in the painter's font.
void drawBadge(QPainter& painter, const QPalette& palette, int input, BadgeState state);

} // namespace quorvi
