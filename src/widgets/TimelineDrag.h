// A drag of a timeline's edge, from the button press on.
#pragma once

#include <QPoint>

#include <cstdint>
#include <span>

#include "macros/TimelineScale.h"

namespace quorvi {

class TimelineDrag {
  public:
    /// Starts with a press at the point, and at that place of the scale, on the edge of the step, which is
    /// not the first one.
    TimelineDrag(const TimelineScale& scale, std::size_t edge, const QPoint& point, double place)
        : m_scale(scale), m_edge(edge), m_pointer(point), m_pressed(point),
          m_offset(scale.placeOf(edge) - place), m_before(scale.delayOf(edge - 1)) {}

    /// Moves the edge to the pointer's point and place, once the pointer has left the place of the press by a
    /// few pixels. The edge snaps to delays within the reach.
    void moveTo(const QPoint& point, double place, std::span<const std::int32_t> delays, double reach) {
        constexpr int toBegin = 3;
        m_pointer = point;
        m_hasMoved = m_hasMoved || qAbs(point.x() - m_pressed.x()) >= toBegin;
        if (m_hasMoved)
            m_scale.setDelay(step(), m_scale.delayNear(step(), place + m_offset, delays, reach));
    }

    [[nodiscard]] bool hasMoved() const { return m_hasMoved; }
    [[nodiscard]] std::size_t edge() const { return m_edge; }
    /// The step whose delay the edge ends.
    [[nodiscard]] std::size_t step() const { return m_edge - 1; }
    [[nodiscard]] std::int32_t delay() const { return m_scale.delayOf(step()); }
    [[nodiscard]] bool hasChanged() const { return delay() != m_before; }
    [[nodiscard]] const QPoint& pointer() const { return m_pointer; }
    /// The scale from the start of the drag with the new delay: all other lengths stay, and the edge stays
    /// under the pointer.
    [[nodiscard]] const TimelineScale& scale() const { return m_scale; }

  private:
    TimelineScale m_scale;
    std::size_t m_edge;
    QPoint m_pointer;
    QPoint m_pressed;
    double m_offset; ///< from the pointer to the edge
    std::int32_t m_before;
    bool m_hasMoved = false;
};

} // namespace quorvi
