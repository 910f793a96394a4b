// Restoring a tree from a backup.

#include <gtest/gtest.h>

#include "history/Histories.h"

namespace quorvi::test {
namespace {

using plist::Value;
using What = LeftOut::What;
using Left = std::vector<LeftOut>;

plist::Dictionary profileNumber(int number) {
    return profile(u"P" + std::u16string(1, static_cast<char16_t>(u'0' + number)));
}

TEST(Restoring, bringsTheTreeToTheBackupInPlace) {
    const auto live = tree(list({profile(u"Mine")}), list());
    const auto handle = live.array("profiles").dictionary(0);
    const auto backup = backupOf(treeWithRate(125));
    EXPECT_EQ(restoreEverything(live, backup), Left{});
    EXPECT_EQ(Value(live), Value(treeWithRate(125)));
    EXPECT_TRUE(handle.isSameAs(live.array("profiles").dictionary(0)));
    live.array("profiles").dictionary(0).set("name", u"Later");
    EXPECT_EQ(Value(backup.tree), Value(treeWithRate(125)));
}

TEST(Restoring, doesNothingWithoutATreeOrWithASingleProfile) {
    const auto live = tree();
    EXPECT_EQ(restoreEverything(live, {}), Left{});
    EXPECT_EQ(restoreEverything(live, backupOfProfile(treeWithRate(125), 0)), Left{});
    EXPECT_EQ(Value(live), Value(tree()));
    EXPECT_EQ(restoreEverything({}, backupOf(tree())), Left{});
}

TEST(Restoring, leavesOutProfilesAndMacrosThatThereIsNoRoomForAndSaysSo) {
    const auto profiles = list();
    for (int number = 1; number <= 7; ++number)
        profiles.append(profileNumber(number));
    const auto macros = list();
    for (int macroId = 0; macroId < 13; ++macroId)
        macros.append(macro(macroId));
    const auto live = tree();
    EXPECT_EQ(restoreEverything(live, backupOf(tree(profiles, macros))),
        (Left{{What::profileBeyond, u"P6", 6}, {What::profileBeyond, u"P7", 7},
            {What::macroBeyond, u"Jump", 13}}));
    EXPECT_EQ(live.array("profiles").size(), 5U);
    EXPECT_EQ(live.array("macros").size(), 12U);
}

TEST(Restoring, leavesOutWhatIsDamagedOrTooLongAndSaysSo) {
    const auto longOne = macro(3, u"Long");
    while (longOne.array("steps").size() <= 16)
        longOne.array("steps").append(dict({{"command", 1}, {"argument", 4}}));
    const auto live = tree();
    EXPECT_EQ(restoreEverything(
                  live, backupOf(tree(list({without(profile(u"Bad"), "stages"), profile(), true}),
                            list({u"no macro", without(macro(2, u"Empty"), "steps"), longOne, macro(7)})))),
        (Left{{What::damagedProfile, u"Bad", 1}, {What::damagedProfile, u"", 3}, {What::damagedMacro, u"", 1},
            {What::damagedMacro, u"Empty", 2}, {What::macroOfManySteps, u"Long", 3}}));
    EXPECT_EQ(Value(live.array("profiles")), Value(list({profile()})));
    EXPECT_EQ(Value(live.array("macros")), Value(list({macro(7)})));
}

TEST(Restoring, clearsInputsOfMacrosThatAreNotThereAndSaysSo) {
    const auto live = tree();
    EXPECT_EQ(restoreEverything(live, backupOf(tree(list({profile(), profileThatRuns({7, 8, -1}, u"Runs")}),
                                          list({macro(7), without(macro(8), "name")})))),
        (Left{{What::damagedMacro, u"", 2}, {What::inputsMacro, u"Runs", 2, 2},
            {What::inputsMacro, u"Runs", 2, 3}}));
    const auto runs = live.array("profiles").dictionary(1);
    EXPECT_EQ(macroAt(runs, 1), 7);
    EXPECT_EQ(Value(runs.dictionary("buttons").dictionary("02")), Value(dict({{"command", 0}})));
}

TEST(Restoring, hasSwitchesFollowTheProfilesThatMoveUp) {
    const auto first = profileNumber(1);
    first.set("buttons", dict({{"01", assignment(34, 1, 0)}, {"02", assignment(34, 2, 0)},
                             {"03", assignment(34, 3, 0)}, {"04", assignment(34, 4, 0)}}));
    const auto backup = backupOf(
        tree(list({first, without(profileNumber(2), "buttons"), profileNumber(3)}), list({macro(7)})));
    backup.tree.dictionary("settings").set("profileid", 3);
    const auto live = tree();
    EXPECT_EQ(restoreEverything(live, backup),
        (Left{{What::damagedProfile, u"P2", 2}, {What::inputsProfile, u"P1", 1, 2},
            {What::inputsProfile, u"P1", 1, 4}}));
    EXPECT_EQ(Value(live.array("profiles").dictionary(0).dictionary("buttons")),
        Value(dict({{"01", assignment(34, 1, 0)}, {"02", dict({{"command", 0}})},
            {"03", assignment(34, 2, 0)}, {"04", dict({{"command", 0}})}})));
    EXPECT_EQ(live.dictionary("settings").integer("profileid"), 2);
}

TEST(Restoring, makesTheFirstProfileTheCurrentOneWhenThatIsNotThere) {
    const auto backup = backupOf(tree(list({profileNumber(1), dict()}), list({macro(7)})));
    backup.tree.dictionary("settings").set("profileid", 2);
    const auto live = tree();
    EXPECT_EQ(restoreEverything(live, backup).size(), 1U);
    EXPECT_EQ(live.dictionary("settings").integer("profileid"), 1);
}

} // namespace
} // namespace quorvi::test
