// Two programs' changes to one tree: the merged result, and the reported conflicts.
#include "model/SettingsMerge.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "model/Trees.h"
#include "plist/DeepCopy.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;
using plist::Value;

Dictionary profile(const char16_t* name) {
    return dict({{"name", name}, {"ledstate", 3}, {"defaultstage", 1},
        {"stages", list({dict({{"dpix", 800}, {"dpiy", 800}, {"independentxy", false}}),
                       dict({{"dpix", 1600}, {"dpiy", 1600}, {"independentxy", false}})})},
        {"buttons", dict({{"01", dict({{"command", 1}})}, {"02", dict({{"command", 2}})}})},
        {"driver", dict({{"application", u""}, {"executable", u""}, {"acceleration", 1.5}})}});
}

Dictionary macro(int id, const char16_t* name) {
    return dict(
        {{"macroid", id}, {"name", name}, {"steps", list({dict({{"delay", 10}}), dict({{"delay", 20}})})}});
}

class SettingsMerge : public testing::Test {
  protected:
    /// Merges the two; returns false for a conflict.
    bool merge() {
        const auto result = mergeSettings(base, ours, theirs);
        merged = result.tree;
        return !result.conflict;
    }
    static Dictionary profileOf(const Dictionary& tree, std::size_t index) {
        return tree.array("profiles").dictionary(index);
    }
    static Dictionary settingsOf(const Dictionary& tree) { return tree.dictionary("settings"); }
    static Array macrosOf(const Dictionary& tree) { return tree.array("macros"); }
    static void assign(const Dictionary& tree, std::size_t profile, const char* button, int macroId) {
        profileOf(tree, profile)
            .dictionary("buttons")
            .set(button, dict({{"command", 65}, {"param1", macroId}, {"param2", 1}}));
    }
    /// The macro that the button runs; -1 for none.
    [[nodiscard]] int runBy(std::size_t profile, const char* button) const {
        const auto assignment = profileOf(merged, profile).dictionary("buttons").dictionary(button);
        return Value(assignment) ==
                       Value(dict({{"command", 65}, {"param1", assignment.integer("param1")}, {"param2", 1}}))
                   ? assignment.integer("param1")
                   : -1;
    }

    Dictionary base = dict({{"version", 6},
        {"settings",
            dict({{"profileid", 1}, {"stage", 1}, {"dpix", 800}, {"dpiy", 800}, {"pollingrate", 500}})},
        {"profiles", list({profile(u"One"), profile(u"Two")})},
        {"macros", list({macro(1, u"A"), macro(2, u"B")})}});
    Dictionary ours = plist::mutableDeepCopy(base);
    Dictionary theirs = plist::mutableDeepCopy(base);
    Dictionary merged;
};

TEST_F(SettingsMerge, takesChangesOfDifferentKeysFromBoth) {
    settingsOf(ours).set("pollingrate", 1000);
    profileOf(theirs, 1).dictionary("driver").set("acceleration", 2.0);
    profileOf(theirs, 0).dictionary("buttons").set("02", dict({{"command", 9}}));
    profileOf(ours, 0).dictionary("buttons").set("01", dict({{"command", 8}}));
    ASSERT_TRUE(merge());
    EXPECT_EQ(settingsOf(merged).integer("pollingrate"), 1000);
    EXPECT_EQ(profileOf(merged, 1).dictionary("driver").real("acceleration"), 2.0);
    EXPECT_EQ(profileOf(merged, 0).dictionary("buttons").dictionary("01").integer("command"), 8);
    EXPECT_EQ(profileOf(merged, 0).dictionary("buttons").dictionary("02").integer("command"), 9);
}

TEST_F(SettingsMerge, takesOursOfTheSameKeyAndSaysSo) {
    settingsOf(ours).set("pollingrate", 1000);
    settingsOf(theirs).set("pollingrate", 125);
    profileOf(theirs, 0).set("name", u"Uno");
    EXPECT_FALSE(merge());
    EXPECT_EQ(settingsOf(merged).integer("pollingrate"), 1000);
    EXPECT_EQ(profileOf(merged, 0).string("name"), u"Uno");
}

