#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

TEST(Keys, AreConvertedBetweenUsagesAndVirtualKeyCodes) {
    expectDone({"usb-to-adb", "4"}, "0\n");
    expectDone({"usb-to-adb", "0x28"}, "36\n");
    expectDone({"usb-to-adb", "0X2C"}, "49\n");
    expectDone({"usb-to-adb", "0"}, "255\n");
    expectDone({"adb-to-usb", "36"}, "40\n");
    expectDone({"adb-to-usb", "0x31"}, "44\n");
    expectDone({"adb-to-usb", "255"}, "0\n");
}

TEST(Keys, AreNamedWithTheirModifiers) {
    expectDone({"key-name", "255"}, "(none)\n");
    expectDone({"key-name", "0xFF", "0x100"}, "Command\n");
    const auto plain = quorvictl({"key-name", "116"});
    const auto modified = quorvictl({"key-name", "116", "0x0300"});
    EXPECT_EQ(plain.exitCode, 0);
    EXPECT_GT(plain.output.size(), 1u);
    EXPECT_EQ(modified.output, "Command+Shift+" + plain.output);
}

TEST(Keys, AreNamedByTheConfiguredLayout) {
    setenv("XKB_DEFAULT_LAYOUT", "us", 1);
    const auto american = quorvictl({"key-name", "12"});
    setenv("XKB_DEFAULT_LAYOUT", "fr", 1);
    const auto french = quorvictl({"key-name", "12"});
    unsetenv("XKB_DEFAULT_LAYOUT");
    EXPECT_EQ(american.output, "q\n");
    EXPECT_EQ(french.output, "a\n");
}

TEST(Keys, ThatAreNoNumbersAreMisused) {
    for (const char* text : {"", "x", "12x", "0x", "0xG", "-1", "4294967296", " 1", "1.5"}) {
        const std::string reason = text + std::string(" is no number of 32 bits, decimal or 0x");
        expectMisused({"usb-to-adb", text}, reason);
        expectMisused({"adb-to-usb", text}, reason);
        expectMisused({"key-name", text}, reason);
        expectMisused({"key-name", "1", text}, reason);
    }
    expectMisused({"key-name"}, "key-name takes CODE [MASK]");
    expectMisused({"key-name", "1", "2", "3"}, "key-name takes CODE [MASK]");
}

} // namespace
} // namespace quorvi::test
