#include "macros/TimelineScale.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "model/Limits.h"

namespace quorvi {

namespace {

constexpr double kLongestToScale = longestToScale;

/// The length of a delay, in milliseconds that are drawn to scale.
double drawnLength(double delay) {
    return delay <= kLongestToScale ? delay : kLongestToScale * (1 + std::log(delay / kLongestToScale));
}

/// The delay that is drawn with this length.
double delayOfLength(double length) {
    return length <= kLongestToScale ? length : kLongestToScale * std::exp(length / kLongestToScale - 1);
}

/// The largest of 1, 10, 100 … that is not above the number.
double powerOfTenIn(double number) {
    double power = 1;
    while (power * 10 <= number)
        power *= 10;
    return power;
}

} // namespace

TimelineScale::TimelineScale(
    std::span<const std::int32_t> delays, double width, const TimelineMeasures& measures)
    : m_delays(delays.begin(), delays.end()) {
    const auto steps = static_cast<double>(std::max<std::size_t>(1, m_delays.size()));
    m_room = std::max(0.0, std::min(measures.room, width / steps));
    const double length = std::accumulate(m_delays.begin(), m_delays.end(), 0.0,
        [](double sum, std::int32_t delay) { return sum + drawnLength(delay); });
    m_unit = measures.longestMillisecond;
    if (length > 0)
        m_unit = std::clamp((width - steps * m_room) / length, 0.0, m_unit);
    place();
}

void TimelineScale::place() {
    m_places.assign(1, 0.0);
    for (std::size_t step = 0; step < m_delays.size(); ++step)
        m_places.push_back(placeWithDelay(step, m_delays[step]));
}

double TimelineScale::placeWithDelay(std::size_t step, double delay) const {
    return placeOf(step) + m_room + m_unit * drawnLength(delay);
}

double TimelineScale::placeOf(std::size_t step) const {
    return m_places.empty() ? 0.0 : m_places[std::min(step, m_places.size() - 1)];
}

double TimelineScale::placeOfTime(double milliseconds) const {
    if (milliseconds < 0)
        return 0;
    for (std::size_t step = 0; step < m_delays.size(); ++step) {
        if (milliseconds < m_delays[step])
            return placeWithDelay(step, milliseconds);
        milliseconds -= m_delays[step];
    }
    return end();
}

std::optional<std::size_t> TimelineScale::stepBefore(double place) const {
    if (m_delays.empty() || !(place >= 0) || place > end())
        return std::nullopt;
    const auto after = std::upper_bound(m_places.begin(), m_places.end(), place);
    return std::min(static_cast<std::size_t>(after - m_places.begin()) - 1, m_delays.size() - 1);
}

double TimelineScale::exactDelayAt(std::size_t step, double place) const {
    const double length = (place - placeOf(step) - m_room) / m_unit;
    const double most = limits::longestDelay;
    return length > drawnLength(most) ? most : delayOfLength(std::max(0.0, length));
}

std::int32_t TimelineScale::delayAt(std::size_t step, double place) const {
    if (m_unit <= 0) // there is no room for delays
        return delayOf(step);
    const double exact = exactDelayAt(step, place);
    const double round = powerOfTenIn(exactDelayAt(step, place + 1) - exact);
    const double delay = std::round(exact / round) * round;
    return static_cast<std::int32_t>(std::min(delay, static_cast<double>(limits::longestDelay)));
}

std::int32_t TimelineScale::delayNear(
    std::size_t step, double place, std::span<const std::int32_t> delays, double reach) const {
    const auto distance = [&](std::int32_t delay) { return std::abs(placeWithDelay(step, delay) - place); };
    const auto nearest = std::ranges::min_element(delays, {}, distance);
    if (m_unit > 0 && nearest != delays.end() && distance(*nearest) <= reach)
        return *nearest;
    return delayAt(step, place);
}

void TimelineScale::setDelay(std::size_t step, std::int32_t delay) {
    m_delays.at(step) = std::max(0, delay);
    place();
}

std::optional<std::int32_t> nextDelay(std::span<const std::int32_t> delays, std::int32_t delay, bool longer) {
    if (longer) {
        const auto next = std::upper_bound(delays.begin(), delays.end(), delay);
        return next == delays.end() ? std::nullopt : std::optional(*next);
    }
    const auto next = std::lower_bound(delays.begin(), delays.end(), delay);
    return next == delays.begin() ? std::nullopt : std::optional(*(next - 1));
}

} // namespace quorvi
