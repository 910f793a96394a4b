// Draws a timeline. TimelineGeometry and TimelineScale supply the places.
#pragma once

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

#include "macros/Timeline.h"
#include "macros/TimelineScale.h"
#include "widgets/TimelineGeometry.h"

namespace quorvi {

/// The content of the drawing. References must outlive it.
struct TimelineScene {
    const Timeline& timeline;
    const TimelineScale& scale;
    const TimelineGeometry& geometry;
    const QStringList& laneNames;
    const std::function<QString(std::int32_t)>& delayText; ///< not empty
    const std::vector<int>& selected;                      ///< steps
    std::optional<std::size_t> edge;                       ///< the step whose edge is under the pointer
    std::optional<qreal> played;                           ///< the place of the play head
    QPalette palette;
    QFontMetricsF metrics;
};

/// Draws the timeline in the painter's font.
void drawTimeline(QPainter& painter, const TimelineScene& scene);

/// The rectangle of the bar with that index, in the view.
[[nodiscard]] QRectF rectangleOfBar(const TimelineScene& scene, std::size_t bar);

/// The strip of the view that a play head at the place covers.
[[nodiscard]] QRectF rectangleOfPlayHead(const TimelineGeometry& geometry, qreal place);

/// Draws a value next to the pointer, wholly within the view.
void drawValue(QPainter& painter, const TimelineScene& scene, const QString& value, const QPointF& pointer,
    const QRectF& view);

} // namespace quorvi
