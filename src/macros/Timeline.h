// A macro as a drawing in time: which key or button is down from which step to which. Independent of pixels
// (TimelineScale.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

enum class LaneKind : std::uint8_t {
    key,
    buttons, ///< all of the mouse's: their releases do not name a button
    other,   ///< steps that are neither
};

struct TimelineLane {
    LaneKind kind = LaneKind::other;
    std::int32_t key = 0; ///< a key's USB usage, otherwise 0
    friend bool operator==(const TimelineLane&, const TimelineLane&) = default;
};

/// How a bar ends, or why it has no length.
enum class BarKind : std::uint8_t {
    held,         ///< from a press to its release
    pressedAgain, ///< from a press to a second press of the same key before the release
    staysDown,    ///< from a press to the end of the macro, because no release follows
    neverPressed, ///< a release alone, without a length
    unknown,      ///< a step that is neither a key's nor a button's, without a length
};

struct TimelineBar {
    std::size_t lane = 0;
    std::size_t first = 0;           ///< the step that it begins at
    std::optional<std::size_t> last; ///< the step that it ends at; std::nullopt if it ends with the macro
    BarKind kind = BarKind::unknown;
    int button = 0; ///< the number of the pressed mouse button, from 1; otherwise 0
    friend bool operator==(const TimelineBar&, const TimelineBar&) = default;
};

struct Timeline {
    std::vector<std::int32_t> delays;    ///< after each step, in milliseconds; 0 for a negative one
    std::vector<std::size_t> laneOfStep; ///< for each step
    std::vector<TimelineLane> lanes;     ///< in the order in which the steps first need them
    std::vector<TimelineBar> bars;       ///< by the step that they begin at
    friend bool operator==(const Timeline&, const Timeline&) = default;

    [[nodiscard]] std::size_t steps() const { return delays.size(); }
    /// The index of the bar that begins at the step, otherwise of the one that ends there. Each existing step
    /// has one.
    [[nodiscard]] std::size_t barOfStep(std::size_t step) const;
    /// The steps at which the bar begins and ends, if they belong together, in order.
    [[nodiscard]] std::vector<std::size_t> stepsOfBar(const TimelineBar& bar) const;
};

/// The drawing of the macro's steps; an empty one for nil.
[[nodiscard]] Timeline timelineOf(const plist::Array& steps);

} // namespace quorvi
