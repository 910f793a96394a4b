#include <gtest/gtest.h>

#include <array>

#include "keyboard/KeyCodeConversion.h"

using namespace quorvi;

namespace {

TEST(ModifierConversion, everyModifierByteIsTheSumOfItsBits) {
    // What each bit from 0x01 to 0x80 stands for by itself.
    constexpr std::array<unsigned, 8> bits{0x1000, 0x0200, 0x0800, 0x0100, 0x1800, 0x0A00, 0x0100, 0x0000};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned expected = 0;
        for (unsigned bit = 0; bit < 8; ++bit)
            if ((byte >> bit & 1) != 0)
                expected |= bits[bit];
        EXPECT_EQ(UsbToAdbModifiers(byte), expected) << "byte " << byte;
    }
}

TEST(ModifierConversion, onlyTheLowByteOfTheArgumentCounts) {
    EXPECT_EQ(UsbToAdbModifiers(0xFFFFFF00U), 0x0000);
    EXPECT_EQ(UsbToAdbModifiers(0x0102U), 0x0200);
}

TEST(ModifierConversion, rightGuiIsIgnored) {
    EXPECT_EQ(UsbToAdbModifiers(0x80), 0x0000);
    EXPECT_EQ(UsbToAdbModifiers(0x88), 0x0100);
}

TEST(ModifierConversion, everyModifierSetHasTheByteOfTheTable) {
    // Indexed by Command 1, Shift 2, Caps Lock 4, Option 8, Control 16.
    constexpr std::array<unsigned, 32> expected{0x00, 0x40, 0x20, 0x60, 0x00, 0x40, 0x20, 0x60, 0x30, 0x70,
        0x30, 0x70, 0x30, 0x70, 0x30, 0x70, 0x10, 0x50, 0x30, 0x70, 0x10, 0x50, 0x30, 0x70, 0x30, 0x70, 0x30,
        0x70, 0x30, 0x70, 0x30, 0x70};
    for (unsigned mask = 0; mask < 0x10000; ++mask)
        ASSERT_EQ(AdbToUsbModifiers(mask), expected[mask >> 8 & 31]) << "mask " << mask;
}

TEST(ModifierConversion, knownCombinations) {
    EXPECT_EQ(AdbToUsbModifiers(0x0900), 0x70); // Command, Option
    EXPECT_EQ(AdbToUsbModifiers(0x1200), 0x30); // Control, Shift
    EXPECT_EQ(AdbToUsbModifiers(0x1100), 0x50); // Control, Command
    EXPECT_EQ(AdbToUsbModifiers(0x0400), 0x00); // Caps Lock
}

TEST(ModifierConversion, thereAndBack) {
    EXPECT_EQ(UsbToAdbModifiers(AdbToUsbModifiers(0x0800)), 0x1A00); // Option: Control, Shift, Option
    EXPECT_EQ(UsbToAdbModifiers(AdbToUsbModifiers(0x0100)), 0x0100);
}

// Right Control and right Shift read as Option as well, so these two do not come back alone.
TEST(ModifierConversion, shiftAndControlComeBackWithOption) {
    EXPECT_EQ(UsbToAdbModifiers(AdbToUsbModifiers(0x0200)), 0x0A00);
    EXPECT_EQ(UsbToAdbModifiers(AdbToUsbModifiers(0x1000)), 0x1800);
}

} // namespace
