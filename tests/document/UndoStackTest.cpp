// Undo and redo of actions on the settings, also together with other programs' changes.
#include "document/UndoStack.h"

#include <gtest/gtest.h>

#include "model/Trees.h"
#include "plist/DeepCopy.h"
#include "plist/Writer.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
using plist::Value;

class UndoStackTest : public testing::Test {
  protected:
    UndoStackTest() { stack.takeOver(live); }

    void rename(const char16_t* name) {
        profileOf(0).set("name", name);
        stack.note(live, std::u16string(u"Rename to ") + name);
    }
    [[nodiscard]] Dictionary profileOf(std::size_t index) const {
        return live.array("profiles").dictionary(index);
    }
    [[nodiscard]] std::u16string name() const { return profileOf(0).string("name"); }
    [[nodiscard]] std::string bytes() const { return plist::writeXml(live).value(); }

    Dictionary live = tree(list({profile(u"A"), profile(u"B")}), list({macro(1), macro(2)}));
    UndoStack stack;
};

TEST_F(UndoStackTest, offersNothingBeforeAnAction) {
    EXPECT_EQ(stack.undoOffer().able, Undoable::nothing);
    EXPECT_EQ(stack.redoOffer().able, Undoable::nothing);
    EXPECT_FALSE(stack.undo(live));
    EXPECT_FALSE(stack.redo(live));
}

TEST_F(UndoStackTest, takesTheLastActionBackFirst) {
    const std::string before = bytes();
    rename(u"X");
    const std::string between = bytes();
    rename(u"Y");
    EXPECT_EQ(stack.undoOffer().action, u"Rename to Y");
    ASSERT_TRUE(stack.undo(live));
    EXPECT_EQ(bytes(), between);
    EXPECT_EQ(stack.undoOffer().action, u"Rename to X");
    EXPECT_EQ(stack.redoOffer().action, u"Rename to Y");
    ASSERT_TRUE(stack.undo(live));
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(stack.undoOffer().able, Undoable::nothing);
}

TEST_F(UndoStackTest, doesAgainWhatWasTakenBack) {
    rename(u"X");
    rename(u"Y");
    const std::string after = bytes();
    stack.undo(live);
    stack.undo(live);
    ASSERT_TRUE(stack.redo(live));
    EXPECT_EQ(name(), u"X");
    ASSERT_TRUE(stack.redo(live));
    EXPECT_EQ(bytes(), after);
    EXPECT_EQ(stack.redoOffer().able, Undoable::nothing);
}

TEST_F(UndoStackTest, aNewActionEndsWhatCouldBeDoneAgain) {
    rename(u"X");
    stack.undo(live);
    rename(u"Z");
    EXPECT_EQ(stack.redoOffer().able, Undoable::nothing);
    stack.undo(live);
    EXPECT_EQ(name(), u"A");
}

TEST_F(UndoStackTest, handlesIntoTheTreeStayHandles) {
    const Dictionary current = profileOf(0);
    rename(u"X");
    stack.undo(live);
    EXPECT_TRUE(profileOf(0).isSameAs(current));
    EXPECT_EQ(current.string("name"), u"A");
    current.set("name", u"W"); // an edit after that must not reach what is kept
    stack.note(live, u"W");
    stack.undo(live);
    EXPECT_EQ(name(), u"A");
    stack.redo(live);
    EXPECT_EQ(name(), u"W");
}

TEST_F(UndoStackTest, whatChangesNothingIsNoAction) {
    stack.note(live, u"Nothing");
    EXPECT_EQ(stack.undoOffer().able, Undoable::nothing);
    rename(u"X");
    stack.undo(live);
    stack.note(live, u"Nothing");
    EXPECT_EQ(stack.redoOffer().able, Undoable::yes);
}

TEST_F(UndoStackTest, theOrderOfKeysComesBackToo) {
    const std::string before = bytes();
    profileOf(0).remove("name");
    stack.note(live, u"Remove");
    profileOf(0).dictionary("buttons").dictionary("01").removeAll();
    stack.note(live, u"Clear");
    stack.undo(live);
    stack.undo(live);
    EXPECT_EQ(bytes(), before);
}

TEST_F(UndoStackTest, itemsThatWereRemovedComeBackAtTheirPlaces) {
    const std::string before = bytes();
    live.array("macros").remove(0);
    stack.note(live, u"Delete macro");
    live.array("profiles").remove(0);
    stack.note(live, u"Delete profile");
    const std::string after = bytes();
    stack.undo(live);
    stack.undo(live);
    EXPECT_EQ(bytes(), before);
    stack.redo(live);
    stack.redo(live);
    EXPECT_EQ(bytes(), after);
}

TEST_F(UndoStackTest, aGroupIsOneActionUnderItsFirstName) {
    stack.beginGroup();
    rename(u"X");
    rename(u"Y");
    rename(u"Z");
    stack.endGroup();
    EXPECT_EQ(stack.undoOffer().action, u"Rename to X");
    stack.undo(live);
    EXPECT_EQ(name(), u"A");
    stack.redo(live);
    EXPECT_EQ(name(), u"Z");
    rename(u"V");
    stack.undo(live);
    EXPECT_EQ(name(), u"Z");
}

TEST_F(UndoStackTest, aGroupThatComesBackToItsBeginningIsNoAction) {
    stack.beginGroup();
    rename(u"X");
    rename(u"A");
    stack.endGroup();
    EXPECT_EQ(stack.undoOffer().able, Undoable::nothing);
}

TEST_F(UndoStackTest, aGroupThatIsNoActionLeavesWhatCanBeDoneAgain) {
    rename(u"X");
    stack.undo(live);
    stack.beginGroup();
    rename(u"Y");
    rename(u"A");
    stack.endGroup();
    ASSERT_EQ(stack.redoOffer().action, u"Rename to X");
    stack.redo(live);
    EXPECT_EQ(name(), u"X");
}

