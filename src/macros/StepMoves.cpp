#include "macros/StepMoves.h"

#include <algorithm>
#include <utility>

#include "macros/StepOrders.h"
#include "macros/StepPairs.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

using Items = plist::Array::Items;

bool hasPlace(const StepPlaces& chosen, std::size_t index) {
    return std::ranges::binary_search(chosen, index);
}

/// Moves every chosen step past its neighbour; false if one has none.
bool shift(StepOrder& order, const StepPlaces& chosen, MoveDirection direction) {
    const std::size_t count = order.size();
    const auto at = [&](std::size_t place) -> std::size_t& {
        return order[direction == MoveDirection::up ? place : count - 1 - place];
    };
    if (hasPlace(chosen, at(0)))
        return false;
    for (std::size_t place = 1; place < count; ++place)
        if (hasPlace(chosen, at(place)))
            std::swap(at(place), at(place - 1));
    return true;
}

bool standSideBySide(const StepPlaces& places) {
    return places.back() - places.front() + 1 == places.size();
}

bool canBeMoved(const Items& items, const StepPlaces& indices) {
    return !indices.empty() && indices.back() < items.size();
}

/// Whether the steps have no other halves that could be left behind.
bool moveFreely(const StepPairs& pairs, const StepPlaces& indices, MovedStep moved) {
    return moved == MovedStep::alone ||
           std::ranges::none_of(indices, [&](std::size_t index) { return pairs[index].has_value(); });
}

/// The order after the move; std::nullopt if it is not possible.
std::optional<StepOrder> orderOfMove(
    const Items& items, const StepPlaces& indices, MoveDirection direction, MovedStep moved) {
    if (!canBeMoved(items, indices))
        return std::nullopt;
    const StepPairs pairs = pairsOf(items);
    const bool freely = moveFreely(pairs, indices, moved);
    StepOrder order = unchangedOrder(items.size());
    if (shift(order, indices, direction) && (freely || keepsPairs(pairs, items, order)))
        return order;
    const StepPlaces both = withPartners(pairs, indices);
    if (freely || (indices.size() == 1 && !standSideBySide(both)))
        return std::nullopt;
    order = unchangedOrder(items.size());
    // Each time one step less is left to pass.
    while (shift(order, both, direction))
        if (keepsPairs(pairs, items, order))
            return order;
    return std::nullopt;
}

/// The steps with their other halves that are next to them.
StepPlaces withNeighbours(const StepPairs& pairs, const StepPlaces& indices) {
    StepPlaces places = withPartners(pairs, indices);
    std::erase_if(places, [&](std::size_t index) {
        const std::size_t partner = pairs[index].value_or(index);
        return !hasPlace(indices, index) && partner != index + 1 && partner + 1 != index;
    });
    return places;
}

struct Drop {
    StepOrder order;
    StepPlaces carried;
};

std::optional<Drop> orderOfDrop(
    const Items& items, const StepPlaces& indices, std::size_t place, MovedStep moved) {
    if (!canBeMoved(items, indices) || place > items.size())
        return std::nullopt;
    const StepPairs pairs = pairsOf(items);
    const bool freely = moveFreely(pairs, indices, moved);
    const StepPlaces first = freely ? indices : withNeighbours(pairs, indices);
    for (StepPlaces& carried : std::vector{first, withPartners(pairs, indices)}) {
        StepOrder order = gatheredOrder(items.size(), carried, place);
        if (!freely && !keepsPairs(pairs, items, order))
            continue;
        if (order == unchangedOrder(items.size()))
            return std::nullopt;
        return Drop{std::move(order), std::move(carried)};
    }
    return std::nullopt;
}

/// Exchanges the delays of the former and the new last step, if the former has none.
void keepLastWithoutDelay(const plist::Dictionary& formerLast, const plist::Dictionary& last) {
    if (!formerLast || !last || formerLast.integer(keys::delay) != 0 || last.integer(keys::delay) == 0)
        return;
    plist::Value none = formerLast.value(keys::delay);
    formerLast.set(keys::delay, last.value(keys::delay));
    last.set(keys::delay, none.isNothing() ? plist::Value(0) : std::move(none));
}

void reorder(const plist::Array& steps, const StepOrder& order) {
    const Items reordered = inOrder(steps.items(), order);
    const plist::Dictionary formerLast = steps.dictionary(steps.size() - 1);
    for (std::size_t place = 0; place < reordered.size(); ++place)
        steps.replace(place, reordered[place]);
    if (const auto last = steps.dictionary(steps.size() - 1); !last.isSameAs(formerLast))
        keepLastWithoutDelay(formerLast, last);
}

StepPlaces placesIn(const StepOrder& order, const StepPlaces& indices) {
    StepPlaces places;
    for (const std::size_t index : indices)
        places.push_back(placeIn(order, index));
    std::ranges::sort(places);
    return places;
}

} // namespace

std::optional<StepPlaces> placesOfMovedSteps(
    const plist::Array& steps, const StepPlaces& indices, MoveDirection direction, MovedStep moved) {
    const auto order = orderOfMove(steps.items(), indices, direction, moved);
    return order ? std::optional(placesIn(*order, indices)) : std::nullopt;
}

std::optional<StepPlaces> moveSteps(
    const plist::Array& steps, const StepPlaces& indices, MoveDirection direction, MovedStep moved) {
    const auto order = orderOfMove(steps.items(), indices, direction, moved);
    if (!order)
        return std::nullopt;
    reorder(steps, *order);
    return placesIn(*order, indices);
}

std::optional<StepPlaces> stepsMovedByDrop(
    const plist::Array& steps, const StepPlaces& indices, std::size_t place, MovedStep moved) {
    const auto drop = orderOfDrop(steps.items(), indices, place, moved);
    return drop ? std::optional(drop->carried) : std::nullopt;
}

std::optional<StepPlaces> dropSteps(
    const plist::Array& steps, const StepPlaces& indices, std::size_t place, MovedStep moved) {
    const auto drop = orderOfDrop(steps.items(), indices, place, moved);
    if (!drop)
        return std::nullopt;
    reorder(steps, drop->order);
    return placesIn(drop->order, drop->carried);
}

} // namespace quorvi
