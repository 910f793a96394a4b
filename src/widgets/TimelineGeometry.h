// The places of a timeline's lanes in its view, and the conversion from the scale to pixels. In the direction
// of reading, the lanes' names come first, then the lanes; below them is a foot with the delays.
#pragma once

#include <QRectF>

#include <optional>

namespace quorvi {

/// Sizes of the font, from which all others follow: a desktop may scale only its fonts.
struct TimelineLetters {
    qreal height = 0;
    qreal widestName = 0; ///< of a lane
};

class TimelineGeometry {
  public:
    TimelineGeometry() = default;
    /// For a view of that size whose lanes are scrolled by that distance.
    TimelineGeometry(
        const QSizeF& view, std::size_t lanes, const TimelineLetters& letters, bool mirrored, qreal scrolled);

    /// The minimum and the preferred height of a view with that many lanes.
    [[nodiscard]] static qreal leastHeight(std::size_t lanes, qreal letters);
    [[nodiscard]] static qreal goodHeight(std::size_t lanes, qreal letters);

    /// The distance by which the lanes can be scrolled.
    [[nodiscard]] qreal hidden() const;
    [[nodiscard]] qreal laneHeight() const { return m_lane; }
    /// The whole lane with its name; it may be outside the view.
    [[nodiscard]] QRectF lane(std::size_t lane) const;
    /// The lane's name.
    [[nodiscard]] QRectF name(std::size_t lane) const;
    /// The visible area of the lanes, with and without their names.
    [[nodiscard]] QRectF lanes() const { return {0, 0, m_view.width(), m_view.height() - m_foot}; }
    [[nodiscard]] QRectF drawing() const;
    [[nodiscard]] QRectF foot() const;
    [[nodiscard]] std::optional<std::size_t> laneAt(qreal y) const;

    /// The width available for the scale.
    [[nodiscard]] qreal width() const;
    [[nodiscard]] qreal xOf(qreal place) const;
    [[nodiscard]] qreal placeOf(qreal x) const;
    /// The part of the rectangle between two places.
    [[nodiscard]] QRectF between(qreal first, qreal last, const QRectF& rectangle) const;
    [[nodiscard]] bool isMirrored() const { return m_mirrored; }

  private:
    /// The rectangle mirrored for a right-to-left view; unchanged otherwise.
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
