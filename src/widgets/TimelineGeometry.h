// Where the lanes of a timeline are in its view, and what places of the scale are in pixels there: the names
// of the lanes first, in the direction of reading, then the lanes, and below them a foot with the delays.
#pragma once

#include <QRectF>

#include <optional>

namespace quorvi {

/// Lengths of letters, which all others follow: a desktop may scale its fonts alone.
struct TimelineLetters {
    qreal height = 0;
    qreal widestName = 0; ///< of a lane
};

class TimelineGeometry {
  public:
    TimelineGeometry() = default;
    /// In the view of that size, whose lanes are scrolled up by so much.
    TimelineGeometry(
        const QSizeF& view, std::size_t lanes, const TimelineLetters& letters, bool mirrored, qreal scrolled);

    /// The height that a view needs for so many lanes: at the least, and for the eye.
    [[nodiscard]] static qreal leastHeight(std::size_t lanes, qreal letters);
    [[nodiscard]] static qreal goodHeight(std::size_t lanes, qreal letters);

    /// How far the lanes can be scrolled.
    [[nodiscard]] qreal hidden() const;
    [[nodiscard]] qreal laneHeight() const { return m_lane; }
    /// The whole of the lane, with its name; it may lie outside of the view.
    [[nodiscard]] QRectF lane(std::size_t lane) const;
    /// The lane's name.
    [[nodiscard]] QRectF name(std::size_t lane) const;
    /// Where the lanes are seen, with and without their names.
    [[nodiscard]] QRectF lanes() const { return {0, 0, m_view.width(), m_view.height() - m_foot}; }
    [[nodiscard]] QRectF drawing() const;
    [[nodiscard]] QRectF foot() const;
    [[nodiscard]] std::optional<std::size_t> laneAt(qreal y) const;

    /// The width that there is for the scale.
    [[nodiscard]] qreal width() const;
    [[nodiscard]] qreal xOf(qreal place) const;
    [[nodiscard]] qreal placeOf(qreal x) const;
    /// The part of the rectangle between two places.
    [[nodiscard]] QRectF between(qreal first, qreal last, const QRectF& rectangle) const;
    [[nodiscard]] bool isMirrored() const { return m_mirrored; }

  private:
    /// From the left, as if it were not mirrored.
    [[nodiscard]] QRectF mirrored(const QRectF& rectangle) const;

    QSizeF m_view;
    std::size_t m_lanes = 0;
    qreal m_names = 0;
    qreal m_margin = 0;
    qreal m_top = 0; ///< between the frame and the first lane
    qreal m_lane = 0;
    qreal m_foot = 0;
    qreal m_scrolled = 0;
    bool m_mirrored = false;
};

} // namespace quorvi
