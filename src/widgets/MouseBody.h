// The mouse as an object: its outline, its material, and light from the upper left. In a high-contrast theme
// it is flat.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QRectF>

namespace quorvi {

/// The lightest and the darkest colour under a line over the mouse.
struct MouseTones {
    QColor lightest;
    QColor darkest;
};
[[nodiscard]] MouseTones mouseTones(const QPalette& palette);

/// The lines around the mouse and its parts.
[[nodiscard]] QColor mouseEdgeColour(const QPalette& palette);

/// The slot of the wheel, whose edge lights up.
inline constexpr QRectF mouseWheel(94, 42, 32, 104);
inline constexpr qreal mouseWheelCorner = 16;

/// The path of a rectangle with round corners.
[[nodiscard]] QPainterPath roundedPath(const QRectF& place, qreal corner);

/// Draws the mouse without lights and numbers, on the sheet of MouseDrawing.h.
void drawMouseBody(QPainter& painter, const QPalette& palette);

} // namespace quorvi
