#include "layouts/EvdevKeys.h"

#include <gtest/gtest.h>

#include "keyboard/KeyCodeConversion.h"

using namespace quorvi;

namespace {

// The input layer's keys of the USB usages from 0x04 to 0x6A, as the kernel's HID driver reports them.
constexpr std::uint16_t kEvdevKeyOfUsage[] = {30, 48, 46, 32, 18, 33, 34, 35, 23, 36, 37, 38, 50, 49, 24, 25,
    16, 19, 31, 20, 22, 47, 17, 45, 21, 44, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 28, 1, 14, 15, 57, 12, 13, 26, 27,
    43, 43, 39, 40, 41, 51, 52, 53, 58, 59, 60, 61, 62, 63, 64, 65, 66, 67, 68, 87, 88, 99, 70, 119, 110, 102,
    104, 111, 107, 109, 106, 105, 108, 103, 69, 98, 55, 74, 78, 96, 79, 80, 81, 75, 76, 77, 71, 72, 73, 82,
    83, 86, 127, 116, 117, 183, 184, 185};

struct UsageAndKey {
    unsigned usage;
    std::uint16_t evdevKey;
};

constexpr UsageAndKey kFurtherKeys[] = {{0x85, 121}, {0x87, 89}, {0x89, 124}, {0x90, 122}, {0x91, 123},
    {0xE0, 29}, {0xE1, 42}, {0xE2, 56}, {0xE3, 125}, {0xE4, 97}, {0xE5, 54}, {0xE6, 100}, {0xE7, 126}};

void expectKeyOfUsage(unsigned usage, std::uint16_t evdevKey) {
    const std::uint8_t virtualKey = UsbToAdbKeycode(usage);
    if (AdbToUsbKeycode(virtualKey) == usage) {
        EXPECT_EQ(evdevKeycode(virtualKey), evdevKey) << "usage " << usage;
    }
}

TEST(EvdevKeys, everyKeyOfAUsbKeyboardHasTheCodeOfItsUsage) {
    ASSERT_EQ(std::size(kEvdevKeyOfUsage), 0x6BU - 0x04U);
    for (unsigned usage = 0x04; usage <= 0x6A; ++usage)
        EXPECT_EQ(virtualKeycode(kEvdevKeyOfUsage[usage - 4]), UsbToAdbKeycode(usage)) << "usage " << usage;
    for (const UsageAndKey& key : kFurtherKeys)
        EXPECT_EQ(virtualKeycode(key.evdevKey), UsbToAdbKeycode(key.usage)) << "usage " << key.usage;
}

TEST(EvdevKeys, everyVirtualKeyOfAUsageLeadsToTheKeyOfThatUsage) {
    for (unsigned usage = 0x04; usage <= 0x6A; ++usage)
        expectKeyOfUsage(usage, kEvdevKeyOfUsage[usage - 4]);
    for (const UsageAndKey& key : kFurtherKeys)
        expectKeyOfUsage(key.usage, key.evdevKey);
}

TEST(EvdevKeys, positionsOfTheIsoAndJapaneseKeys) {
    EXPECT_EQ(evdevKeycode(0x0A), 86);
    EXPECT_EQ(evdevKeycode(0x5D), 124);
    EXPECT_EQ(evdevKeycode(0x5E), 89);
    EXPECT_EQ(evdevKeycode(0x5F), 121);
    EXPECT_EQ(evdevKeycode(0x66), 123);
    EXPECT_EQ(evdevKeycode(0x68), 122);
}

TEST(EvdevKeys, ofTwoKeysWithOneCodeTheLowestUsageIsTheWayBack) {
    EXPECT_EQ(evdevKeycode(0x69), 99);  // Print Screen, not F13
    EXPECT_EQ(evdevKeycode(0x37), 125); // left, not right
    EXPECT_EQ(evdevKeycode(0x72), 110); // Insert, not Help
}

TEST(EvdevKeys, f16ToF20) {
    EXPECT_EQ(virtualKeycode(186), 0x6A);
    EXPECT_EQ(virtualKeycode(187), 0x40);
    EXPECT_EQ(virtualKeycode(188), 0x4F);
    EXPECT_EQ(virtualKeycode(189), 0x50);
    EXPECT_EQ(virtualKeycode(190), 0x5A);
}

TEST(EvdevKeys, keysThatTheOtherSideLacks) {
    EXPECT_EQ(virtualKeycode(0), 255);
    EXPECT_EQ(virtualKeycode(113), 255); // mute
    EXPECT_EQ(virtualKeycode(767), 255);
    EXPECT_EQ(evdevKeycode(0x34), 0);
    EXPECT_EQ(evdevKeycode(0x80), 0);
    EXPECT_EQ(evdevKeycode(255), 0);
}

TEST(EvdevKeys, scanCodesOfXAreEightHigher) {
    EXPECT_EQ(virtualKeycode(50 - xkbKeycodeOffset), 0x38); // left Shift
    EXPECT_EQ(virtualKeycode(62 - xkbKeycodeOffset), 0x38); // right Shift
}

} // namespace
