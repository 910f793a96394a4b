// Differences of arbitrary trees.
#include <gtest/gtest.h>

#include "base/Unicode.h"
#include "history/Differences.h"
#include "model/Keys.h"
#include "model/RandomTrees.h"
#include "plist/DeepCopy.h"

namespace quorvi::test {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr int kRounds = 400;

/// The dictionary and those that are read below it; what stands where another type is read does nothing.
void collect(const Dictionary& from, std::vector<Dictionary>& found) {
    if (!from)
        return;
    found.push_back(from);
    for (const auto key : {keys::settings, keys::buttons, keys::driver})
        collect(from.dictionary(key), found);
    for (int input = 1; input <= 9; ++input)
        collect(from.dictionary(keys::button(input)), found);
    for (const auto key : {keys::profiles, keys::stages, keys::macros, keys::steps}) {
        const plist::Array all = from.array(key);
        for (const Value& item : all.items())
            collect(item.dictionary(), found);
    }
}

std::vector<Dictionary> dictionariesOf(const Dictionary& tree) {
    std::vector<Dictionary> found;
    collect(tree, found);
    return found;
}

void expectGoodSentences(const std::vector<Phrase>& differences) {
    EXPECT_LE(differences.size(), mostDifferences);
    for (const Phrase& difference : differences) {
        EXPECT_EQ(difference.kind, Phrase::Kind::pattern);
        EXPECT_FALSE(inWords(difference, englishWording()).empty());
    }
}

TEST(RandomDifferences, OfAnyTwoTreesAreFound) {
    RandomTrees trees(1);
    Dictionary earlier = trees.next();
    for (int round = 0; round < kRounds; ++round) {
        const Dictionary now = trees.next();
        const auto differences = differencesBetween(earlier, now);
        expectGoodSentences(differences);
        EXPECT_FALSE(differences.empty());
        EXPECT_TRUE(differencesBetween(now, plist::mutableDeepCopy(now)).empty());
        earlier = now;
    }
}

TEST(RandomDifferences, LeaveTheTreesAsTheyAre) {
    RandomTrees trees(2);
    for (int round = 0; round < kRounds; ++round) {
        const Dictionary earlier = trees.next();
        const Dictionary now = trees.next();
        const Value copies[] = {plist::deepCopy(earlier), plist::deepCopy(now)};
        (void)differencesBetween(earlier, now);
        EXPECT_EQ(Value(earlier), copies[0]);
        EXPECT_EQ(Value(now), copies[1]);
    }
}

// Wherever it is: beside the keys that are known there is always room for one more.
TEST(RandomDifferences, OfASingleUnknownKeyAreFound) {
    RandomTrees trees(3);
    for (int round = 0; round < kRounds; ++round) {
        const Dictionary earlier = trees.next();
        const Dictionary now = plist::mutableDeepCopy(earlier);
        const auto all = dictionariesOf(now);
        const auto& changed = all[trees.below(static_cast<std::uint32_t>(all.size()))];
        changed.set("unknown", round);
        const auto differences = differencesBetween(earlier, now);
        expectGoodSentences(differences);
        EXPECT_FALSE(differences.empty());
    }
}

TEST(RandomDifferences, AreNoneInWhatMenusSaid) {
    RandomTrees trees(4);
    int changes = 0;
    for (int round = 0; round < kRounds; ++round) {
        const Dictionary earlier = trees.next();
        const Dictionary now = plist::mutableDeepCopy(earlier);
        now.set(keys::firmware, round);
        const plist::Array all = now.array(keys::profiles);
        for (const Value& profile : all.items())
            for (int input = 1; input <= 9; ++input) {
                const auto assignment =
                    profile.dictionary().dictionary(keys::buttons).dictionary(keys::button(input));
                changes += assignment ? 1 : 0;
                assignment.set(keys::string, u"said");
            }
        EXPECT_TRUE(differencesBetween(earlier, now).empty());
    }
    EXPECT_GT(changes, kRounds);
}

} // namespace
} // namespace quorvi::test
