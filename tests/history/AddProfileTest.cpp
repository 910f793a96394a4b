// Adding a profile together with the macros that it runs.

#include <gtest/gtest.h>

#include "history/Histories.h"

namespace quorvi::test {
namespace {

using plist::Value;
using What = LeftOut::What;
using Left = std::vector<LeftOut>;

const DefaultNames kNames{u"Untitled Profile", u"Untitled Macro"};

Backup backupThatRuns(std::initializer_list<int> macroIds, plist::Array macros) {
    return backupOfProfile(tree(list({profileThatRuns(macroIds)}), std::move(macros)), 0);
}

TEST(AddingAProfile, appendsItUnderANameOfItsOwn) {
    const auto live = tree();
    const auto added = addProfile(live, backupOfProfile(tree(), 0), kNames);
    EXPECT_EQ(added.index, std::size_t{1});
    EXPECT_EQ(added.leftOut, Left{});
    EXPECT_EQ(live.array("profiles").dictionary(1).string("name"), u"Game 2");
    const auto nameless = backupOfProfile(tree(list({without(profile(), "name")}), list()), 0);
    EXPECT_EQ(addProfile(live, nameless, kNames).index, std::size_t{2});
    EXPECT_EQ(live.array("profiles").dictionary(2).string("name"), u"Untitled Profile");
}

TEST(AddingAProfile, usesAMacroOfTheSameContentAgain) {
    const auto live = tree(list({profile()}), list({macroOfKey(3, u"Mine", 9), macroOfKey(5, u"Jump", 9)}));
    addProfile(live, backupThatRuns({7}, list({macroOfKey(7, u"Jump", 9)})), kNames);
    addProfile(live, backupThatRuns({7}, list({macroOfKey(7, u"Hop", 9)})), kNames);
    EXPECT_EQ(live.array("macros").size(), 2U);
    EXPECT_EQ(macroAt(live.array("profiles").dictionary(1), 1), 5) << "the one of that name";
    EXPECT_EQ(macroAt(live.array("profiles").dictionary(2), 1), 3) << "the first one";
}

TEST(AddingAProfile, addsAnotherMacroUnderAFreeIdentifierAndNameThatItsInputsFollow) {
    const auto live = tree(list({profileThatRuns({0})}), list({macroOfKey(0, u"Jump", 4)}));
    const auto added = addProfile(
        live, backupThatRuns({1, 0, 0}, list({macroOfKey(0, u"Jump", 5), macroOfKey(1, u"Run", 6)})), kNames);
    EXPECT_EQ(added.leftOut, Left{});
    EXPECT_EQ(Value(live.array("macros")),
        Value(list({macroOfKey(0, u"Jump", 4), macroOfKey(1, u"Run", 6), macroOfKey(2, u"Jump 2", 5)})));
    const auto profile = live.array("profiles").dictionary(1);
    EXPECT_EQ(macroAt(profile, 1), 1);
    EXPECT_EQ(macroAt(profile, 2), 2);
    EXPECT_EQ(macroAt(profile, 3), 2);
    EXPECT_EQ(macroAt(live.array("profiles").dictionary(0), 1), 0)
        << "a profile that was there keeps its own";
}

TEST(AddingAProfile, isOfNoConsequenceTheSecondTimeForItsMacros) {
    const auto live = tree();
    const auto backup = backupThatRuns({7}, list({macroOfKey(7, u"Jump", 9)}));
    addProfile(live, backup, kNames);
    const auto macros = live.array("macros").size();
    addProfile(live, backup, kNames);
    EXPECT_EQ(live.array("macros").size(), macros);
    EXPECT_EQ(live.array("profiles").size(), 3U);
}

TEST(AddingAProfile, leavesOutMacrosWithoutRoomAndSaysSo) {
    const auto macros = list();
    for (int macroId = 0; macroId < 11; ++macroId)
        macros.append(macroOfKey(macroId, u"M", 10 + macroId));
    const auto live = tree(list({profile()}), macros);
    const auto added = addProfile(
        live, backupThatRuns({7, 8}, list({macroOfKey(7, u"A", 1), macroOfKey(8, u"B", 2)})), kNames);
    EXPECT_EQ(added.leftOut, (Left{{What::macroBeyond, u"B", 2}, {What::inputsMacro, u"Game", 1, 2}}));
    EXPECT_EQ(live.array("macros").size(), 12U);
    const auto profile = live.array("profiles").dictionary(1);
    EXPECT_EQ(macroAt(profile, 1), 11);
    EXPECT_EQ(Value(profile.dictionary("buttons").dictionary("02")), Value(dict({{"command", 0}})));
}

TEST(AddingAProfile, leavesOutLongAndDamagedMacrosAndClearsWhatLeadsNowhere) {
    const auto longOne = macro(7, u"Long");
    while (longOne.array("steps").size() <= 16)
        longOne.array("steps").append(dict({{"command", 1}, {"argument", 4}}));
    const auto backup = backupThatRuns({7, 8, 9}, list({longOne, without(macro(8, u"Bad"), "steps")}));
    backup.tree.array("profiles").dictionary(0).dictionary("buttons").set("04", assignment(34, 2, 0));
    backup.tree.array("profiles").dictionary(0).dictionary("buttons").set("05", assignment(34, 3, 0));
    const auto live = tree();
    EXPECT_EQ(addProfile(live, backup, kNames).leftOut,
        (Left{{What::macroOfManySteps, u"Long", 1}, {What::damagedMacro, u"Bad", 2},
            {What::inputsMacro, u"Game", 1, 1}, {What::inputsMacro, u"Game", 1, 2},
            {What::inputsMacro, u"Game", 1, 3}, {What::inputsProfile, u"Game", 1, 5}}));
    EXPECT_EQ(Value(live.array("macros")), Value(list({macro(7)})));
}

TEST(AddingAProfile, changesNothingWhenThereAreFive) {
    const auto five = [] {
        return tree(list({profile(), profile(), profile(), profile(), profile()}), list());
    };
    const auto live = five();
    const auto added = addProfile(live, backupThatRuns({7}, list({macro(7)})), kNames);
    EXPECT_FALSE(added.index);
    EXPECT_EQ(added.leftOut, (Left{{What::profileBeyond, u"Game", 1}}));
    EXPECT_EQ(Value(live), Value(five()));
}

TEST(AddingAProfile, doesNothingWithoutATree) {
    EXPECT_FALSE(addProfile({}, backupOfProfile(tree(), 0), kNames).index);
    const auto live = tree();
    EXPECT_FALSE(addProfile(live, {}, kNames).index);
    EXPECT_EQ(Value(live), Value(tree()));
}

} // namespace
} // namespace quorvi::test