TEST_F(SettingsMerge, agreesWhereBothHaveChangedTheSameAlike) {
    for (const auto& tree : {ours, theirs})
        settingsOf(tree).set("pollingrate", 125);
    EXPECT_TRUE(merge());
    EXPECT_EQ(Value(merged), Value(ours));
}

TEST_F(SettingsMerge, leavesAProfileThatTheOtherHasRemoved) {
    settingsOf(ours).set("profileid", 2);
    settingsOf(ours).set("dpix", 1600);
    profileOf(theirs, 0).set("defaultstage", 2);
    settingsOf(theirs).set("stage", 2);
    theirs.array("profiles").remove(1);
    EXPECT_FALSE(merge()); // both have chosen
    EXPECT_EQ(Value(settingsOf(merged)), Value(settingsOf(theirs)));
    settingsOf(theirs).set("stage", 1);
    EXPECT_TRUE(merge());
    EXPECT_EQ(Value(settingsOf(merged)), Value(settingsOf(theirs)));
}

TEST_F(SettingsMerge, saysThatTheirChosenProfileIsGone) {
    settingsOf(theirs).set("profileid", 2);
    ours.array("profiles").remove(1);
    EXPECT_FALSE(merge());
    EXPECT_EQ(Value(settingsOf(merged)), Value(settingsOf(ours)));
}

TEST_F(SettingsMerge, leavesAStageThatTheOtherHasRemoved) {
    settingsOf(ours).set("stage", 2);
    profileOf(theirs, 0).array("stages").remove(1);
    EXPECT_TRUE(merge());
    EXPECT_EQ(settingsOf(merged).integer("stage"), 1);
}

TEST_F(SettingsMerge, keepsAStageThatWasNeverThere) {
    settingsOf(ours).set("profileid", 2);
    settingsOf(ours).set("stage", 5); // shown as the last one
    settingsOf(theirs).set("pollingrate", 125);
    EXPECT_TRUE(merge());
    EXPECT_EQ(settingsOf(merged).integer("profileid"), 2);
    EXPECT_EQ(settingsOf(merged).integer("stage"), 5);
}

TEST_F(SettingsMerge, leavesACurrentProfileAloneThatNeitherHas) {
    settingsOf(base).set("profileid", 7);
    settingsOf(theirs).set("profileid", 8);
    settingsOf(ours).set("profileid", 7);
    EXPECT_TRUE(merge());
    EXPECT_EQ(settingsOf(merged).integer("profileid"), 8);
}

TEST_F(SettingsMerge, takesRemovedAndNewKeysForChanges) {
    base.set("firmware", 1);
    ours.set("ours", 1);
    theirs.set("firmware", 1);
    theirs.set("theirs", 2);
    ASSERT_TRUE(merge());
    EXPECT_FALSE(merged.has("firmware"));
    EXPECT_EQ(merged.integer("ours"), 1);
    EXPECT_EQ(merged.integer("theirs"), 2);
    theirs.set("firmware", 2); // changed there, removed here
    EXPECT_FALSE(merge());
}

TEST_F(SettingsMerge, joinsTheLightsOneByOne) {
    profileOf(ours, 0).set("ledstate", 2);
    profileOf(theirs, 0).set("ledstate", 1);
    ASSERT_TRUE(merge());
    EXPECT_EQ(profileOf(merged, 0).integer("ledstate"), 0);
}

TEST_F(SettingsMerge, keepsAnAssignmentWhole) {
    profileOf(ours, 0).dictionary("buttons").set("01", dict({{"command", 8}}));
    profileOf(theirs, 0).dictionary("buttons").set("01", dict({{"command", 1}, {"param1", 7}}));
    EXPECT_FALSE(merge());
    EXPECT_EQ(
        Value(profileOf(merged, 0).dictionary("buttons").dictionary("01")), Value(dict({{"command", 8}})));
}

