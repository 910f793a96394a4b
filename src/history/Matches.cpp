#include "history/Matches.h"

#include <algorithm>
#include <array>
#include <span>

#include "model/Keys.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

/// An item with its place.
struct Placed {
    std::size_t place;
    const Dictionary& item;
};
using Rule = bool (*)(const Placed& earlier, const Placed& now);

bool haveSameName(const Placed& earlier, const Placed& now) {
    return !earlier.item.string(keys::name).empty() &&
           earlier.item.value(keys::name) == now.item.value(keys::name);
}

bool areAtOnePlace(const Placed& earlier, const Placed& now) {
    return earlier.place == now.place;
}

bool haveSameIdentifier(const Placed& earlier, const Placed& now) {
    return earlier.item.value(keys::macroId) == now.item.value(keys::macroId);
}

bool haveSameSteps(const Placed& earlier, const Placed& now) {
    return earlier.item.value(keys::steps) == now.item.value(keys::steps);
}

bool haveSameButtons(const Placed& earlier, const Placed& now) {
    return earlier.item.value(keys::buttons) == now.item.value(keys::buttons) &&
           earlier.item.value(keys::stages) == now.item.value(keys::stages);
}

/// Whether at least half of the functions are equal.
bool haveMostFunctions(const Placed& earlier, const Placed& now) {
    const Dictionary before = earlier.item.dictionary(keys::buttons);
    const Dictionary after = now.item.dictionary(keys::buttons);
    const auto kept = std::ranges::count_if(
        before.entries(), [&](const auto& entry) { return entry.value == after.value(entry.key); });
    return static_cast<std::size_t>(kept) * 2 >= before.size();
}

bool haveMostSteps(const Placed& earlier, const Placed& now) {
    const Array before = earlier.item.array(keys::steps);
    const Array after = now.item.array(keys::steps);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
        kept += before.value(i) == after.value(i) ? 1U : 0U;
    return kept > 0 && kept * 2 >= std::max(before.size(), after.size());
}

template <Rule... rules>
bool all(const Placed& earlier, const Placed& now) {
    return (rules(earlier, now) && ...);
}

constexpr std::array<Rule, 4> kProfileRules{
    all<haveSameName, areAtOnePlace>, haveSameName, haveSameButtons, all<areAtOnePlace, haveMostFunctions>};
constexpr std::array<Rule, 4> kMacroRules{all<haveSameIdentifier, haveSameName>,
    all<haveSameIdentifier, haveSameSteps>, haveSameName,
    all<haveSameIdentifier, areAtOnePlace, haveMostSteps>};

/// Earlier rules take precedence over later ones.
Matches matched(const Array& earlier, const Array& now, std::span<const Rule> rules) {
    const std::size_t countOfEarlier = std::min(earlier.size(), mostMatched);
    const std::size_t countOfNow = std::min(now.size(), mostMatched);
    Matches::Places places(countOfEarlier);
    std::vector<bool> taken(countOfNow);
    for (const Rule rule : rules)
        for (std::size_t before = 0; before < countOfEarlier; ++before) {
            const Dictionary itemBefore = earlier.dictionary(before);
            for (std::size_t after = 0; after < countOfNow && !places[before]; ++after) {
                const Dictionary itemAfter = now.dictionary(after);
                if (taken[after] || !rule({before, itemBefore}, {after, itemAfter}))
                    continue;
                places[before] = after;
                taken[after] = true;
            }
        }
    return {std::move(places), countOfNow};
}

std::vector<std::size_t> withoutPlace(const Matches::Places& places) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < places.size(); ++i)
        if (!places[i])
            found.push_back(i);
    return found;
}

} // namespace

Matches::Matches(Places nowOfEarlier, std::size_t countOfNow)
    : m_nowOfEarlier(std::move(nowOfEarlier)), m_earlierOfNow(countOfNow) {
    for (std::size_t earlier = 0; earlier < m_nowOfEarlier.size(); ++earlier)
        if (m_nowOfEarlier[earlier])
            m_earlierOfNow[*m_nowOfEarlier[earlier]] = earlier;
}

std::vector<std::pair<std::size_t, std::size_t>> Matches::pairs() const {
    std::vector<std::pair<std::size_t, std::size_t>> found;
    for (std::size_t now = 0; now < m_earlierOfNow.size(); ++now)
        if (m_earlierOfNow[now])
            found.emplace_back(*m_earlierOfNow[now], now);
    return found;
}

std::vector<std::size_t> Matches::onlyEarlier() const {
    return withoutPlace(m_nowOfEarlier);
}

std::vector<std::size_t> Matches::onlyNow() const {
    return withoutPlace(m_earlierOfNow);
}

bool Matches::areSame(std::int64_t earlier, std::int64_t now) const {
    return earlier >= 0 && static_cast<std::uint64_t>(earlier) < m_nowOfEarlier.size() && now >= 0 &&
           m_nowOfEarlier[static_cast<std::size_t>(earlier)] == static_cast<std::size_t>(now);
}

bool Matches::areReordered() const {
    return !std::ranges::is_sorted(pairs());
}

Matches matchedProfiles(const Array& earlier, const Array& now) {
    return matched(earlier, now, kProfileRules);
}

Matches matchedMacros(const Array& earlier, const Array& now) {
    return matched(earlier, now, kMacroRules);
}

} // namespace quorvi
