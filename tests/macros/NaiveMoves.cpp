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

Marked markedOf(const TestMacro& macro) {
    Marked marked;
    for (std::size_t index = 0; index < macro.size(); ++index)
        marked.emplace_back(macro[index], index);
    return marked;
}

bool has(const Rows& rows, std::size_t row) {
    return std::count(rows.begin(), rows.end(), row) > 0;
}

Rows withPartnersOf(const TestMacro& macro, const Rows& rows) {
    Rows both;
    for (std::size_t row = 0; row < macro.size(); ++row) {
        const auto partner = naivePartner(macro, row);
        if (has(rows, row) || (partner && has(rows, *partner)))
            both.push_back(row);
    }
    return both;
}

bool hasPartners(const TestMacro& macro, const Rows& rows) {
    return std::any_of(
        rows.begin(), rows.end(), [&](std::size_t row) { return naivePartner(macro, row).has_value(); });
}

/// Each of the rows one place nearer to the beginning; nothing when one would leave the list.
std::optional<Marked> eachUp(const Marked& marked, const Rows& rows) {
    Marked result;
    for (const auto& step : marked) {
        if (!has(rows, step.second))
            result.push_back(step);
        else if (result.empty())
            return std::nullopt;
        else
            result.insert(result.end() - 1, step);
    }
    return result;
}

std::optional<Marked> eachBy(const Marked& marked, const Rows& rows, bool up) {
    if (up)
        return eachUp(marked, rows);
    auto turned = eachUp(Marked(marked.rbegin(), marked.rend()), rows);
    return turned ? std::optional(Marked(turned->rbegin(), turned->rend())) : std::nullopt;
}

std::optional<Marked> moved(const TestMacro& macro, const Rows& rows, bool up) {
    auto after = eachBy(markedOf(macro), rows, up);
    if (!hasPartners(macro, rows) || (after && allPairsStay(macro, *after)))
        return after;
    const Rows both = withPartnersOf(macro, rows);
    if (rows.size() == 1 && both.back() - both.front() != 1)
        return std::nullopt;
    after = eachBy(markedOf(macro), both, up);
    while (after && !allPairsStay(macro, *after))
        after = eachBy(*after, both, up);
    return after;
}

Marked dropped(const TestMacro& macro, const Rows& rows, std::size_t before) {
    Marked above;
    Marked among;
    Marked below;
    for (const auto& step : markedOf(macro))
        (has(rows, step.second) ? among : step.second < before ? above : below).push_back(step);
    above.insert(above.end(), among.begin(), among.end());
    above.insert(above.end(), below.begin(), below.end());
    return above;
}

NaivelyMoved withoutDelayAtTheEnd(const TestMacro& macro, const Marked& after, const Rows& rows) {
    NaivelyMoved result{plain(after), {}};
    const std::size_t formerLast = rowOf(after, macro.size() - 1);
    if (macro.back().delay == 0)
        std::swap(result.macro[formerLast].delay, result.macro.back().delay);
    for (std::size_t row = 0; row < after.size(); ++row)
        if (has(rows, after[row].second))
            result.rows.push_back(row);
    return result;
}

/// No press without its release.
TestMacro withRoom(const TestMacro& added, std::size_t room) {
    Rows taken;
    for (std::size_t row = 0; row < added.size(); ++row) {
        if (has(taken, row))
            continue;
        const Rows both = withPartnersOf(added, {row});
        if (taken.size() + both.size() > room)
            break;
        taken.insert(taken.end(), both.begin(), both.end());
    }
    TestMacro result;
    for (std::size_t row = 0; row < added.size(); ++row)
        if (has(taken, row))
            result.push_back(added[row]);
    return result;
}

/// Where they come to.
std::size_t rowFor(const TestMacro& macro, std::size_t wanted, const TestMacro& added) {
    for (std::size_t row = wanted; row < macro.size(); ++row) {
        Marked after = markedOf(macro);
        Marked block = markedOf(added);
        for (auto& step : block)
            step.second += macro.size();
        after.insert(after.begin() + long(row), block.begin(), block.end());
        bool fits = allPairsStay(macro, after);
        for (std::size_t index = 0; index < added.size(); ++index) {
            const auto partner = naivePartner(added, index);
            fits = fits && (!partner || naivePartner(plain(after), row + index) == row + *partner);
        }
        if (fits)
            return row;
    }
    return macro.size();
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

std::optional<NaivelyMoved> naivelyMoved(const TestMacro& macro, const Rows& rows, bool up) {
    const auto after = moved(macro, rows, up);
    return after ? std::optional(withoutDelayAtTheEnd(macro, *after, rows)) : std::nullopt;
}

std::optional<NaivelyMoved> naivelyDropped(
    const TestMacro& macro, const Rows& rows, std::size_t before, bool alone) {
    const bool freely = alone || !hasPartners(macro, rows);
    Rows carried;
    for (std::size_t row = 0; row < macro.size(); ++row) {
        const std::size_t partner = naivePartner(macro, row).value_or(row);
        const bool isBeside = partner == row + 1 || partner + 1 == row;
        if (has(rows, row) || (!freely && isBeside && has(rows, partner)))
            carried.push_back(row);
    }
    Marked after = dropped(macro, carried, before);
    if (!freely && !allPairsStay(macro, after)) {
        carried = withPartnersOf(macro, rows);
        after = dropped(macro, carried, before);
        if (!allPairsStay(macro, after))
            return std::nullopt;
    }
    if (after == markedOf(macro))
        return std::nullopt;
    return withoutDelayAtTheEnd(macro, after, carried);
}

TestMacro naivelyTaken(const TestMacro& macro, const Rows& rows) {
    const Rows both = withPartnersOf(macro, rows);
    TestMacro rest;
    for (std::size_t row = 0; row < macro.size(); ++row)
        if (!has(both, row))
            rest.push_back(macro[row]);
    return rest;
}

TestMacro naivelyCopied(const TestMacro& macro, const Rows& rows) {
    TestMacro copied;
    for (const std::size_t row : withPartnersOf(macro, rows))
        copied.push_back(macro[row]);
    return copied;
}

TestMacro naivelyInserted(const TestMacro& macro, std::size_t row, const TestMacro& added) {
    const TestMacro those = withRoom(added, macro.size() > 16 ? 0 : 16 - macro.size());
    TestMacro result = macro;
    result.insert(result.begin() + long(rowFor(macro, row, those)), those.begin(), those.end());
    return result;
}

TestMacro naivelyDuplicated(const TestMacro& macro, const Rows& rows) {
    const TestMacro copies = naivelyCopied(macro, rows);
    if (macro.size() + copies.size() > 16)
        return macro;
    return naivelyInserted(macro, withPartnersOf(macro, rows).back() + 1, copies);
}

TestMacro naivelyTapped(const TestMacro& macro, std::size_t row, int press, int argument) {
    const TestMacro tap{{press, argument, 50}, {press == 1 ? 0 : 128, argument, 0}};
    TestMacro result = naivelyInserted(macro, row, tap);
    if (result.size() == macro.size())
        return result;
    const std::size_t at = rowFor(macro, row, tap);
    if (at < macro.size())
        result[at + 1].delay = 50;
    else if (at > 0 && result[at - 1].delay == 0)
        result[at - 1].delay = 50;
    return result;
}

TestMacro naivelyMultiplied(TestMacro macro, const Rows& rows, int tenths) {
    for (std::size_t row = 0; row < macro.size(); ++row)
        if (rows.empty() || has(rows, row))
            macro[row].delay = (macro[row].delay * tenths + 5) / 10;
    return macro;
}

} // namespace quorvi::test
