#include "base/Pattern.h"

#include <gtest/gtest.h>

namespace quorvi {
namespace {

TEST(FilledPattern, HasThePartsInItsPlaces) {
    EXPECT_EQ(filledPattern(u"^1 drücken", {u"A"}), u"A drücken");
    EXPECT_EQ(filledPattern(u"^2: ^1, ^2", {u"one", u"two"}), u"two: one, two");
}

TEST(FilledPattern, LeavesMarksInPartsAndMarksWithoutAPart) {
    EXPECT_EQ(filledPattern(u"^1 ^2", {u"^2", u"^1"}), u"^2 ^1");
    EXPECT_EQ(filledPattern(u"^0 ^2 ^x ^", {u"A"}), u"^0 ^2 ^x ^");
    EXPECT_EQ(filledPattern(u"", {u"A"}), u"");
}

TEST(SeparatorIn, IsWhatTheListHasBetweenItsPlaces) {
    EXPECT_EQ(separatorIn(u"^1, ^2, ^3"), u", ");
    EXPECT_EQ(separatorIn(u"^1^2"), u"");
    EXPECT_EQ(separatorIn(u"^2 before ^1"), u"");
    EXPECT_EQ(separatorIn(u"^1"), u"");
}

} // namespace
} // namespace quorvi
