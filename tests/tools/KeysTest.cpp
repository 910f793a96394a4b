#include "support/Compositors.h"
#include "support/EnvironmentVariable.h"
#include "support/VirtualDisplay.h"
#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

/// What quorvictl names the key right of Tab.
std::string nameOfFirstLetter() {
    return quorvictl({"key-name", "12"}).output;
}

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
    for (const auto& nowhere : {std::optional<std::string>(), std::optional<std::string>(":9999")}) {
        const EnvironmentVariable noServer("DISPLAY", nowhere);
        const EnvironmentVariable noCompositor("WAYLAND_DISPLAY", nowhere);
        for (const auto& [layout, name] : {std::pair("us", "q\n"), std::pair("fr", "a\n")}) {
            const EnvironmentVariable configured("XKB_DEFAULT_LAYOUT", layout);
            expectDone({"key-name", "12"}, name);
        }
    }
}

TEST(Keys, AreNamedByTheLayoutInUse) {
    for (const char* program : {"Xvfb", "setxkbmap", "sway", "swaymsg"})
        if (!isInstalled(program))
            GTEST_SKIP() << program << " is not installed";
    const EnvironmentVariable configured("XKB_DEFAULT_LAYOUT", "us");
    const EnvironmentVariable noCompositor("WAYLAND_DISPLAY", std::nullopt);
    const VirtualDisplay display;
    const EnvironmentVariable server("DISPLAY", display.name());
    ASSERT_TRUE(display.setLayout("us,ru"));
    EXPECT_EQ(nameOfFirstLetter(), "q\n");
    ASSERT_TRUE(display.setLayout("us,fr"));
    ASSERT_EQ(display.lockGroup(1), 1);
    EXPECT_EQ(nameOfFirstLetter(), "a\n");

    const Sway sway(display.name());
    const EnvironmentVariable folder("XDG_RUNTIME_DIR", sway.runtimeFolder());
    const EnvironmentVariable compositor("WAYLAND_DISPLAY", sway.socket());
    ASSERT_TRUE(sway.setLayout("us", "dvorak"));
    EXPECT_EQ(nameOfFirstLetter(), "'\n");
}

TEST(Keys, ThatNoKeyboardHasAreRefused) {
    expectRefused({"key-name", "256"}, "256 is not a key code; the highest is 255");
    expectRefused({"key-name", "0x100", "0x100"}, "0x100 is not a key code; the highest is 255");
    expectRefused({"key-name", "12", "65536"}, "65536 is not a modifier mask; the highest is 0xFFFF");
    expectRefused(
        {"key-name", "12", "0xFFFFFFFF"}, "0xFFFFFFFF is not a modifier mask; the highest is 0xFFFF");
    expectDone({"key-name", "255", "0xFFFF"}, "Control+Command+Option+Shift+Caps Lock\n");
}

TEST(Keys, ThatAreNoNumbersAreMisused) {
    for (const char* text : {"", "x", "12x", "0x", "0xG", "-1", "4294967296", " 1", "1.5"}) {
        const std::string reason = text + std::string(" is not a 32-bit number, decimal or 0x");
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
