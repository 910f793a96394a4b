// A mouse with two nodes from the kernel's HID driver, as seen by libinput, the desktops' library.
#include <algorithm>
#include <csignal>

#include "vm/support/HidMouse.h"
#include "vm/support/Serviced.h"

namespace quorvi::test {
namespace {

constexpr std::uint8_t kUsageF13 = 0x68;

class HidTest : public ServicedTest {
  protected:
    void use(const TestRecord& record) {
        id = anna.mouseNamed("Nine-button mouse Mouse");
        ASSERT_NE(id, "");
        ASSERT_EQ(anna.use(id, record), "");
        ASSERT_TRUE(waitUntil([&] { return stateOf(id) == "driven"; })) << stateOf(id);
        ASSERT_TRUE(desk.waitForDevice("Nine-button mouse Keyboard"));
        ASSERT_TRUE(desk.waitForDevice("Quorvi virtual keyboard"));
    }
    void type(std::uint8_t usage) {
        hid.type(usage);
        hid.type(0);
    }
    [[nodiscard]] std::string deviceOf(std::uint16_t key) const {
        const auto found = std::ranges::find_if(desk.events(),
            [&](const Desk::Event& event) { return event.type == EV_KEY && event.code == key; });
        return found == desk.events().end() ? "none" : found->device;
    }

    HidMouse hid;
    std::string id;
};

TEST_F(HidTest, ItsSecondNodeIsTheUsersKeyboardUntilAnInputIsOnIt) {
    use(busyRecord());
    EXPECT_EQ(id, "1234:0009:serial_1");
    type(kUsageF13);
    ASSERT_TRUE(desk.waitForKey(KEY_F13, 0));
    EXPECT_EQ(deviceOf(KEY_F13), "Nine-button mouse Keyboard");
    desk.forget();
    ASSERT_EQ(anna.call("SetOptions",
                  [&](sd_bus_message* message) {
                      sd_bus_message_append(message, "sa{sv}", id.c_str(), 1, "ButtonCodes", "aq", 7,
                          BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, KEY_F13, BTN_EXTRA, BTN_FORWARD, BTN_BACK);
                  }),
        "");
    ASSERT_TRUE(waitUntil([&] { return stateOf(id) == "driven"; })) << stateOf(id);
    type(kUsageF13);
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTSHIFT, 0));
    EXPECT_EQ(desk.keys(), "42+ 30+ 30- 42-"); // input 4
    desk.forget();
    // What is no input passes.
    type(kUsageB);
    ASSERT_TRUE(desk.waitForKey(KEY_B, 0));
    EXPECT_EQ(deviceOf(KEY_B), "Quorvi virtual keyboard");
}

TEST_F(HidTest, LibinputTakesTheTwoForAPointerAndAKeyboardAndHearsWhatTheyDo) {
    auto record = busyRecord();
    use(record.function(1, 1, kPageDown));
    ChildProcess libinput({"libinput-debug-events"});
    std::string heard;
    const auto hears = [&](const std::string& what) {
        while (heard.find(what) == std::string::npos) {
            const auto line = libinput.readLine();
            if (!line)
                return false;
            heard += *line + "\n";
        }
        return true;
    };
    // Devices are told of at the start, each with its capabilities.
    ASSERT_TRUE(hears("Quorvi virtual keyboard"));
    ASSERT_TRUE(hears("Quorvi virtual pointer"));
    hid.report(true, 3, 4);
    ASSERT_TRUE(hears("KEY_PAGEDOWN (109) pressed")) << heard;
    inputd->kill();
    EXPECT_TRUE(hears("KEY_PAGEDOWN (109) released")) << heard;
    hid.report(false, 1, 1);
    EXPECT_TRUE(hears("POINTER_MOTION")) << heard;
    libinput.kill();
}

} // namespace
} // namespace quorvi::test