TEST_F(SettingsMerge, keepsAnApplicationWhole) {
    profileOf(ours, 0).dictionary("driver").set("application", u"Ours");
    profileOf(theirs, 0).dictionary("driver").set("executable", u"theirs");
    EXPECT_FALSE(merge());
    EXPECT_EQ(profileOf(merged, 0).dictionary("driver").string("executable"), u"");
}

TEST_F(SettingsMerge, keepsTheCurrentProfileWithItsResolution) {
    settingsOf(ours).set("dpix", 1200);
    settingsOf(theirs).set("dpiy", 1300);
    ASSERT_TRUE(merge()); // in one stage these are two things
    EXPECT_EQ(settingsOf(merged).integer("dpix"), 1200);
    EXPECT_EQ(settingsOf(merged).integer("dpiy"), 1300);
    settingsOf(theirs).set("profileid", 2);
    EXPECT_FALSE(merge()); // else the stage of one profile would get the resolution of another
    EXPECT_EQ(Value(settingsOf(merged)), Value(settingsOf(ours)));
}

TEST_F(SettingsMerge, keepsADefaultStageWithTheStagesThatItIsOneOf) {
    profileOf(ours, 0).array("stages").remove(1);
    profileOf(theirs, 0).set("defaultstage", 2);
    EXPECT_FALSE(merge());
    EXPECT_EQ(profileOf(merged, 0).integer("defaultstage"), 1);
}

TEST_F(SettingsMerge, joinsStagesAndStepsOneByOneUnlessTheirNumberIsAnother) {
    profileOf(ours, 0).array("stages").dictionary(0).set("dpix", 1);
    profileOf(theirs, 0).array("stages").dictionary(1).set("dpix", 2);
    macrosOf(ours).dictionary(0).array("steps").dictionary(0).set("delay", 3);
    macrosOf(theirs).dictionary(0).array("steps").dictionary(1).set("delay", 4);
    ASSERT_TRUE(merge());
    EXPECT_EQ(profileOf(merged, 0).array("stages").dictionary(0).integer("dpix"), 1);
    EXPECT_EQ(profileOf(merged, 0).array("stages").dictionary(1).integer("dpix"), 2);
    EXPECT_EQ(macrosOf(merged).dictionary(0).array("steps").dictionary(0).integer("delay"), 3);
    EXPECT_EQ(macrosOf(merged).dictionary(0).array("steps").dictionary(1).integer("delay"), 4);
    macrosOf(theirs).dictionary(0).array("steps").remove(1);
    EXPECT_FALSE(merge());
    EXPECT_EQ(macrosOf(merged).dictionary(0).array("steps").size(), 2U);
}

TEST_F(SettingsMerge, hasTheProfilesAndMacrosThatBothHaveAdded) {
    ours.array("profiles").append(profile(u"New"));
    theirs.array("profiles").append(profile(u"New"));
    profileOf(theirs, 0).set("ledstate", 0);
    profileOf(theirs, 2).set("ledstate", 0);
    macrosOf(ours).append(macro(3, u"C"));
    macrosOf(theirs).append(macro(4, u"C"));
    ASSERT_TRUE(merge());
    ASSERT_EQ(merged.array("profiles").size(), 4U);
    EXPECT_EQ(profileOf(merged, 2).string("name"), u"New");
    EXPECT_EQ(profileOf(merged, 3).string("name"), u"New 2");
    EXPECT_EQ(profileOf(merged, 3).integer("ledstate"), 0);
    EXPECT_EQ(profileOf(merged, 0).integer("ledstate"), 0);
    ASSERT_EQ(macrosOf(merged).size(), 4U);
    EXPECT_EQ(macrosOf(merged).dictionary(3).integer("macroid"), 4);
    EXPECT_EQ(macrosOf(merged).dictionary(3).string("name"), u"C 2");
}

