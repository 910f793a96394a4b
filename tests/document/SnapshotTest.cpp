// Copies of the settings that share equal parts with an earlier copy.
#include "document/Snapshot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "model/Trees.h"
#include "plist/DeepCopy.h"
#include "plist/Writer.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;

TEST(Snapshot, isACopyThatNoEditReaches) {
    const Dictionary live = tree();
    const auto before = plist::writeXml(live);
    const Dictionary taken = snapshotOf(live, {});
    live.array("profiles").dictionary(0).set("name", u"Other");
    EXPECT_EQ(plist::writeXml(taken), before);
    EXPECT_NE(plist::writeXml(live), before);
}

TEST(Snapshot, isTheEarlierOneWhenNothingHasChanged) {
    const Dictionary live = tree();
    const Dictionary first = snapshotOf(live, {});
    EXPECT_TRUE(snapshotOf(live, first).isSameAs(first));
    EXPECT_TRUE(snapshotOf(first, first).isSameAs(first));
}

TEST(Snapshot, sharesWhatIsTheSameAndNothingElse) {
    const Dictionary live = tree(list({profile(u"A"), profile(u"B")}), list({macro(7)}));
    const Dictionary first = snapshotOf(live, {});
    live.array("profiles").dictionary(1).dictionary("buttons").dictionary("01").set("command", 5);
    const Dictionary second = snapshotOf(live, first);
    EXPECT_EQ(plist::writeXml(second), plist::writeXml(live));
    EXPECT_TRUE(second.array("macros").isSameAs(first.array("macros")));
    EXPECT_TRUE(second.array("profiles").dictionary(0).isSameAs(first.array("profiles").dictionary(0)));
    const Dictionary changed = second.array("profiles").dictionary(1);
    const Dictionary before = first.array("profiles").dictionary(1);
    EXPECT_FALSE(changed.isSameAs(before));
    EXPECT_TRUE(changed.array("stages").isSameAs(before.array("stages")));
    EXPECT_EQ(before.dictionary("buttons").dictionary("01").integer("command"), 1);
}

TEST(Snapshot, sharesTheItemsBehindOneThatHasComeOrGone) {
    const Dictionary live = tree(list(), list({macro(1), macro(2), macro(3)}));
    const Dictionary first = snapshotOf(live, {});
    live.array("macros").remove(0);
    const Dictionary second = snapshotOf(live, first);
    EXPECT_EQ(plist::writeXml(second), plist::writeXml(live));
    EXPECT_TRUE(second.array("macros").dictionary(0).isSameAs(first.array("macros").dictionary(1)));
    EXPECT_TRUE(second.array("macros").dictionary(1).isSameAs(first.array("macros").dictionary(2)));
    live.array("macros").insert(1, macro(9));
    const Dictionary third = snapshotOf(live, second);
    EXPECT_EQ(plist::writeXml(third), plist::writeXml(live));
    EXPECT_TRUE(third.array("macros").dictionary(2).isSameAs(second.array("macros").dictionary(1)));
}

TEST(Snapshot, knowsTheOrderOfKeys) {
    const Dictionary first = snapshotOf(dict({{"a", 1}, {"b", 2}}), {});
    const Dictionary turned = snapshotOf(dict({{"b", 2}, {"a", 1}}), first);
    EXPECT_FALSE(turned.isSameAs(first));
    EXPECT_EQ(turned.entries()[0].key, "b");
}

TEST(Snapshot, noticesWhatIsGoneAtTheEnd) {
    const Dictionary first = snapshotOf(dict({{"a", 1}, {"l", list({1, 2})}, {"b", 2}}), {});
    const Dictionary second = snapshotOf(dict({{"a", 1}, {"l", list({1})}}), first);
    EXPECT_EQ(second.size(), 2U);
    EXPECT_EQ(second.array("l").size(), 1U);
    EXPECT_EQ(first.array("l").size(), 2U);
}

TEST(Snapshot, takesEmptyContainersForContainers) {
    const Dictionary first = snapshotOf(dict({{"a", 1}}), {});
    const Dictionary second = snapshotOf(dict({{"a", dict()}}), first);
    EXPECT_TRUE(second.value("a").dictionary());
    EXPECT_TRUE(snapshotOf(dict(), {}));
    EXPECT_TRUE(snapshotOf(dict({{"a", list()}}), second).value("a").array());
}

TEST(Snapshot, takesNotANumberForTheSame) {
    const Dictionary first = snapshotOf(dict({{"a", std::nan("")}}), {});
    EXPECT_TRUE(snapshotOf(dict({{"a", std::nan("")}}), first).isSameAs(first));
}

TEST(SnapshotOfProfile, takesTheSettingsAndTheProfileAlone) {
    const Dictionary live = tree(list({profile(u"A"), profile(u"B")}), list({macro(7)}));
    const Dictionary first = snapshotOf(live, {});
    EXPECT_TRUE(snapshotOfProfile(live, first, 1).isSameAs(first));
    live.array("profiles").dictionary(1).set("ledstate", 1);
    live.dictionary("settings").set("stage", 1);
    const Dictionary second = snapshotOfProfile(live, first, 1);
    EXPECT_EQ(plist::writeXml(second), plist::writeXml(live));
    EXPECT_TRUE(second.array("macros").isSameAs(first.array("macros")));
    EXPECT_TRUE(second.array("profiles").dictionary(0).isSameAs(first.array("profiles").dictionary(0)));
    EXPECT_EQ(first.array("profiles").dictionary(1).integer("ledstate"), 3);
}

TEST(SnapshotOfProfile, withoutTheProfileIsOfAll) {
    const Dictionary live = tree();
    const Dictionary first = snapshotOf(live, {});
    live.set("version", 9);
    EXPECT_EQ(plist::writeXml(snapshotOfProfile(live, first, 7)), plist::writeXml(live));
    live.set("settings", u"none");
    EXPECT_EQ(plist::writeXml(snapshotOfProfile(live, first, 0)), plist::writeXml(live));
}

TEST(Snapshot, isNilOfNothing) {
    EXPECT_FALSE(snapshotOf({}, snapshotOf(tree(), {})));
}

} // namespace
} // namespace quorvi
