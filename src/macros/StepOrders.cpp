#include "macros/StepOrders.h"

#include <algorithm>
#include <numeric>

namespace quorvi {

StepOrder unchangedOrder(std::size_t count) {
    StepOrder order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    return order;
}

plist::Array::Items inOrder(const plist::Array::Items& items, const StepOrder& order) {
    plist::Array::Items result;
    result.reserve(order.size());
    for (const std::size_t index : order)
        result.push_back(items[index]);
    return result;
}

std::size_t placeIn(const StepOrder& order, std::size_t index) {
    return static_cast<std::size_t>(std::ranges::find(order, index) - order.begin());
}

StepOrder gatheredOrder(std::size_t count, const std::vector<std::size_t>& chosen, std::size_t place) {
    StepOrder order = unchangedOrder(count);
    const auto isChosen = [&](std::size_t index) { return std::ranges::find(chosen, index) != chosen.end(); };
    const auto middle = order.begin() + static_cast<std::ptrdiff_t>(std::min(place, count));
    std::stable_partition(order.begin(), middle, [&](std::size_t index) { return !isChosen(index); });
    std::stable_partition(middle, order.end(), isChosen);
    return order;
}

bool keepsPairs(const StepPairs& pairs, const plist::Array::Items& items, const StepOrder& order) {
    const StepPairs now = pairsOf(inOrder(items, order));
    StepOrder places(order.size());
    for (std::size_t place = 0; place < order.size(); ++place)
        places[order[place]] = place;
    for (std::size_t index = 0; index < pairs.size(); ++index)
        if (pairs[index] && now[places[index]] != places[*pairs[index]])
            return false;
    return true;
}

} // namespace quorvi
