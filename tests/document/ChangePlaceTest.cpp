// The place of a change: the tabs, the macro and its step.
#include "document/ChangePlace.h"

#include <gtest/gtest.h>

#include "model/Trees.h"
#include "plist/DeepCopy.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using Tabs = std::vector<PlaceTab>;

class ChangePlaceTest : public testing::Test {
  public: // the cases below are no members
    [[nodiscard]] ChangePlace place() const { return placeOfChange(from, to); }
    [[nodiscard]] Dictionary profileNow() const { return to.array("profiles").dictionary(1); }
    [[nodiscard]] Dictionary settingsNow() const { return to.dictionary("settings"); }

    Dictionary from = tree(list({profile(u"A"), profile(u"B")}), list({macro(1), macro(2), macro(3)}));
    Dictionary to = plist::mutableDeepCopy(from);
};

TEST_F(ChangePlaceTest, isNowhereWhenNothingHasChanged) {
    EXPECT_EQ(place().tabs, Tabs());
    EXPECT_EQ(place().macro, -1);
}

TEST_F(ChangePlaceTest, isTheTabThatShowsIt) {
    struct Case {
        std::function<void(const ChangePlaceTest&)> change;
        Tabs tabs;
    };
    const auto driver = [](const ChangePlaceTest& test) { return test.profileNow().dictionary("driver"); };
    const Case cases[] = {
        {[](auto& test) { test.profileNow().dictionary("buttons").dictionary("01").set("command", 4); },
            {PlaceTab::buttons}},
        {[](auto& test) { test.profileNow().array("stages").dictionary(0).set("dpix", 4); },
            {PlaceTab::sensitivity}},
        {[](auto& test) { test.profileNow().set("defaultstage", 1); }, {PlaceTab::sensitivity}},
        {[&](auto& test) { driver(test).set("enableaccel", true); }, {PlaceTab::sensitivity}},
        {[&](auto& test) { driver(test).set("acceleration", 2.0); }, {PlaceTab::sensitivity}},
        {[&](auto& test) { driver(test).set("sensitivityosd", true); }, {PlaceTab::sensitivity}},
        {[&](auto& test) { driver(test).set("profileosd", true); }, {PlaceTab::profiles}},
        {[&](auto& test) { driver(test).set("application", u"X"); }, {PlaceTab::profiles}},
        {[&](auto& test) { driver(test).set("autoswitch", true); }, {PlaceTab::profiles}},
        {[](auto& test) { test.profileNow().set("name", u"X"); }, {PlaceTab::profiles}},
        {[](auto& test) { test.profileNow().set("ledstate", 0); }, {PlaceTab::device}},
        {[](auto& test) { test.settingsNow().set("pollingrate", 125); }, {PlaceTab::device}},
        {[](auto& test) { test.settingsNow().set("dpix", 4); }, {PlaceTab::sensitivity}},
        {[](auto& test) { test.settingsNow().set("profileid", 1); }, {PlaceTab::profiles}},
        {[](auto& test) { test.to.array("profiles").remove(1); }, {PlaceTab::profiles}},
        {[](auto& test) { test.to.array("macros").dictionary(1).set("name", u"X"); }, {PlaceTab::macros}},
    };
    for (const Case& one : cases) {
        to = plist::mutableDeepCopy(from);
        one.change(*this);
        EXPECT_EQ(place().tabs, one.tabs) << "case " << &one - cases;
    }
}

TEST_F(ChangePlaceTest, isAllTabsThatShowIt) {
    to.array("macros").remove(0);
    profileNow().dictionary("buttons").dictionary("09").removeAll();
    EXPECT_EQ(place().tabs, (Tabs{PlaceTab::macros, PlaceTab::buttons}));
}

TEST_F(ChangePlaceTest, isTheMacroAndItsStep) {
    to.array("macros").dictionary(2).array("steps").dictionary(1).set("delay", 70);
    EXPECT_EQ(place().macro, 2);
    EXPECT_EQ(place().step, 1);
}

TEST_F(ChangePlaceTest, isTheLastStepThatIsLeft) {
    to.array("macros").dictionary(2).array("steps").remove(1);
    EXPECT_EQ(place().step, 0);
    to.array("macros").dictionary(2).array("steps").removeAll();
    EXPECT_EQ(place().macro, 2);
    EXPECT_EQ(place().step, -1);
}

TEST_F(ChangePlaceTest, isTheMacroThatHasComeOrTakenThePlaceOfTheOneThatWent) {
    to.array("macros").insert(1, macro(9, u"New"));
    EXPECT_EQ(place().macro, 1);
    EXPECT_EQ(place().step, -1);
    to = plist::mutableDeepCopy(from);
    to.array("macros").remove(2);
    EXPECT_EQ(place().macro, 1);
    to.array("macros").removeAll();
    EXPECT_EQ(place().macro, -1);
}

TEST_F(ChangePlaceTest, ofWrongTypesIsNowhereElse) {
    to.set("macros", u"none");
    to.set("profiles", 5);
    to.set("settings", list());
    EXPECT_EQ(place().macro, -1);
}

} // namespace
} // namespace quorvi
