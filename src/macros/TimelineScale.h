// The lengths of a macro's delays in its drawing, and the delay for a length.
//
// A delay of up to a tenth of a second is drawn to scale. People type that fast, so recordings are drawn to
// scale. Above that, every doubling adds the same length, about that of 70 ms. So a delay of 5 s is five
// times as long as one of 100 ms, not fifty times: 20 ms next to it are still visible, and its end can still
// be dragged. The transition is smooth, so nothing jumps when an end is dragged across it.
//
// Before each delay there is a little room for the step itself. Steps without a delay are next to each other,
// in their order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quorvi {

/// In milliseconds. Longer delays are drawn too short, and the drawing must show that.
inline constexpr std::int32_t longestToScale = 100;

[[nodiscard]] constexpr bool isDrawnShorter(std::int32_t delay) {
    return delay > longestToScale;
}

/// Lengths that the drawing chooses, in its unit.
struct TimelineMeasures {
    double room = 5;               ///< of a step
    double longestMillisecond = 2; ///< so that a short macro is not stretched more than needed
};

/// Places count from the first step, which is at 0.
class TimelineScale {
  public:
    TimelineScale() = default;
    /// Fits the delays, in milliseconds and not negative, into the width.
    TimelineScale(std::span<const std::int32_t> delays, double width, const TimelineMeasures& measures);

    [[nodiscard]] std::size_t stepCount() const { return m_delays.size(); }
    /// The place of the step with the index; from the number of steps on, that of the macro's end.
    [[nodiscard]] double placeOf(std::size_t step) const;
    [[nodiscard]] double end() const { return placeOf(m_delays.size()); }
    /// The place after the time since the macro's first step, at most that of its end.
    [[nodiscard]] double placeOfTime(double milliseconds) const;
    /// The step before the place; std::nullopt before the first step and after the end.
    [[nodiscard]] std::optional<std::size_t> stepBefore(double place) const;

    /// The delay of the step that puts the next one at the place: from 0 to limits::longestDelay, and as
    /// round as one unit of width permits there.
    [[nodiscard]] std::int32_t delayAt(std::size_t step, double place) const;
    /// The same, but the delay of these with the nearest place, if that is within the reach.
    [[nodiscard]] std::int32_t delayNear(
        std::size_t step, double place, std::span<const std::int32_t> delays, double reach) const;

    /// Sets the step's delay. All others keep their lengths, even if they no longer fit the width.
    void setDelay(std::size_t step, std::int32_t delay);
    [[nodiscard]] std::int32_t delayOf(std::size_t step) const { return m_delays.at(step); }

  private:
    [[nodiscard]] double placeWithDelay(std::size_t step, double delay) const;
    [[nodiscard]] double exactDelayAt(std::size_t step, double place) const;
    void place();

    std::vector<std::int32_t> m_delays;
    std::vector<double> m_places; ///< of each step, and of the end
    double m_room = 0;
    double m_unit = 0; ///< the length of a millisecond drawn to scale
};

/// The next longer or next shorter of the sorted delays; std::nullopt if there is none.
[[nodiscard]] std::optional<std::int32_t> nextDelay(
    std::span<const std::int32_t> delays, std::int32_t delay, bool longer);

} // namespace quorvi
