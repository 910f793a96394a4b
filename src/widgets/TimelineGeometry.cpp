#include "widgets/TimelineGeometry.h"

#include <QtGlobal>

namespace quorvi {

namespace {

// In heights of letters.
constexpr qreal kTop = 0.15;
constexpr qreal kTightLane = 0.95;
constexpr qreal kGoodLane = 1.4;
constexpr qreal kHighLane = 2.0;
constexpr qreal kFoot = 1.6;
constexpr qreal kMargin = 0.5;

constexpr qreal kMostForNames = 0.3; ///< of the view's width

} // namespace

TimelineGeometry::TimelineGeometry(
    const QSizeF& view, std::size_t lanes, const TimelineLetters& letters, bool mirrored, qreal scrolled)
    : m_view(view), m_lanes(lanes), m_margin(kMargin * letters.height), m_top(kTop * letters.height),
      m_foot(kFoot * letters.height), m_scrolled(scrolled), m_mirrored(mirrored) {
    m_names = lanes == 0 ? 0.0 : qMin(letters.widestName + 2 * m_margin, kMostForNames * view.width());
    const qreal room = view.height() - m_foot - m_top;
    m_lane = qBound(
        kTightLane * letters.height, room / qreal(qMax(std::size_t(1), lanes)), kHighLane * letters.height);
}

qreal TimelineGeometry::leastHeight(std::size_t lanes, qreal letters) {
    return (kTop + qreal(lanes) * kTightLane + kFoot) * letters;
}

qreal TimelineGeometry::goodHeight(std::size_t lanes, qreal letters) {
    return (kTop + qreal(lanes) * kGoodLane + kFoot) * letters;
}

qreal TimelineGeometry::hidden() const {
    return qMax(0.0, m_top + qreal(m_lanes) * m_lane + m_foot - m_view.height());
}

QRectF TimelineGeometry::mirrored(const QRectF& rectangle) const {
    if (!m_mirrored)
        return rectangle;
    return {m_view.width() - rectangle.right(), rectangle.top(), rectangle.width(), rectangle.height()};
}

QRectF TimelineGeometry::lane(std::size_t lane) const {
    return {0, m_top + qreal(lane) * m_lane - m_scrolled, m_view.width(), m_lane};
}

QRectF TimelineGeometry::name(std::size_t lane) const {
    return mirrored({m_margin, this->lane(lane).top(), qMax(0.0, m_names - 1.5 * m_margin), m_lane});
}

QRectF TimelineGeometry::drawing() const {
    return mirrored({m_names, 0, m_view.width() - m_names, m_view.height() - m_foot});
}

QRectF TimelineGeometry::foot() const {
    return mirrored({m_names, m_view.height() - m_foot, m_view.width() - m_names, m_foot});
}

std::optional<std::size_t> TimelineGeometry::laneAt(qreal y) const {
    const qreal down = y + m_scrolled - m_top;
    if (y < 0 || y >= m_view.height() - m_foot || down < 0 || down >= qreal(m_lanes) * m_lane)
        return std::nullopt;
    return std::size_t(down / m_lane);
}

qreal TimelineGeometry::width() const {
    return qMax(0.0, m_view.width() - m_names - 2 * m_margin);
}

qreal TimelineGeometry::xOf(qreal place) const {
    const qreal along = m_names + m_margin + place;
    return m_mirrored ? m_view.width() - along : along;
}

qreal TimelineGeometry::placeOf(qreal x) const {
    return (m_mirrored ? m_view.width() - x : x) - m_names - m_margin;
}

QRectF TimelineGeometry::between(qreal first, qreal last, const QRectF& rectangle) const {
    const qreal left = qMin(xOf(first), xOf(last));
    return {left, rectangle.top(), qAbs(last - first), rectangle.height()};
}

} // namespace quorvi