TEST_F(UndoStackTest, aGroupDoesNotReachBackToTheActionBefore) {
    rename(u"X");
    stack.beginGroup();
    rename(u"Y");
    stack.endGroup();
    stack.undo(live);
    EXPECT_EQ(name(), u"X");
}

TEST_F(UndoStackTest, keepsAHundredActions) {
    for (int number = 1; number <= 130; ++number) {
        live.dictionary("settings").set("pollingrate", number);
        stack.note(live, u"Rate");
    }
    int undone = 0;
    while (stack.undo(live))
        ++undone;
    EXPECT_EQ(undone, 100);
    EXPECT_EQ(live.dictionary("settings").integer("pollingrate"), 30);
}

TEST_F(UndoStackTest, othersChangesStay) {
    rename(u"X");
    profileOf(1).set("name", u"Theirs");
    stack.takeOver(live);
    EXPECT_EQ(stack.undoOffer().able, Undoable::yes);
    ASSERT_TRUE(stack.undo(live));
    EXPECT_EQ(name(), u"A");
    EXPECT_EQ(profileOf(1).string("name"), u"Theirs");
    ASSERT_TRUE(stack.redo(live));
    EXPECT_EQ(name(), u"X");
    EXPECT_EQ(profileOf(1).string("name"), u"Theirs");
}

TEST_F(UndoStackTest, whereOthersHaveChangedTheSameItIsRefused) {
    rename(u"X");
    profileOf(0).set("name", u"Theirs");
    stack.takeOver(live);
    EXPECT_EQ(stack.undoOffer().able, Undoable::othersChanged);
    EXPECT_EQ(stack.undoOffer().action, u"Rename to X");
    const std::string before = bytes();
    EXPECT_FALSE(stack.undo(live));
    EXPECT_EQ(bytes(), before);
    profileOf(0).set("name", u"X"); // and when they take that back, it can be undone again
    stack.takeOver(live);
    EXPECT_TRUE(stack.undo(live));
    EXPECT_EQ(name(), u"A");
}

TEST_F(UndoStackTest, whatOthersDoDuringADragIsNotPartOfIt) {
    stack.beginGroup();
    rename(u"X");
    profileOf(1).set("name", u"Theirs");
    stack.takeOver(live);
    rename(u"Y");
    stack.endGroup();
    ASSERT_TRUE(stack.undo(live));
    ASSERT_TRUE(stack.undo(live));
    EXPECT_EQ(name(), u"A");
    EXPECT_EQ(profileOf(1).string("name"), u"Theirs");
}

TEST_F(UndoStackTest, theStageThatTheMouseHasSwitchedToStays) {
    const Dictionary settings = live.dictionary("settings");
    settings.set("stage", 1);
    settings.set("profileid", 1);
    stack.takeOver(live);
    for (const Dictionary& holder : {settings, profileOf(0).array("stages").dictionary(0)})
        holder.set("dpix", 555);
    stack.note(live, u"Sensitivity");
    settings.set("stage", 2); // by the mouse's own button, with what belongs to it
    settings.set("dpix", 800);
    settings.set("dpiy", 1600);
    stack.takeOver(live);
    ASSERT_TRUE(stack.undo(live));
    EXPECT_EQ(profileOf(0).array("stages").dictionary(0).integer("dpix"), 400);
    EXPECT_EQ(settings.integer("stage"), 2);
    EXPECT_EQ(settings.integer("dpix"), 800);
}

TEST_F(UndoStackTest, whatThePanelPutsInOrderBelongsToTheAction) {
    const std::string before = bytes();
    live.array("profiles").remove(1);
    stack.note(live, u"Delete");
    profileOf(0).array("stages").dictionary(0).set("dpix", 1234);
    stack.takeRepairsOver(live);
    const std::string after = bytes();
    EXPECT_EQ(stack.undoOffer().able, Undoable::yes);
    stack.undo(live);
    EXPECT_EQ(bytes(), before);
    live.set("version", 7); // and of what undoing has left
    stack.takeRepairsOver(live);
    stack.redo(live);
    EXPECT_EQ(bytes(), after);
}

TEST_F(UndoStackTest, repairsOfWhatOthersHaveWrittenAreTheirs) {
    rename(u"X");
    profileOf(1).set("name", u"Theirs");
    stack.takeOver(live);
    profileOf(1).set("ledstate", 0);
    stack.takeRepairsOver(live);
    stack.undo(live);
    EXPECT_EQ(name(), u"A");
    EXPECT_EQ(profileOf(1).string("name"), u"Theirs");
    EXPECT_EQ(profileOf(1).integer("ledstate"), 0);
}

TEST_F(UndoStackTest, saysWhetherItHasSeenTheTree) {
    EXPECT_TRUE(stack.isAt(live));
    profileOf(0).set("name", u"X");
    EXPECT_FALSE(stack.isAt(live));
    stack.note(live, u"X");
    EXPECT_TRUE(stack.isAt(live));
}

TEST_F(UndoStackTest, tellsWhatTheTreeWasAndIs) {
    rename(u"X");
    const Restored change = stack.undo(live);
    EXPECT_EQ(change.from.array("profiles").dictionary(0).string("name"), u"X");
    EXPECT_EQ(change.to.array("profiles").dictionary(0).string("name"), u"A");
}

TEST(UndoStackWithoutATree, notesNothing) {
    UndoStack stack;
    const Dictionary live = tree();
    stack.note(live, u"First");
    EXPECT_EQ(stack.undoOffer().able, Undoable::nothing);
    stack.takeOver({});
    EXPECT_FALSE(stack.undo({}));
}

} // namespace
} // namespace quorvi