TEST_F(SettingsMerge, takesNoMoreThanTheLimits) {
    ours.array("profiles").append(profile(u"New"));
    for (int i = 0; i < 3; ++i)
        theirs.array("profiles").append(profile(u"P"));
    EXPECT_FALSE(merge());
    EXPECT_EQ(merged.array("profiles").size(), 3U);
}

TEST_F(SettingsMerge, givesOursAFreeIdentifierWhereBothHaveAddedAMacroUnderOne) {
    macrosOf(ours).append(macro(3, u"C"));
    assign(ours, 0, "01", 3);
    assign(ours, 1, "09", 3);
    assign(ours, 1, "08", 2);
    macrosOf(theirs).append(macro(3, u"D"));
    assign(theirs, 0, "02", 3);
    ASSERT_TRUE(merge());
    ASSERT_EQ(macrosOf(merged).size(), 4U);
    EXPECT_EQ(Value(macrosOf(merged).dictionary(2)), Value(macro(0, u"C")));
    EXPECT_EQ(Value(macrosOf(merged).dictionary(3)), Value(macro(3, u"D")));
    EXPECT_EQ(runBy(0, "01"), 0);
    EXPECT_EQ(runBy(1, "09"), 0);
    EXPECT_EQ(runBy(1, "08"), 2);
    EXPECT_EQ(runBy(0, "02"), 3);
    EXPECT_EQ(macrosOf(ours).dictionary(2).integer("macroid"), 3); // the trees stay unchanged
}

TEST_F(SettingsMerge, givesEachOfSeveralMacrosAnIdentifierOfItsOwn) {
    for (const int id : {0, 3, 4}) {
        macrosOf(ours).append(macro(id, u"O"));
        macrosOf(theirs).append(macro(id == 4 ? 69 : id, u"T"));
    }
    assign(ours, 0, "01", 3);
    assign(ours, 0, "02", 4);
    ASSERT_TRUE(merge());
    std::vector<std::int32_t> identifiers;
    for (std::size_t i = 0; i < macrosOf(merged).size(); ++i)
        identifiers.push_back(macrosOf(merged).dictionary(i).integer("macroid"));
    EXPECT_EQ(identifiers, (std::vector<std::int32_t>{1, 2, 5, 6, 4, 0, 3, 69}));
    EXPECT_EQ(runBy(0, "01"), 6);
    EXPECT_EQ(runBy(0, "02"), 4);
}

TEST_F(SettingsMerge, takesOursWhereOneButtonRunsTheNewMacrosOfBoth) {
    for (const auto& [tree, name] : {std::pair(ours, u"C"), std::pair(theirs, u"D")}) {
        macrosOf(tree).append(macro(3, name));
        assign(tree, 0, "01", 3);
    }
    EXPECT_FALSE(merge());
    EXPECT_EQ(macrosOf(merged).size(), 4U);
    EXPECT_EQ(runBy(0, "01"), 0);
}

// Otherwise their next edit, made before they re-read the file, would change ours.
TEST_F(SettingsMerge, isNoReasonToTakeTheirNewMacroForOursLater) {
    macrosOf(ours).append(macro(3, u"C"));
    macrosOf(theirs).append(macro(3, u"D"));
    ASSERT_TRUE(merge());
    base = theirs;
    const auto inFile = merged;
    ours = plist::mutableDeepCopy(theirs);
    macrosOf(ours).dictionary(2).array("steps").dictionary(0).set("delay", 99);
    theirs = inFile;
    EXPECT_FALSE(merge());
    EXPECT_EQ(Value(macrosOf(merged)), Value(macrosOf(ours)));
}

TEST_F(SettingsMerge, hasOneMacroWhereBothHaveAddedTheSame) {
    macrosOf(ours).append(macro(3, u"C"));
    macrosOf(theirs).append(macro(3, u"C"));
    ASSERT_TRUE(merge());
    EXPECT_EQ(Value(macrosOf(merged)), Value(macrosOf(ours)));
}

