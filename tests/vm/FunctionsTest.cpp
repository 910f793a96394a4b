// The record's functions on the whole path: through the kernel into the service, and on to the desktop. The
// expected output is the engine's, which has its own tests.
#include "engine/Witness.h"
#include "model/Commands.h"
#include "vm/support/Serviced.h"

namespace quorvi::test {
namespace {

/// Three stages, a second profile, and a macro: A for 20 ms, then the left button for 10.
TestRecord everydayRecord() {
    TestRecord record;
    record.stages(1, {{400, 400}, {800, 1600}, {3200, 3200}}, 2);
    record.stages(2, {{1600, 1600}});
    record.macro(0, 3, {1, kUsageA, 17, 20, 0, kUsageA, 129, 17, 10, 128});
    record.active(1, 2);
    return record;
}

TestRecord withFunction(int input, const Command& command) {
    auto record = everydayRecord();
    const auto parameter = [&] {
        switch (command.code) {
        case kSingleKey:
            return kUsageA;
        case kRunMacro:
            return 3;
        default:
            return 2;
        }
    }();
    for (const int profile : {1, 2})
        record.function(profile, input, command.code, parameter, command.code == kSingleKey ? kShiftBit : 0);
    return record;
}

std::string textOf(std::uint16_t type, std::uint16_t code, int value) {
    return std::to_string(type) + ":" + std::to_string(code) + "=" + std::to_string(value) + " ";
}

class FunctionsTest : public ServicedTest {
  protected:
    /// What came out of the device of the kernel, without what the kernel repeats.
    std::string arrived(const std::string& device) const {
        std::string text;
        for (const auto& event : desk.events())
            if (event.device == device && !(event.type == EV_KEY && event.value > 1) && event.type != EV_REP)
                text += textOf(event.type, event.code, event.value);
        return text;
    }
    /// What the engine says by itself.
    std::string expected(engine::Device device) const {
        std::string text;
        for (const auto& change : plain.witness.changes)
            if (change.device == device)
                text += textOf(change.type, change.code, change.value);
        return text;
    }
    /// Waits until it is the same, as long as the engine by itself has had its time.
    void compare(const std::string& what) {
        plain.wait(std::chrono::seconds(1));
        EXPECT_TRUE(desk.waitUntil([&] {
            return arrived("Quorvi virtual pointer") == expected(engine::Device::Pointer) &&
                   arrived("Quorvi virtual keyboard") == expected(engine::Device::Keyboard);
        })) << what
            << "\n"
            << arrived("Quorvi virtual pointer") << "\n"
            << expected(engine::Device::Pointer) << "\n"
            << arrived("Quorvi virtual keyboard") << "\n"
            << expected(engine::Device::Keyboard);
        EXPECT_TRUE(desk.held().empty()) << what;
        plain.witness.changes.clear();
        desk.forget();
    }
    void click(int input) {
        const auto code = plain.codeOf(input);
        mouse.click(static_cast<std::uint16_t>(code));
        plain.press(input);
        plain.release(input);
    }
    void move(int x, int y) {
        mouse.move(x, y);
        plain.move(x, y);
    }

    TestMouse plain; ///< an engine in this process
};

TEST_F(FunctionsTest, EachReachesTheDesktopFromAButtonAndFromTheWheel) {
    use(mouse, everydayRecord());
    const auto id = anna.mouseNamed("Test mouse");
    plain.set(everydayRecord());
    for (const Command& command : commandTable()) {
        for (const int input : {4, 9}) {
            if (input > 7 && command.inputs == CommandInputs::Buttons)
                continue;
            const auto record = withFunction(input, command);
            ASSERT_EQ(anna.setRecord(id, record), "");
            plain.set(record);
            if (input > 7) {
                mouse.turn(-1);
                plain.turn(input);
            } else {
                click(input);
            }
            move(40, -20); // at the sensitivity that it has led to
            compare(command.title + std::string(" by input ") + std::to_string(input));
            Status status;
            EXPECT_EQ(anna.status(id, status), "");
            const auto running = plain.engine.running();
            EXPECT_EQ(status.profile, running.profile) << command.title;
            EXPECT_EQ(status.stage, running.stage) << command.title;
            EXPECT_EQ(status.dpiX, running.dpiX) << command.title;
        }
    }
}

TEST_F(FunctionsTest, AProfileThatChangesWhileAKeyIsHeldReleasesThatKey) {
    auto record = busyRecord();
    use(mouse, record);
    mouse.press(BTN_EXTRA);
    mouse.click(BTN_BACK);
    mouse.release(BTN_EXTRA);
    mouse.click(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_B, 0));
    EXPECT_EQ(desk.keys(), "29+ 29- 48+ 48-");
}

TEST_F(FunctionsTest, AMacroIsTypedWithItsDelays) {
    // A down, 250 ms, A up. The first step comes as late as the service hears of the press.
    TestRecord record;
    record.function(1, 6, kRunMacro, 3, 1).macro(0, 3, {1, kUsageA, 17, 250, 0, kUsageA});
    use(mouse, record);
    mouse.click(BTN_FORWARD);
    ASSERT_TRUE(desk.waitForKey(KEY_A, 0));
    ASSERT_EQ(desk.keys(), "30+ 30-");
    EXPECT_GT(desk.events().back().when - desk.events().front().when, std::chrono::milliseconds(200));
}

TEST_F(FunctionsTest, AThousandSmallMovesLoseNothingAtHalfTheSensitivity) {
    TestRecord record;
    record.stages(1, {{800, 400}});
    use(mouse, record);
    for (int sent = 4; sent <= 1000; sent += 4) {
        for (int i = 0; i < 4; ++i)
            mouse.move(1, -1);
        // As fast as they are taken: nothing has to wait in the kernel.
        ASSERT_TRUE(desk.waitUntil([&] { return desk.sum(REL_X) == sent / 2; }))
            << desk.sum(REL_X) << " of " << sent;
    }
    EXPECT_EQ(desk.sum(REL_Y), -250);
}

} // namespace
} // namespace quorvi::test
