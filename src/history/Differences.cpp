#include "history/Differences.h"

#include <algorithm>

#include "history/ComparedTrees.h"
#include "history/WhatCounts.h"
#include "model/Keys.h"
#include "model/Numbering.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;

Lists listsOf(const Dictionary& whole) {
    return {whole.array(keys::profiles), whole.array(keys::macros)};
}

/// "Macro “^1” was there" for each of the items.
void addEach(const std::vector<std::size_t>& places, const Array& items, const char16_t* pattern,
    DifferenceList& list) {
    for (const std::size_t place : places)
        list.add(patternPhrase(pattern, {namePhrase(items.dictionary(place).string(keys::name))}));
}

void addUnmatched(const ComparedTrees& trees, DifferenceList& list) {
    addEach(trees.profiles.onlyEarlier(), trees.earlier.profiles, u"Profile “^1” was there", list);
    addEach(trees.macros.onlyEarlier(), trees.earlier.macros, u"Macro “^1” was there", list);
    addEach(trees.profiles.onlyNow(), trees.now.profiles, u"Profile “^1” was not there", list);
    addEach(trees.macros.onlyNow(), trees.now.macros, u"Macro “^1” was not there", list);
}

/// Compares the items after the matched ones.
void compareRest(const Array& earlier, const Array& now, DifferenceList& list) {
    for (std::size_t place = mostMatched; place < std::max(earlier.size(), now.size()); ++place)
        if (!(earlier.value(place) == now.value(place)))
            return list.addOther();
}

/// Compares two trees made by whatCounts(), removing the compared parts.
class Comparison {
  public:
    Comparison(const Both& both, const ComparedTrees& trees) : m_both(both), m_trees(trees) {}

    std::vector<Phrase> differences() {
        addUnmatched(m_trees, m_list);
        const Both settings = m_both.takeDictionaries(keys::settings);
        const bool toldOfStages = compareAllProfiles(indexOfNumber(settings.now.integer(keys::profileId)));
        compareAllMacros();
        compareSettings(settings, toldOfStages, m_trees, m_list);
        compareOrders();
        m_list.addOtherUnlessEqual(m_both);
        return m_list.take();
    }

  private:
    /// Returns whether the stages of the profile at the place differ.
    bool compareAllProfiles(std::int32_t current) {
        bool toldOfStages = false;
        const auto [was, is] = m_both.take(keys::profiles);
        for (const auto& [earlier, now] : m_trees.profiles.pairs()) {
            const Both profile{was.array().dictionary(earlier), is.array().dictionary(now)};
            if (compareProfiles(profile, m_trees, m_list) && static_cast<std::int64_t>(now) == current)
                toldOfStages = true;
        }
        compareRest(was.array(), is.array(), m_list);
        return toldOfStages;
    }

    void compareAllMacros() {
        const auto [was, is] = m_both.take(keys::macros);
        for (const auto& [earlier, now] : m_trees.macros.pairs())
            compareMacros({was.array().dictionary(earlier), is.array().dictionary(now)}, m_list);
        compareRest(was.array(), is.array(), m_list);
    }

    void compareOrders() {
        if (m_trees.profiles.areReordered())
            m_list.add(patternPhrase(u"The profiles were in a different order"));
        if (m_trees.macros.areReordered())
            m_list.add(patternPhrase(u"The macros were in a different order"));
    }

    const Both& m_both;
    const ComparedTrees& m_trees;
    DifferenceList m_list;
};

} // namespace

std::vector<Phrase> differencesBetween(const Dictionary& earlier, const Dictionary& now) {
    const Both whole{whatCounts(earlier), whatCounts(now)};
    if (whole.areEqual())
        return {};
    const Lists was = listsOf(whole.earlier);
    const Lists is = listsOf(whole.now);
    const ComparedTrees trees{
        was, is, matchedProfiles(was.profiles, is.profiles), matchedMacros(was.macros, is.macros)};
    const Both both{whatCounts(earlier), whatCounts(now)};
    auto differences = Comparison(both, trees).differences();
    if (differences.empty())
        differences.push_back(otherDifference());
    return differences;
}

} // namespace quorvi
