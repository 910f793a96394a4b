// The sign beside what is probably not meant: a triangle with an exclamation mark.
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace quorvi {

/// Draws the sign in amber with an outline of that colour, which stands out from what is behind; a square
/// place suits it.
void drawWarningSign(QPainter& painter, const QRectF& place, const QColor& outline);

} // namespace quorvi
