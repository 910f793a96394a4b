// The sign of a probable mistake: a triangle with an exclamation mark.
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace quorvi {

/// Draws the sign in amber with an outline of that colour, which must contrast with the background. The place
/// should be square.
void drawWarningSign(QPainter& painter, const QRectF& place, const QColor& outline);

} // namespace quorvi
