#include "macros/StepInsertions.h"

#include <algorithm>
#include <vector>

#include "macros/StepCodes.h"
#include "macros/StepMaking.h"
#include "macros/StepOrders.h"
#include "macros/StepPairs.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "plist/DeepCopy.h"

namespace quorvi {

namespace {

using Items = plist::Array::Items;

constexpr std::size_t kMostSteps = limits::macroSteps;
/// Milliseconds from a press to its release.
constexpr std::int32_t kTapDelay = 50;

/// The first steps that fit, without a press whose release does not fit.
std::vector<std::size_t> thoseWithRoom(const plist::Array& added, std::size_t room) {
    const StepPairs pairs = pairsOf(added);
    std::vector<bool> chosen(pairs.size());
    for (std::size_t index = 0; index < pairs.size(); ++index) {
        if (chosen[index])
            continue; // a release, with its press
        const std::size_t needed = pairs[index] ? 2 : 1;
        if (needed > room)
            break;
        room -= needed;
        chosen[index] = true;
        if (pairs[index])
            chosen[*pairs[index]] = true;
    }
    std::vector<std::size_t> indices;
    for (std::size_t index = 0; index < chosen.size(); ++index)
        if (chosen[index])
            indices.push_back(index);
    return indices;
}

/// The first place, from the wanted one on, where the added steps keep all pairs.
std::size_t placeFor(const Items& items, std::size_t wanted, const Items& added) {
    StepPairs all = pairsOf(items);
    for (const auto& partner : pairsOf(added))
        all.push_back(partner ? std::optional(*partner + items.size()) : std::nullopt);
    Items both = items;
    both.insert(both.end(), added.begin(), added.end());
    StepPlaces behind = unchangedOrder(both.size());
    behind.erase(behind.begin(), behind.begin() + static_cast<std::ptrdiff_t>(items.size()));
    for (std::size_t place = std::min(wanted, items.size()); place < items.size(); ++place)
        if (keepsPairs(all, both, gatheredOrder(both.size(), behind, place)))
            return place;
    return items.size();
}

} // namespace

plist::Array copyOfSteps(const plist::Array& steps, const StepPlaces& indices) {
    auto copy = plist::Array::create();
    for (const std::size_t index : indices)
        copy.append(plist::deepCopy(steps.value(index)));
    return copy;
}

void takeSteps(const plist::Array& steps, const StepPlaces& indices) {
    for (auto index = indices.rbegin(); index != indices.rend(); ++index)
        steps.remove(*index);
}

InsertedSteps insertSteps(const plist::Array& steps, std::size_t place, const plist::Array& added) {
    if (!steps)
        return {.leftOut = added.size()};
    const std::size_t room = kMostSteps - std::min(kMostSteps, steps.size());
    Items chosen;
    for (const std::size_t index : thoseWithRoom(added, room))
        chosen.push_back(added.value(index));
    const std::size_t first = placeFor(steps.items(), place, chosen);
    for (std::size_t index = 0; index < chosen.size(); ++index)
        steps.insert(first + index, chosen[index]);
    return {.first = first, .count = chosen.size(), .leftOut = added.size() - chosen.size()};
}

bool canDuplicateSteps(const plist::Array& steps, const StepPlaces& indices) {
    const std::size_t needed = stepsWithPartners(steps, indices).size();
    return needed > 0 && steps.size() + needed <= kMostSteps;
}

InsertedSteps duplicateSteps(const plist::Array& steps, const StepPlaces& indices) {
    if (!canDuplicateSteps(steps, indices))
        return {};
    const StepPlaces both = stepsWithPartners(steps, indices);
    return insertSteps(steps, both.back() + 1, copyOfSteps(steps, both));
}

InsertedSteps insertTap(
    const plist::Array& steps, std::size_t place, std::uint32_t press, std::uint8_t argument) {
    const auto tap = plist::Array::create();
    tap.append(makeStep(press, argument, kTapDelay));
    tap.append(makeStep(matchingCommand(press, nullptr), argument, 0));
    const InsertedSteps inserted = insertSteps(steps, place, tap);
    if (inserted.count == 0)
        return inserted;
    const std::size_t end = inserted.first + inserted.count;
    const std::size_t waiting = end < steps.size() ? end - 1 : inserted.first - 1;
    // There is no step before the first one: the index has wrapped round.
    if (const auto step = steps.dictionary(waiting); step && step.integer(keys::delay) == 0)
        step.set(keys::delay, kTapDelay);
    return inserted;
}

} // namespace quorvi
