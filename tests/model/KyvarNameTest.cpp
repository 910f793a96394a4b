#include "model/KyvarName.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvi {
namespace {

using Bytes = std::vector<std::uint8_t>;
const std::u16string kTwentyUnits = u"ABCDEFGHIJKLMNOPQRST";

std::size_t store(const std::u16string& string, Bytes& buffer) {
    return KyvarStringToName(&string, buffer.data(), buffer.size());
}

TEST(KyvarStringToName, storesUnitsLowByteFirstAndPadsWithZeros) {
    Bytes name(10, 0xA5);
    EXPECT_EQ(store(u"A\u0416\u5B57", name), 6U);
    EXPECT_EQ(name, (Bytes{0x41, 0x00, 0x16, 0x04, 0x57, 0x5B, 0, 0, 0, 0}));
}

TEST(KyvarStringToName, writesNoByteOrderMarkButKeepsOneOfTheString) {
    Bytes name(4, 0xA5);
    EXPECT_EQ(store(u"\uFEFFA", name), 4U);
    EXPECT_EQ(name, (Bytes{0xFF, 0xFE, 0x41, 0x00}));
}

TEST(KyvarStringToName, cutsTheStringAtTheSize) {
    Bytes name(40, 0xA5);
    EXPECT_EQ(store(kTwentyUnits + u"U", name), 40U);
    EXPECT_EQ(name[38], 'T');
    EXPECT_EQ(name[39], 0);
}

TEST(KyvarStringToName, cutsASurrogatePair) {
    Bytes name(4, 0xA5);
    EXPECT_EQ(store(u"A\U0001F600", name), 4U);
    EXPECT_EQ(name, (Bytes{0x41, 0x00, 0x3D, 0xD8}));
}

TEST(KyvarStringToName, cutsAUnitAtAnOddSize) {
    Bytes name(3, 0xA5);
    EXPECT_EQ(store(u"\u0416\u0417", name), 3U);
    EXPECT_EQ(name, (Bytes{0x16, 0x04, 0x17}));
}

TEST(KyvarStringToName, leavesBytesBehindTheSizeAlone) {
    Bytes name(6, 0xA5);
    const std::u16string string = u"ABC";
    EXPECT_EQ(KyvarStringToName(&string, name.data(), 4), 4U);
    EXPECT_EQ(name, (Bytes{0x41, 0, 0x42, 0, 0xA5, 0xA5}));
}

TEST(KyvarStringToName, givesZeroAndAZeroedBufferForAnEmptyString) {
    Bytes name(4, 0xA5);
    EXPECT_EQ(store(u"", name), 0U);
    EXPECT_EQ(name, (Bytes{0, 0, 0, 0}));
}

TEST(KyvarStringToName, givesZeroAndAZeroedBufferForAMissingString) {
    Bytes name(4, 0xA5);
    EXPECT_EQ(KyvarStringToName(nullptr, name.data(), name.size()), 0U);
    EXPECT_EQ(name, (Bytes{0, 0, 0, 0}));
}

TEST(KyvarStringToName, givesZeroForAMissingBuffer) {
    EXPECT_EQ(KyvarStringToName(&kTwentyUnits, nullptr, 40), 0U);
}

TEST(KyvarNameLength, countsUnitsBeforeTheFirstZeroUnit) {
    // A zero byte inside a unit does not end the name.
    const Bytes name = {0x41, 0x00, 0x00, 0x04, 0x00, 0x00, 0x42, 0x00};
    EXPECT_EQ(KyvarNameLength(name.data(), name.size()), 2U);
}

TEST(KyvarNameLength, isAtMostHalfTheSize) {
    const Bytes name = {0x41, 0x00, 0x42, 0x00, 0x43};
    EXPECT_EQ(KyvarNameLength(name.data(), 5), 2U);
    EXPECT_EQ(KyvarNameLength(name.data(), 4), 2U);
    EXPECT_EQ(KyvarNameLength(name.data(), 1), 0U);
    EXPECT_EQ(KyvarNameLength(name.data(), 0), 0U);
}

TEST(KyvarNameLength, isZeroForAMissingName) {
    EXPECT_EQ(KyvarNameLength(nullptr, 40), 0U);
}

TEST(KyvarNameToString, readsUnitsLowByteFirst) {
    const Bytes name = {0x41, 0x00, 0x16, 0x04, 0x00, 0x00, 0x42, 0x00};
    EXPECT_EQ(KyvarNameToString(name.data(), name.size()), std::u16string(u"A\u0416"));
}

TEST(KyvarNameToString, givesAnEmptyStringWhenTheFirstUnitIsZero) {
    const Bytes name = {0, 0, 0x41, 0};
    EXPECT_EQ(KyvarNameToString(name.data(), name.size()), std::u16string());
}

TEST(KyvarNameToString, givesNothingForAMissingName) {
    EXPECT_EQ(KyvarNameToString(nullptr, 40), std::nullopt);
}

TEST(KyvarNameToString, readsTwentyUnitsWithoutTerminatorAndDropsTheTwentyFirst) {
    Bytes name(40);
    store(kTwentyUnits, name);
    EXPECT_EQ(KyvarNameToString(name.data(), name.size()), kTwentyUnits);
    store(kTwentyUnits + u"U", name);
    EXPECT_EQ(KyvarNameToString(name.data(), name.size()), kTwentyUnits);
}

TEST(KyvarNameToString, keepsHalfASurrogatePair) {
    Bytes name(4);
    store(u"A\U0001F600", name);
    const std::u16string half = {u'A', char16_t{0xD83D}};
    EXPECT_EQ(KyvarNameToString(name.data(), name.size()), half);
}

TEST(isUnusedName, looksAtTheFirstTwoBytes) {
    KyvarName name = {};
    EXPECT_FALSE(isUnusedName(name));
    name[0] = 0xFF;
    EXPECT_FALSE(isUnusedName(name));
    name[1] = 0xFF;
    EXPECT_TRUE(isUnusedName(name));
    name[0] = 0;
    EXPECT_FALSE(isUnusedName(name));
}

TEST(KyvarBuffersAreIdentical, comparesUpTo1024Bytes) {
    Bytes a(1025, 7);
    Bytes b = a;
    EXPECT_TRUE(KyvarBuffersAreIdentical(a.data(), b.data(), 1024));
    EXPECT_TRUE(KyvarBuffersAreIdentical(a.data(), b.data(), 1));
    EXPECT_FALSE(KyvarBuffersAreIdentical(a.data(), b.data(), 1025));
    EXPECT_FALSE(KyvarBuffersAreIdentical(a.data(), b.data(), 0));
    b[1023] = 8;
    EXPECT_FALSE(KyvarBuffersAreIdentical(a.data(), b.data(), 1024));
    EXPECT_TRUE(KyvarBuffersAreIdentical(a.data(), b.data(), 1023));
}

TEST(KyvarBuffersAreIdentical, isFalseForAMissingBuffer) {
    const Bytes a(4, 7);
    EXPECT_FALSE(KyvarBuffersAreIdentical(a.data(), nullptr, 4));
    EXPECT_FALSE(KyvarBuffersAreIdentical(nullptr, a.data(), 4));
}

} // namespace
} // namespace quorvi
