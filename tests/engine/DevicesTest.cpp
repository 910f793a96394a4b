// The capabilities of the two devices.
#include "engine/Devices.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/UsbKeys.h"
#include "keyboard/KeyCodeConversion.h"
#include "keyboard/VirtualKeys.h"
#include "layouts/EvdevKeys.h"

namespace quorvi::test {
namespace {

using namespace engine;

TEST(Keyboard, OffersEachKeyOnceInOrder) {
    const auto keys = keyboardKeys();
    EXPECT_TRUE(std::ranges::is_sorted(keys));
    EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end());
    EXPECT_GE(keys.size(), 120U);
}

TEST(Keyboard, OffersWhatARecordCanType) {
    for (unsigned usage = 0; usage < 256; ++usage) {
        const auto key = keyOfUsage(usage);
        const bool isOffered = std::ranges::find(keyboardKeys(), key) != keyboardKeys().end();
        EXPECT_EQ(isOffered, key != KEY_RESERVED) << usage;
    }
}

TEST(Keyboard, HasNoKeyThatTheLogInManagerWatches) {
    for (const int key : {KEY_POWER, KEY_POWER2, KEY_SLEEP, KEY_SUSPEND, KEY_RESTART, KEY_WAKEUP})
        EXPECT_EQ(std::ranges::find(keyboardKeys(), key), keyboardKeys().end()) << key;
}

TEST(Keyboard, HasNoButtonsAndThePointerNoKeys) {
    for (const auto key : keyboardKeys())
        EXPECT_FALSE(key >= BTN_MISC && key < KEY_OK) << key;
    for (const auto button : pointerButtons())
        EXPECT_TRUE(button >= BTN_LEFT && button < BTN_JOYSTICK) << button;
}

TEST(Devices, AreFoundByTheirCodes) {
    Device device{};
    for (const auto key : keyboardKeys())
        EXPECT_TRUE(findDeviceOfKey(key, device) && device == Device::Keyboard);
    for (const auto button : pointerButtons())
        EXPECT_TRUE(findDeviceOfKey(button, device) && device == Device::Pointer);
    for (const int neither : {0, KEY_POWER, BTN_JOYSTICK, KEY_CNT - 1, KEY_CNT, 0xFFFF})
        EXPECT_FALSE(findDeviceOfKey(static_cast<std::uint16_t>(neither), device)) << neither;
}

/// The panel names keys by virtual key codes. The key it shows for a usage must be the key that the mouse
/// types.
TEST(Usages, TypeTheKeysThatThePanelNames) {
    int compared = 0;
    for (unsigned usage = 0; usage < 0xE0; ++usage) {
        const auto virtualKey = UsbToAdbKeycode(usage);
        const auto key = keyOfUsage(usage);
        if (virtualKey == noKey || key == KEY_RESERVED || AdbToUsbKeycode(virtualKey) != usage ||
            evdevKeycode(virtualKey) == KEY_RESERVED)
            continue;
        EXPECT_EQ(key, evdevKeycode(virtualKey)) << usage;
        ++compared;
    }
    EXPECT_GE(compared, 100);
}

TEST(Usages, OfModifiersAreLeftAndRight) {
    const std::array<std::uint16_t, 8> keys{KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTALT, KEY_LEFTMETA,
        KEY_RIGHTCTRL, KEY_RIGHTSHIFT, KEY_RIGHTALT, KEY_RIGHTMETA};
    for (unsigned i = 0; i < keys.size(); ++i)
        EXPECT_EQ(keyOfUsage(0xE0 + i), keys[i]);
    EXPECT_EQ(keyOfUsage(0xE8), KEY_RESERVED);
    EXPECT_EQ(keyOfUsage(0x104), KEY_RESERVED);
    EXPECT_EQ(keyOfUsage(0xFFFFFFFF), KEY_RESERVED);
}

TEST(Usages, HaveNoPowerKey) {
    EXPECT_EQ(keyOfUsage(0x66), KEY_RESERVED);
}

} // namespace
} // namespace quorvi::test
