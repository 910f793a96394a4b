#include "macros/Timeline.h"

#include <algorithm>

#include "macros/StepCodes.h"
#include "macros/StepPairs.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

TimelineLane laneFor(const std::optional<StepMovement>& movement) {
    if (!movement)
        return {};
    if (movement->isButton)
        return {LaneKind::buttons, 0};
    return {LaneKind::key, movement->key};
}

std::size_t indexOfLane(std::vector<TimelineLane>& lanes, const TimelineLane& wanted) {
    const auto found = std::ranges::find(lanes, wanted);
    const auto index = static_cast<std::size_t>(found - lanes.begin());
    if (found == lanes.end())
        lanes.push_back(wanted);
    return index;
}

int buttonOf(const plist::Dictionary& step) {
    const auto code = static_cast<std::uint32_t>(step.integer(keys::command));
    const auto* button = std::ranges::find(stepcodes::buttonsDown, code);
    return button == stepcodes::buttonsDown.end()
               ? 0
               : static_cast<int>(button - stepcodes::buttonsDown.begin()) + 1;
}

/// How a press without its own release ends.
void endUnreleased(TimelineBar& bar, const Timeline& timeline) {
    const auto begin = timeline.laneOfStep.begin();
    const auto next =
        std::find(begin + static_cast<std::ptrdiff_t>(bar.first) + 1, timeline.laneOfStep.end(), bar.lane);
    bar.kind = BarKind::staysDown;
    if (next == timeline.laneOfStep.end())
        return;
    bar.kind = BarKind::pressedAgain;
    bar.last = static_cast<std::size_t>(next - begin);
}

} // namespace

std::size_t Timeline::barOfStep(std::size_t step) const {
    const auto begins = std::ranges::find(bars, step, &TimelineBar::first);
    const auto found =
        begins != bars.end() ? begins : std::ranges::find(bars, std::optional(step), &TimelineBar::last);
    return static_cast<std::size_t>(found - bars.begin());
}

std::vector<std::size_t> Timeline::stepsOfBar(const TimelineBar& bar) const {
    if (bar.kind == BarKind::held && bar.last)
        return {bar.first, *bar.last};
    return {bar.first};
}

Timeline timelineOf(const plist::Array& steps) {
    Timeline timeline;
    const StepPairs pairs = pairsOf(steps);
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        const plist::Dictionary step = steps.dictionary(index);
        timeline.delays.push_back(std::max(0, step.integer(keys::delay)));
        timeline.laneOfStep.push_back(indexOfLane(timeline.lanes, laneFor(movementOfStep(step))));
    }
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        const auto movement = movementOfStep(steps.dictionary(index));
        TimelineBar bar;
        bar.lane = timeline.laneOfStep[index];
        bar.first = index;
        if (movement && movement->isPress) {
            bar.button = buttonOf(steps.dictionary(index));
            bar.kind = BarKind::held;
            bar.last = pairs[index];
            if (!bar.last)
                endUnreleased(bar, timeline);
        } else if (pairs[index]) {
            continue; // the bar of its press ends here
        } else {
            bar.kind = movement ? BarKind::neverPressed : BarKind::unknown;
        }
        timeline.bars.push_back(bar);
    }
    return timeline;
}

} // namespace quorvi
