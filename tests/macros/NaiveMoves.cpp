#include "macros/NaiveMoves.h"

#include <algorithm>
#include <utility>

namespace quorvi::test {

namespace {

bool isRelease(const TestStep& step) {
    return step.command == 0 || step.command == 128;
}

bool isKnown(const TestStep& step) {
    static const std::vector<int> codes{0, 1, 128, 129, 130, 132, 136, 144};
    return std::find(codes.begin(), codes.end(), step.command) != codes.end();
}

bool sameThing(const TestStep& one, const TestStep& other) {
    return isKnown(one) && isKnown(other) && (one.command >= 128) == (other.command >= 128) &&
           one.argument == other.argument;
}

/// A step with where it came from.
using Marked = std::vector<std::pair<TestStep, std::size_t>>;

TestMacro plain(const Marked& marked) {
    TestMacro macro;
    for (const auto& [step, origin] : marked)
        macro.push_back(step);
    return macro;
}

std::size_t rowOf(const Marked& marked, std::size_t origin) {
    return std::size_t(std::find_if(marked.begin(), marked.end(), [origin](const auto& step) {
        return step.second == origin;
    }) - marked.begin());
}

bool allPairsStay(const TestMacro& before, const Marked& after) {
    for (std::size_t row = 0; row < before.size(); ++row) {
        const auto partner = naivePartner(before, row);
        if (partner && naivePartner(plain(after), rowOf(after, row)) != rowOf(after, *partner))
            return false;
    }
    return true;
}

/// Nothing when the block would leave the list.
std::optional<Marked> withBlockAt(Marked marked, std::size_t first, std::size_t size, long by) {
    const Marked block(marked.begin() + long(first), marked.begin() + long(first + size));
    marked.erase(marked.begin() + long(first), marked.begin() + long(first + size));
    const long target = long(first) + by;
    if (target < 0 || target > long(marked.size()))
        return std::nullopt;
    marked.insert(marked.begin() + target, block.begin(), block.end());
    return marked;
}

std::optional<Marked> moved(const TestMacro& macro, std::size_t row, bool up) {
    Marked marked;
    for (std::size_t index = 0; index < macro.size(); ++index)
        marked.emplace_back(macro[index], index);
    const long step = up ? -1 : 1;
    const auto partner = naivePartner(macro, row);
    auto alone = withBlockAt(marked, row, 1, step);
    if (!partner || (alone && allPairsStay(macro, *alone)))
        return alone;
    const std::size_t first = std::min(row, *partner);
    if (std::max(row, *partner) != first + 1)
        return std::nullopt;
    for (long by = step; std::abs(by) <= 16; by += step) {
        auto together = withBlockAt(marked, first, 2, by);
        if (!together || allPairsStay(macro, *together))
            return together;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::size_t> naivePartner(const TestMacro& macro, std::size_t row) {
    const long step = isRelease(macro[row]) ? -1 : 1;
    for (long other = long(row) + step; other >= 0 && other < long(macro.size()); other += step) {
        const TestStep& found = macro[std::size_t(other)];
        if (sameThing(found, macro[row]))
            return isRelease(found) != isRelease(macro[row]) ? std::optional(std::size_t(other))
                                                             : std::nullopt;
    }
    return std::nullopt;
}

std::optional<NaivelyMoved> naivelyMoved(const TestMacro& macro, std::size_t row, bool up) {
    const auto after = moved(macro, row, up);
    if (!after)
        return std::nullopt;
    NaivelyMoved result{plain(*after), rowOf(*after, row)};
    const std::size_t formerLast = rowOf(*after, macro.size() - 1);
    if (macro.back().delay == 0)
        std::swap(result.macro[formerLast].delay, result.macro.back().delay);
    return result;
}

TestMacro naivelyTaken(TestMacro macro, std::size_t row) {
    const auto partner = naivePartner(macro, row);
    if (partner)
        macro.erase(macro.begin() + long(std::max(row, *partner)));
    macro.erase(macro.begin() + long(partner ? std::min(row, *partner) : row));
    return macro;
}

TestMacro naivelyDuplicated(const TestMacro& macro, std::size_t row) {
    const auto partner = naivePartner(macro, row);
    TestMacro copies{macro[row]};
    if (partner)
        copies.insert(*partner < row ? copies.begin() : copies.end(), macro[*partner]);
    if (macro.size() + copies.size() > 16)
        return macro;
    TestMacro result = macro;
    const std::size_t behind = std::max(row, partner.value_or(row)) + 1;
    result.insert(result.begin() + long(behind), copies.begin(), copies.end());
    return result;
}

} // namespace quorvi::test