TEST_F(SettingsMerge, givesNoIdentifierWhereTheMacrosAreTooManyOrHaveNone) {
    for (int id = 3; id < 9; ++id) {
        macrosOf(ours).append(macro(id, u"C"));
        if (id < 8)
            macrosOf(theirs).append(macro(id, u"D"));
    }
    EXPECT_FALSE(merge()); // 13
    EXPECT_EQ(Value(macrosOf(merged)), Value(macrosOf(ours)));
    ours = plist::mutableDeepCopy(base);
    theirs = plist::mutableDeepCopy(base);
    macrosOf(ours).append(macro(-1, u"C"));
    macrosOf(theirs).append(macro(-1, u"D"));
    EXPECT_FALSE(merge());
    EXPECT_EQ(Value(macrosOf(merged)), Value(macrosOf(ours)));
}

TEST_F(SettingsMerge, doesNotMixWhatHasMovedInAList) {
    theirs.array("profiles").remove(0);
    theirs.array("profiles").append(profile(u"Three"));
    profileOf(ours, 0).set("ledstate", 0);
    EXPECT_FALSE(merge());
    EXPECT_EQ(Value(merged.array("profiles")), Value(ours.array("profiles")));
    theirs = plist::mutableDeepCopy(base);
    macrosOf(theirs).remove(0);
    macrosOf(ours).dictionary(1).set("name", u"Bee");
    EXPECT_FALSE(merge());
    EXPECT_EQ(Value(macrosOf(merged)), Value(macrosOf(ours)));
}

TEST_F(SettingsMerge, takesAListThatOneAloneHasShortened) {
    macrosOf(theirs).remove(0);
    settingsOf(ours).set("pollingrate", 125);
    ASSERT_TRUE(merge());
    EXPECT_EQ(macrosOf(merged).size(), 1U);
}

TEST_F(SettingsMerge, clearsAnAssignmentToAMacroThatTheOtherHasRemoved) {
    macrosOf(theirs).remove(0);
    profileOf(ours, 0).dictionary("buttons").set("01", dict({{"command", 65}, {"param1", 1}}));
    ASSERT_TRUE(merge());
    EXPECT_EQ(profileOf(merged, 0).dictionary("buttons").dictionary("01").integer("command"), 0);
}

TEST_F(SettingsMerge, sharesNothingWithItsTrees) {
    settingsOf(theirs).set("pollingrate", 125);
    ASSERT_TRUE(merge());
    settingsOf(merged).set("pollingrate", 1);
    profileOf(merged, 0).set("name", u"Changed");
    EXPECT_EQ(settingsOf(theirs).integer("pollingrate"), 125);
    EXPECT_EQ(profileOf(ours, 0).string("name"), u"One");
    EXPECT_EQ(profileOf(theirs, 0).string("name"), u"One");
}

TEST(bringTo, keepsHandlesHandlesIntoTheTree) {
    const auto tree = dict({{"gone", 1}, {"list", list({dict({{"a", 1}}), dict({{"a", 2}})})}, {"kind", 1}});
    const auto items = tree.array("list");
    const auto first = items.dictionary(0);
    bringTo(
        tree, dict({{"kind", list({true})}, {"list", list({dict({{"a", 9}, {"b", 8}})})}, {"new", u"x"}}));
    EXPECT_EQ(Value(tree),
        Value(dict({{"kind", list({true})}, {"list", list({dict({{"a", 9}, {"b", 8}})})}, {"new", u"x"}})));
    first.set("a", 5);
    EXPECT_EQ(tree.array("list").dictionary(0).integer("a"), 5);
    bringTo(tree, dict({{"list", list({dict(), 3})}}));
    EXPECT_EQ(Value(tree), Value(dict({{"list", list({dict(), 3})}})));
    EXPECT_TRUE(tree.array("list").isSameAs(items));
}

} // namespace
} // namespace quorvi
