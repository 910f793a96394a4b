#include "macros/StepMoves.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "model/Keys.h"
#include "model/Limits.h"
#include "plist/DeepCopy.h"

namespace quorvi {

namespace {

using Items = plist::Array::Items;

/// A macro's steps in another order: the indices of what stands at each place now.
using Order = std::vector<std::size_t>;

constexpr std::size_t kMostSteps = limits::macroSteps;

/// Steps that stand side by side.
struct Block {
    std::size_t first;
    std::size_t size;
};

/// The order in which the block has passed as many of its neighbours; nothing when there are not that many.
std::optional<Order> orderAfter(
    std::size_t count, const Block& block, MoveDirection direction, std::size_t distance) {
    const std::size_t room = direction == MoveDirection::up ? block.first : count - block.first - block.size;
    if (distance > room)
        return std::nullopt;
    Order order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto at = [&](std::size_t index) { return order.begin() + static_cast<std::ptrdiff_t>(index); };
    if (direction == MoveDirection::up)
        std::rotate(at(block.first - distance), at(block.first), at(block.first + block.size));
    else
        std::rotate(at(block.first), at(block.first + block.size), at(block.first + block.size + distance));
    return order;
}

Items inOrder(const Items& items, const Order& order) {
    Items result;
    result.reserve(order.size());
    for (const std::size_t index : order)
        result.push_back(items[index]);
    return result;
}

std::size_t placeOf(const Order& order, std::size_t index) {
    return static_cast<std::size_t>(std::ranges::find(order, index) - order.begin());
}

/// Whether each pair is still one in the other order.
bool keepsPairs(const StepPairs& pairs, const Items& reordered, const Order& order) {
    const StepPairs now = pairsOf(reordered);
    Order places(order.size());
    for (std::size_t place = 0; place < order.size(); ++place)
        places[order[place]] = place;
    for (std::size_t index = 0; index < pairs.size(); ++index)
        if (pairs[index] && now[places[index]] != places[*pairs[index]])
            return false;
    return true;
}

/// The two when they stand side by side.
std::optional<Block> adjacentPair(std::size_t index, const std::optional<std::size_t>& partner) {
    if (!partner || std::max(index, *partner) - std::min(index, *partner) != 1)
        return std::nullopt;
    return Block{std::min(index, *partner), 2};
}

/// The steps in the order that the move leads to; nothing when there is none.
std::optional<Order> orderOfMove(
    const Items& items, std::size_t index, MoveDirection direction, MovedStep moved) {
    if (index >= items.size())
        return std::nullopt;
    const StepPairs pairs = pairsOf(items);
    auto byOne = orderAfter(items.size(), {index, 1}, direction, 1);
    if (moved == MovedStep::alone || !pairs[index])
        return byOne;
    if (byOne && keepsPairs(pairs, inOrder(items, *byOne), *byOne))
        return byOne;
    const auto pair = adjacentPair(index, pairs[index]);
    for (std::size_t distance = 1; pair && distance < kMostSteps; ++distance) {
        auto order = orderAfter(items.size(), *pair, direction, distance);
        if (!order || keepsPairs(pairs, inOrder(items, *order), *order))
            return order;
    }
    return std::nullopt;
}

/// Exchanges the delays of the step that was the last one and of the one that is, if the former has none.
void keepLastWithoutDelay(const plist::Dictionary& formerLast, const plist::Dictionary& last) {
    if (!formerLast || !last || formerLast.integer(keys::delay) != 0 || last.integer(keys::delay) == 0)
        return;
    plist::Value none = formerLast.value(keys::delay);
    formerLast.set(keys::delay, last.value(keys::delay));
    last.set(keys::delay, none.isNothing() ? plist::Value(0) : std::move(none));
}

/// The first of the steps that have room, without a press whose release has none.
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

/// The first place from the wanted one on at which the added steps leave all pairs as they are.
std::size_t placeFor(const Items& items, std::size_t wanted, const Items& added) {
    const StepPairs pairs = pairsOf(items);
    StepPairs all = pairs;
    for (const auto& partner : pairsOf(added))
        all.push_back(partner ? std::optional(*partner + items.size()) : std::nullopt);
    Items both = items;
    both.insert(both.end(), added.begin(), added.end());
    for (std::size_t place = std::min(wanted, items.size()); place < items.size(); ++place) {
        const auto order =
            orderAfter(both.size(), {items.size(), added.size()}, MoveDirection::up, items.size() - place);
        if (order && keepsPairs(all, inOrder(both, *order), *order))
            return place;
    }
    return items.size();
}

} // namespace

std::optional<std::size_t> placeOfMovedStep(
    const plist::Array& steps, std::size_t index, MoveDirection direction, MovedStep moved) {
    const auto order = orderOfMove(steps.items(), index, direction, moved);
    return order ? std::optional(placeOf(*order, index)) : std::nullopt;
}

std::optional<std::size_t> moveStep(
    const plist::Array& steps, std::size_t index, MoveDirection direction, MovedStep moved) {
    const auto order = orderOfMove(steps.items(), index, direction, moved);
    if (!order)
        return std::nullopt;
    const Items reordered = inOrder(steps.items(), *order);
    const plist::Dictionary formerLast = steps.dictionary(steps.size() - 1);
    for (std::size_t place = 0; place < reordered.size(); ++place)
        steps.replace(place, reordered[place]);
    if (const auto last = steps.dictionary(steps.size() - 1); !last.isSameAs(formerLast))
        keepLastWithoutDelay(formerLast, last);
    return placeOf(*order, index);
}

plist::Array copyOfSteps(const plist::Array& steps, const std::vector<std::size_t>& indices) {
    auto copy = plist::Array::create();
    for (const std::size_t index : indices)
        copy.append(plist::deepCopy(steps.value(index)));
    return copy;
}

void takeSteps(const plist::Array& steps, const std::vector<std::size_t>& indices) {
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

bool canDuplicateStep(const plist::Array& steps, std::size_t index) {
    const std::size_t needed = stepWithPartner(steps, index).size();
    return needed > 0 && steps.size() + needed <= kMostSteps;
}

InsertedSteps duplicateStep(const plist::Array& steps, std::size_t index) {
    if (!canDuplicateStep(steps, index))
        return {};
    const auto indices = stepWithPartner(steps, index);
    return insertSteps(steps, indices.back() + 1, copyOfSteps(steps, indices));
}

} // namespace quorvi
