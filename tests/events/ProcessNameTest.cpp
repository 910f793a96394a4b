#include "events/ProcessName.h"

#include <gtest/gtest.h>

namespace quorvi::events {
namespace {

TEST(ProcessName, MatchesInAnyCaseOfTheLetters) {
    EXPECT_TRUE(sameProcessName("KyvarQuorviHelper", "kyvarquorvihelper"));
    EXPECT_TRUE(sameProcessName("KyvarQuorviHelper", "KYVARQUORVIHELPER"));
    EXPECT_FALSE(sameProcessName("KyvarQuorviHelper", "KyvarQuorviHelpes"));
}

TEST(ProcessName, MatchesInItsExactLength) {
    EXPECT_FALSE(sameProcessName("KyvarQuorviHelper", "KyvarQuorviHelper2"));
    EXPECT_FALSE(sameProcessName("KyvarQuorviHelper", "KyvarQuorviHelpe"));
    EXPECT_FALSE(sameProcessName("", "a"));
    EXPECT_TRUE(sameProcessName("", ""));
}

TEST(ProcessName, FoldsNothingButTheLettersAToZ) {
    EXPECT_FALSE(sameProcessName("@", "`"));
    EXPECT_FALSE(sameProcessName("[", "{"));
    EXPECT_FALSE(sameProcessName("\xC4", "\xE4"));
}

TEST(UniqueName, IsTwoNumbers) {
    EXPECT_EQ(uniqueName({1, 42}), ":1.42");
    EXPECT_EQ(uniqueName({0xFFFFFFFF, 0}), ":4294967295.0");
    EXPECT_EQ(psnFromUniqueName(":1.42"), (ProcessSerialNumber{1, 42}));
    EXPECT_EQ(psnFromUniqueName(":4294967295.4294967295"), (ProcessSerialNumber{0xFFFFFFFF, 0xFFFFFFFF}));
}

TEST(UniqueName, OfAnyOtherFormIsNoProcess) {
    for (const char* name : {"", ":", ":1", ":1.", "1.2", ":1.2.3", ":1.x", ":-1.2", ":1.4294967296",
             ":4294967296.1", "com.kyvar.KyvarQuorviHelper"})
        EXPECT_EQ(psnFromUniqueName(name), std::nullopt) << name;
}

TEST(WellKnownName, IsThePrefixAndTheProcessName) {
    EXPECT_EQ(wellKnownName("KyvarQuorviHelper"), "com.kyvar.KyvarQuorviHelper");
    EXPECT_EQ(processNameOf("com.kyvar.KyvarQuorviHelper"), "KyvarQuorviHelper");
    EXPECT_EQ(processNameOf("com.kyvar.a.b"), "a.b");
    EXPECT_EQ(processNameOf("com.kyvar."), std::nullopt);
    EXPECT_EQ(processNameOf("com.kyvarQ.a"), std::nullopt);
    EXPECT_EQ(processNameOf("org.com.kyvar.a"), std::nullopt);
}

} // namespace
} // namespace quorvi::events
