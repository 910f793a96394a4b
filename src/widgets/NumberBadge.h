// A number in a disc: an input of the mouse, on its drawing and beside its pop-up.
#pragma once

#include <QPalette>

class QPainter;
class QPointF;

namespace quorvi {

/// Draws the number around that middle in the palette's current group. Of 0 to 1, "marked" says how far it
/// has the mark's colours in place of the plain ones; numbers fade from the one to the other.
void paintBadge(QPainter& painter, const QPalette& palette, const QPointF& middle, qreal radius, int number,
    qreal marked);

} // namespace quorvi
