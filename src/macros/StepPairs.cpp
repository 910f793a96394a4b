#include "macros/StepPairs.h"

#include <algorithm>
#include <map>
#include <utility>

#include "macros/StepCodes.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

bool isButtonPress(std::uint32_t code) {
    return std::ranges::find(stepcodes::buttonsDown, code) != stepcodes::buttonsDown.end();
}

} // namespace

std::optional<StepMovement> movementOfStep(const plist::Dictionary& step) {
    if (!step)
        return std::nullopt;
    const auto code = static_cast<std::uint32_t>(step.integer(keys::command));
    const std::int32_t argument = step.integer(keys::argument);
    if (code == stepcodes::keyDown || code == stepcodes::keyUp)
        return StepMovement{.isPress = code == stepcodes::keyDown, .isButton = false, .key = argument};
    if (code == stepcodes::buttonsUp || isButtonPress(code))
        return StepMovement{.isPress = code != stepcodes::buttonsUp, .isButton = true, .key = argument};
    return std::nullopt;
}

StepPairs pairsOf(const plist::Array::Items& steps) {
    StepPairs pairs(steps.size());
    std::map<std::pair<bool, std::int32_t>, std::size_t> held; // the last press, by what it concerns
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const auto movement = movementOfStep(steps[index].dictionary());
        if (!movement)
            continue;
        const std::pair concerned(movement->isButton, movement->key);
        if (movement->isPress) {
            held[concerned] = index;
        } else if (const auto press = held.extract(concerned)) {
            pairs[index] = press.mapped();
            pairs[press.mapped()] = index;
        }
    }
    return pairs;
}

StepPairs pairsOf(const plist::Array& steps) {
    return pairsOf(steps.items());
}

std::vector<std::size_t> withPartners(const StepPairs& pairs, const std::vector<std::size_t>& indices) {
    std::vector<std::size_t> both;
    for (const std::size_t index : indices) {
        if (index >= pairs.size())
            continue;
        both.push_back(index);
        if (pairs[index])
            both.push_back(*pairs[index]);
    }
    std::ranges::sort(both);
    both.erase(std::unique(both.begin(), both.end()), both.end());
    return both;
}

std::vector<std::size_t> stepsWithPartners(
    const plist::Array& steps, const std::vector<std::size_t>& indices) {
    return withPartners(pairsOf(steps), indices);
}

} // namespace quorvi
