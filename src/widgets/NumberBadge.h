// A number in a disc: an input of the mouse, on its drawing and next to its pop-up.
#pragma once

#include <QPalette>

class QPainter;
class QPointF;

namespace quorvi {

/// Draws the number around that middle in the palette's current group. "marked" blends from the plain
/// colours, 0, to the mark's colours, 1.
void paintBadge(QPainter& painter, const QPalette& palette, const QPointF& middle, qreal radius, int number,
    qreal marked);

} // namespace quorvi
