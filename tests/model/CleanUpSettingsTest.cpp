#include <gtest/gtest.h>

#include "model/SettingsDocument.h"
#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using plist::Value;

const Value kCleared = dict({{"command", 0}});

Dictionary profileWithButtons(Dictionary buttons) {
    const auto result = profile();
    result.set("buttons", std::move(buttons));
    return result;
}

Value afterCleanUp(const Dictionary& tree, const char* button, std::size_t profileIndex = 0) {
    cleanUpSettings(tree);
    return tree.array("profiles").dictionary(profileIndex).dictionary("buttons").value(button);
}

TEST(cleanUpSettings, clearsAssignmentsToAMacroThatIsGone) {
    const auto live =
        tree(list({profileWithButtons(dict({{"01", assignment(65, 3, 9)}, {"02", assignment(65, 4, 9)}})),
                 profileWithButtons(dict({{"09", assignment(65, 3, 0)}}))}),
            list({macro(4)}));
    EXPECT_EQ(afterCleanUp(live, "01"), kCleared);
    EXPECT_EQ(afterCleanUp(live, "02"), Value(assignment(65, 4, 9)));
    EXPECT_EQ(afterCleanUp(live, "09", 1), kCleared);
}

TEST(cleanUpSettings, clearsAssignmentsToAProfileNumberOutsideTheCount) {
    const auto live = tree(
        list(
            {profileWithButtons(dict({{"01", assignment(34, 3, 0)}, {"02", assignment(34, 2, 0)},
                 {"03", assignment(34, 1, 0)}, {"04", assignment(34, 0, 0)}, {"05", assignment(34, -1, 0)}})),
                profile()}),
        list());
    EXPECT_EQ(afterCleanUp(live, "01"), kCleared);
    EXPECT_EQ(afterCleanUp(live, "02"), Value(assignment(34, 2, 0)));
    EXPECT_EQ(afterCleanUp(live, "03"), Value(assignment(34, 1, 0)));
    EXPECT_EQ(afterCleanUp(live, "04"), kCleared);
    EXPECT_EQ(afterCleanUp(live, "05"), kCleared);
}

TEST(cleanUpSettings, leavesEveryOtherCommandAlone) {
    const auto buttons = dict({{"01", assignment(49, 99, 1)}, {"02", assignment(1, 0, 0)},
        {"03", assignment(65 + 256, 99, 0)}, {"04", dict({{"note", u"kept"}})}, {"05", u"no assignment"}});
    const auto expected = dict({{"01", assignment(49, 99, 1)}, {"02", assignment(1, 0, 0)},
        {"03", assignment(65 + 256, 99, 0)}, {"04", dict({{"note", u"kept"}})}, {"05", u"no assignment"}});
    const auto live = tree(list({profileWithButtons(buttons)}), list());
    cleanUpSettings(live);
    EXPECT_EQ(Value(buttons), Value(expected));
}

TEST(cleanUpSettings, emptiesTheAssignmentInPlace) {
    const auto dangling = assignment(65, 3, 1);
    dangling.set("note", u"goes with the rest");
    const auto live = tree(list({profileWithButtons(dict({{"07", dangling}}))}), list());
    cleanUpSettings(live);
    EXPECT_EQ(Value(dangling), kCleared);
    EXPECT_TRUE(
        live.array("profiles").dictionary(0).dictionary("buttons").dictionary("07").isSameAs(dangling));
}

TEST(cleanUpSettings, looksAtTheNineButtonsOnly) {
    const auto live =
        tree(list({profileWithButtons(dict({{"10", assignment(65, 3, 0)}, {"1", assignment(65, 3, 0)}}))}),
            list());
    EXPECT_EQ(afterCleanUp(live, "10"), Value(assignment(65, 3, 0)));
    EXPECT_EQ(afterCleanUp(live, "1"), Value(assignment(65, 3, 0)));
}

TEST(cleanUpSettings, neverFindsAMacroByANegativeIdentifier) {
    const auto live =
        tree(list({profileWithButtons(dict({{"01", assignment(65, -1, 0)}}))}), list({macro(-1)}));
    EXPECT_EQ(afterCleanUp(live, "01"), kCleared);
}

TEST(cleanUpSettings, takesMissingMacrosForNone) {
    const auto live = tree(list({profileWithButtons(dict({{"01", assignment(65, 0, 0)}}))}), list());
    live.remove("macros");
    EXPECT_EQ(afterCleanUp(live, "01"), kCleared);
}

TEST(cleanUpSettings, countsProfilesOfAnyKind) {
    const auto live = tree(list({profileWithButtons(dict({{"01", assignment(34, 2, 0)}})), 5}), list());
    EXPECT_EQ(afterCleanUp(live, "01"), Value(assignment(34, 2, 0)));
}

TEST(cleanUpSettings, doesNothingWithoutATreeOrProfiles) {
    cleanUpSettings({});
    const auto empty = dict();
    cleanUpSettings(empty);
    EXPECT_EQ(Value(empty), Value(dict()));
}

} // namespace
} // namespace quorvi
