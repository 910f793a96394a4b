#include "keyboard/KeyCodeConversion.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

using namespace quorvi;

namespace {

std::vector<unsigned> hexNumbers(const char* text) {
    std::istringstream stream(text);
    std::vector<unsigned> numbers;
    for (unsigned number = 0; stream >> std::hex >> number;)
        numbers.push_back(number);
    return numbers;
}

// clang-format off
const char* const kKeyOfUsage =
    "FF FF FF FF 00 0B 08 02 0E 03 05 04 22 26 28 25 "
    "2E 2D 1F 23 0C 0F 01 11 20 09 0D 07 10 06 12 13 "
    "14 15 17 16 1A 1C 19 1D 24 35 33 30 31 1B 18 21 "
    "1E 2A 2A 29 27 32 2B 2F 2C 39 7A 78 63 76 60 61 "
    "62 64 65 6D 67 6F 69 6B 71 72 73 74 75 77 79 7C "
    "7B 7D 7E 47 4B 43 4E 45 4C 53 54 55 56 57 58 59 "
    "5B 5C 52 41 0A 6E 7F 51 69 6B 71 FF FF FF FF FF "
    "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF 01 "
    "03 02 FF FF FF 5F FF 5E FF 5D FF FF FF FF FF FF "
    "68 66 FF FF FF FF FF FF FF FF FF FF FF FF FF FF "
    "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF "
    "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF "
    "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF "
    "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF "
    "3B 38 3A 37 3B 38 3A 37 FF FF FF FF FF FF FF FF "
    "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF ";

const char* const kUsageOfKey =
    "04 16 07 09 0B 0A 1D 1B 06 19 64 05 14 1A 08 15 "
    "1C 17 1E 1F 20 21 23 22 2E 26 24 2D 25 27 30 12 "
    "18 2F 0C 13 28 0F 0D 34 0E 33 31 36 38 11 10 37 "
    "2B 2C 35 2A 00 29 00 E3 E1 39 E2 E0 00 00 00 00 "
    "00 63 00 55 00 57 00 53 00 00 00 54 58 00 56 00 "
    "00 67 62 59 5A 5B 5C 5D 5E 5F 00 60 61 89 87 85 "
    "3E 3F 40 3C 41 42 91 44 90 46 00 47 00 43 65 45 "
    "00 48 49 4A 4B 4C 3D 4D 3B 4E 3A 50 4F 51 52 66 ";
// clang-format on

TEST(KeyCodeConversion, everyUsageHasTheKeyOfTheTable) {
    const std::vector<unsigned> expected = hexNumbers(kKeyOfUsage);
    ASSERT_EQ(expected.size(), 256U);
    for (unsigned usage = 0; usage < 256; ++usage)
        EXPECT_EQ(UsbToAdbKeycode(usage), expected[usage]) << "usage " << usage;
}

TEST(KeyCodeConversion, everyKeyHasTheLowestOfItsUsages) {
    const std::vector<unsigned> expected = hexNumbers(kUsageOfKey);
    ASSERT_EQ(expected.size(), 128U);
    for (unsigned key = 0; key < 128; ++key)
        EXPECT_EQ(AdbToUsbKeycode(key), expected[key]) << "key " << key;
}

TEST(KeyCodeConversion, keysAboveTheKeyboardHaveNoUsage) {
    for (unsigned key = 128; key < 1024; ++key)
        EXPECT_EQ(AdbToUsbKeycode(key), 0) << "key " << key;
}

TEST(KeyCodeConversion, knownUsages) {
    EXPECT_EQ(UsbToAdbKeycode(0x04), 0x00);
    EXPECT_EQ(UsbToAdbKeycode(0x29), 0x35);
    for (unsigned usage = 0x00; usage <= 0x03; ++usage)
        EXPECT_EQ(UsbToAdbKeycode(usage), 0xFF);
}

TEST(KeyCodeConversion, onlyTheLowByteOfAUsageCounts) {
    EXPECT_EQ(UsbToAdbKeycode(0x104), 0x00);
    EXPECT_EQ(UsbToAdbKeycode(0xFFFFFF29U), 0x35);
}

TEST(KeyCodeConversion, bothBackslashUsagesAreOneKey) {
    EXPECT_EQ(UsbToAdbKeycode(0x31), 0x2A);
    EXPECT_EQ(UsbToAdbKeycode(0x32), 0x2A);
    EXPECT_EQ(AdbToUsbKeycode(0x2A), 0x31);
}

TEST(KeyCodeConversion, printScreenScrollLockAndPauseAreF13ToF15) {
    EXPECT_EQ(UsbToAdbKeycode(0x46), 0x69);
    EXPECT_EQ(UsbToAdbKeycode(0x47), 0x6B);
    EXPECT_EQ(UsbToAdbKeycode(0x48), 0x71);
    EXPECT_EQ(UsbToAdbKeycode(0x68), 0x69);
    EXPECT_EQ(UsbToAdbKeycode(0x69), 0x6B);
    EXPECT_EQ(UsbToAdbKeycode(0x6A), 0x71);
    EXPECT_EQ(AdbToUsbKeycode(0x69), 0x46);
    EXPECT_EQ(AdbToUsbKeycode(0x6B), 0x47);
    EXPECT_EQ(AdbToUsbKeycode(0x71), 0x48);
}

TEST(KeyCodeConversion, volumeUsagesShareTheCodesOfLetters) {
    EXPECT_EQ(UsbToAdbKeycode(0x7F), 0x01);
    EXPECT_EQ(UsbToAdbKeycode(0x80), 0x03);
    EXPECT_EQ(UsbToAdbKeycode(0x81), 0x02);
    EXPECT_EQ(AdbToUsbKeycode(0x01), 0x16);
    EXPECT_EQ(AdbToUsbKeycode(0x03), 0x09);
    EXPECT_EQ(AdbToUsbKeycode(0x02), 0x07);
}

TEST(KeyCodeConversion, leftAndRightModifierKeysAreOneKey) {
    for (const unsigned right : {0U, 4U}) {
        EXPECT_EQ(UsbToAdbKeycode(0xE0 + right), 0x3B);
        EXPECT_EQ(UsbToAdbKeycode(0xE1 + right), 0x38);
        EXPECT_EQ(UsbToAdbKeycode(0xE2 + right), 0x3A);
        EXPECT_EQ(UsbToAdbKeycode(0xE3 + right), 0x37);
    }
    EXPECT_EQ(AdbToUsbKeycode(0x37), 0xE3);
}

TEST(KeyCodeConversion, powerKeyAndNoKey) {
    EXPECT_EQ(AdbToUsbKeycode(0x7F), 0x66);
    EXPECT_EQ(AdbToUsbKeycode(0xFF), 0x00);
    EXPECT_EQ(AdbToUsbKeycode(0x34), 0x00); // no usage has this key
}

} // namespace
