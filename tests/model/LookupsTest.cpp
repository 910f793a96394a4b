#include "model/Lookups.h"

#include <gtest/gtest.h>

#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;

const std::u16string kJump = u"Jump";
const std::u16string kRun = u"Run";
const std::u16string kEmpty;

Array macrosWithIds(std::initializer_list<int> ids) {
    const auto macros = list();
    for (const int id : ids)
        macros.append(macro(id));
    return macros;
}

Dictionary profileWithButtons(Dictionary buttons) {
    return dict({{"buttons", std::move(buttons)}});
}

TEST(KyvarFindProfileInArray, givesTheFirstProfileOfTheName) {
    const auto profiles = list({5, profile(u"Walk"), dict(), profile(u"Run"), profile(u"Run")});
    EXPECT_EQ(KyvarFindProfileInArray(&kRun, profiles), 3);
}

TEST(KyvarFindProfileInArray, comparesCaseAndWholeNames) {
    EXPECT_EQ(
        KyvarFindProfileInArray(&kRun, list({profile(u"run"), profile(u"Runner"), profile(u"Ru")})), -1);
}

TEST(KyvarFindProfileInArray, findsNothingForNothing) {
    EXPECT_EQ(KyvarFindProfileInArray(nullptr, list({profile(), dict()})), -1);
    EXPECT_EQ(KyvarFindProfileInArray(&kRun, {}), -1);
    EXPECT_EQ(KyvarFindProfileInArray(&kRun, list()), -1);
}

TEST(KyvarFindProfileInArray, doesNotTakeAMissingNameForAnEmptyOne) {
    EXPECT_EQ(
        KyvarFindProfileInArray(&kEmpty, list({dict(), dict({{"name", 5}}), dict({{"name", u""}})})), 2);
}

TEST(KyvarFindMacroInArray, findsByIdentifier) {
    EXPECT_EQ(KyvarFindMacroInArray(4, nullptr, macrosWithIds({3, 4, 4})), 1);
    EXPECT_EQ(KyvarFindMacroInArray(5, nullptr, macrosWithIds({3, 4})), -1);
}

TEST(KyvarFindMacroInArray, findsByNameWithANegativeIdentifier) {
    const auto macros = list({macro(-1, u"Walk"), macro(2, u"Run")});
    EXPECT_EQ(KyvarFindMacroInArray(-1, &kRun, macros), 1);
    EXPECT_EQ(KyvarFindMacroInArray(-1, nullptr, macros), -1);
}

TEST(KyvarFindMacroInArray, takesTheFirstElementThatMatchesEitherWay) {
    const auto macros = list({macro(1, u"Walk"), macro(2, u"Run"), macro(3, u"Jump")});
    EXPECT_EQ(KyvarFindMacroInArray(3, &kRun, macros), 1);
    EXPECT_EQ(KyvarFindMacroInArray(2, &kJump, macros), 1);
    EXPECT_EQ(KyvarFindMacroInArray(9, &kJump, macros), 2);
}

TEST(KyvarFindMacroInArray, skipsElementsThatAreNoDictionary) {
    EXPECT_EQ(KyvarFindMacroInArray(0, nullptr, list({u"macro", 0, macro(0)})), 2);
}

TEST(KyvarFindMacroInArray, readsAMissingIdentifierAsZero) {
    EXPECT_EQ(KyvarFindMacroInArray(0, nullptr, list({macro(3), dict({{"name", u"Run"}})})), 1);
}

TEST(KyvarFindMacroInArray, findsNothingInNoArray) {
    EXPECT_EQ(KyvarFindMacroInArray(0, &kJump, {}), -1);
}

TEST(KyvarFindUnusedMacroID, givesTheLowestFreeIdentifier) {
    EXPECT_EQ(KyvarFindUnusedMacroID(macrosWithIds({0, 1, 3})), 2);
    EXPECT_EQ(KyvarFindUnusedMacroID(macrosWithIds({3, 1, 0})), 2);
    EXPECT_EQ(KyvarFindUnusedMacroID(macrosWithIds({1})), 0);
    EXPECT_EQ(KyvarFindUnusedMacroID(list()), 0);
    EXPECT_EQ(KyvarFindUnusedMacroID({}), 0);
}

TEST(KyvarFindUnusedMacroID, givesNothingFromTwelveMacrosOn) {
    EXPECT_EQ(KyvarFindUnusedMacroID(macrosWithIds({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10})), 11);
    EXPECT_EQ(KyvarFindUnusedMacroID(macrosWithIds({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11})), -1);
    EXPECT_EQ(KyvarFindUnusedMacroID(macrosWithIds({7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7})), -1);
}

TEST(KyvarFindClickInProfile, givesTheFirstMaskedPlainClick) {
    const auto clicks = profileWithButtons(dict({{"01", assignment(1, 0, 1)}, {"02", assignment(2, 0, 0)},
        {"03", assignment(1, 5, 0)}, {"05", assignment(1, 0, 0)}}));
    EXPECT_EQ(KyvarFindClickInProfile(clicks, 0xFFFFFFFF), 2);
    EXPECT_EQ(KyvarFindClickInProfile(clicks, 0xFFFFFFF0), 4);
    EXPECT_EQ(KyvarFindClickInProfile(clicks, 0x00000003), -1);
    EXPECT_EQ(KyvarFindClickInProfile(clicks, 0), -1);
}

TEST(KyvarFindClickInProfile, looksAtAll32Bits) {
    const auto last = profileWithButtons(dict({{"32", assignment(1, 0, 0)}}));
    EXPECT_EQ(KyvarFindClickInProfile(last, 0x80000000), 31);
    EXPECT_EQ(KyvarFindClickInProfile(last, 0x7FFFFFFF), -1);
    const auto tenth = profileWithButtons(dict({{"10", assignment(1, 0, 0)}}));
    EXPECT_EQ(KyvarFindClickInProfile(tenth, 0x200), 9);
}

TEST(KyvarFindClickInProfile, ignoresAssignmentsThatAreNoDictionary) {
    EXPECT_EQ(KyvarFindClickInProfile(profileWithButtons(dict({{"01", 1}})), 1), -1);
}

TEST(KyvarFindClickInProfile, findsNothingWithoutButtons) {
    EXPECT_EQ(KyvarFindClickInProfile({}, 1), -1);
    EXPECT_EQ(KyvarFindClickInProfile(dict(), 1), -1);
    EXPECT_EQ(KyvarFindClickInProfile(dict({{"buttons", list()}}), 1), -1);
}

} // namespace
} // namespace quorvi
