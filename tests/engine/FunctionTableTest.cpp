// Every function with every input that can have it: the output of a press, of holding it for a second and of
// its release, and of a notch of the wheel.
#include <algorithm>
#include <map>

#include "engine/EventNames.h"
#include "engine/Functions.h"
#include "engine/Witness.h"
#include "model/Commands.h"

namespace quorvi::test {

namespace {

/// The changes and running states in order: "KEY_A 1, KEY_A 0".
struct Expected {
    const char* press;
    const char* heldForASecond;
    const char* release;
    const char* notch; ///< null: the function is for buttons only
};

const std::map<int, Expected>& expectations() {
    static const std::map<int, Expected> all{
        {1, {"BTN_LEFT 1", "", "BTN_LEFT 0", nullptr}},
        {2, {"BTN_RIGHT 1", "", "BTN_RIGHT 0", nullptr}},
        {3, {"BTN_MIDDLE 1", "", "BTN_MIDDLE 0", nullptr}},
        {4, {"BTN_LEFT 1", "BTN_LEFT 0, BTN_LEFT 1", "BTN_LEFT 0", nullptr}},
        {5, {"BTN_SIDE 1", "", "BTN_SIDE 0", "BTN_SIDE 1, BTN_SIDE 0"}},
        {6, {"BTN_EXTRA 1", "", "BTN_EXTRA 0", "BTN_EXTRA 1, BTN_EXTRA 0"}},
        {8, {"REL_WHEEL 1, REL_WHEEL_HI_RES 120", "12 notches", "", "REL_WHEEL 1, REL_WHEEL_HI_RES 120"}},
        {9, {"REL_WHEEL -1, REL_WHEEL_HI_RES -120", "12 notches", "", "REL_WHEEL -1, REL_WHEEL_HI_RES -120"}},
        {10, {"REL_HWHEEL -1, REL_HWHEEL_HI_RES -120", "12 notches", "",
                 "REL_HWHEEL -1, REL_HWHEEL_HI_RES -120"}},
        {11,
            {"REL_HWHEEL 1, REL_HWHEEL_HI_RES 120", "12 notches", "", "REL_HWHEEL 1, REL_HWHEEL_HI_RES 120"}},
        {16, {"stage 3", "", "", "stage 3"}},
        {17, {"stage 1", "", "", "stage 1"}},
        {18, {"stage 3", "", "", "stage 3"}},
        {19, {"stage 1", "", "stage 2", nullptr}},
        {80, {"KEY_PLAYPAUSE 1", "", "KEY_PLAYPAUSE 0", "KEY_PLAYPAUSE 1, KEY_PLAYPAUSE 0"}},
        {81, {"KEY_NEXTSONG 1", "", "KEY_NEXTSONG 0", "KEY_NEXTSONG 1, KEY_NEXTSONG 0"}},
        {82, {"KEY_PREVIOUSSONG 1", "", "KEY_PREVIOUSSONG 0", "KEY_PREVIOUSSONG 1, KEY_PREVIOUSSONG 0"}},
        {83, {"KEY_STOPCD 1", "", "KEY_STOPCD 0", "KEY_STOPCD 1, KEY_STOPCD 0"}},
        {84, {"KEY_VOLUMEUP 1", "", "KEY_VOLUMEUP 0", "KEY_VOLUMEUP 1, KEY_VOLUMEUP 0"}},
        {85, {"KEY_VOLUMEDOWN 1", "", "KEY_VOLUMEDOWN 0", "KEY_VOLUMEDOWN 1, KEY_VOLUMEDOWN 0"}},
        {86, {"KEY_MUTE 1", "", "KEY_MUTE 0", "KEY_MUTE 1, KEY_MUTE 0"}},
        {96, {"KEY_PAGEUP 1", "", "KEY_PAGEUP 0", "KEY_PAGEUP 1, KEY_PAGEUP 0"}},
        {97, {"KEY_PAGEDOWN 1", "", "KEY_PAGEDOWN 0", "KEY_PAGEDOWN 1, KEY_PAGEDOWN 0"}},
        {98, {"KEY_HOME 1", "", "KEY_HOME 0", "KEY_HOME 1, KEY_HOME 0"}},
        {99, {"KEY_END 1", "", "KEY_END 0", "KEY_END 1, KEY_END 0"}},
        {100, {"KEY_LEFTCTRL 1, KEY_TAB 1", "", "KEY_TAB 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_TAB 1, KEY_TAB 0, KEY_LEFTCTRL 0"}},
        {101, {"KEY_LEFTCTRL 1, KEY_LEFTSHIFT 1, KEY_TAB 1", "", "KEY_TAB 0, KEY_LEFTSHIFT 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_LEFTSHIFT 1, KEY_TAB 1, KEY_TAB 0, KEY_LEFTSHIFT 0, KEY_LEFTCTRL 0"}},
        {102, {"KEY_LEFTCTRL 1, KEY_KPPLUS 1", "", "KEY_KPPLUS 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_KPPLUS 1, KEY_KPPLUS 0, KEY_LEFTCTRL 0"}},
        {103, {"KEY_LEFTCTRL 1, KEY_KPMINUS 1", "", "KEY_KPMINUS 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_KPMINUS 1, KEY_KPMINUS 0, KEY_LEFTCTRL 0"}},
        {112, {"KEY_LEFTCTRL 1, KEY_C 1", "", "KEY_C 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_C 1, KEY_C 0, KEY_LEFTCTRL 0"}},
        {113, {"KEY_LEFTCTRL 1, KEY_X 1", "", "KEY_X 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_X 1, KEY_X 0, KEY_LEFTCTRL 0"}},
        {114, {"KEY_LEFTCTRL 1, KEY_V 1", "", "KEY_V 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_V 1, KEY_V 0, KEY_LEFTCTRL 0"}},
        {115, {"KEY_LEFTCTRL 1, KEY_Z 1", "", "KEY_Z 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_Z 1, KEY_Z 0, KEY_LEFTCTRL 0"}},
        {116, {"KEY_LEFTCTRL 1, KEY_LEFTSHIFT 1, KEY_Z 1", "", "KEY_Z 0, KEY_LEFTSHIFT 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_LEFTSHIFT 1, KEY_Z 1, KEY_Z 0, KEY_LEFTSHIFT 0, KEY_LEFTCTRL 0"}},
        {117, {"KEY_LEFTCTRL 1, KEY_A 1", "", "KEY_A 0, KEY_LEFTCTRL 0",
                  "KEY_LEFTCTRL 1, KEY_A 1, KEY_A 0, KEY_LEFTCTRL 0"}},
        {128, {"KEY_LEFTMETA 1, KEY_D 1", "", "KEY_D 0, KEY_LEFTMETA 0",
                  "KEY_LEFTMETA 1, KEY_D 1, KEY_D 0, KEY_LEFTMETA 0"}},
        {129, {"KEY_LEFTALT 1, KEY_TAB 1", "", "KEY_TAB 0, KEY_LEFTALT 0",
                  "KEY_LEFTALT 1, KEY_TAB 1, KEY_TAB 0, KEY_LEFTALT 0"}},
        {130, {"KEY_LEFTALT 1, KEY_F4 1", "", "KEY_F4 0, KEY_LEFTALT 0",
                  "KEY_LEFTALT 1, KEY_F4 1, KEY_F4 0, KEY_LEFTALT 0"}},
        {131, {"KEY_SYSRQ 1", "", "KEY_SYSRQ 0", "KEY_SYSRQ 1, KEY_SYSRQ 0"}},
        {132, {"KEY_LEFTMETA 1, KEY_L 1", "", "KEY_L 0, KEY_LEFTMETA 0",
                  "KEY_LEFTMETA 1, KEY_L 1, KEY_L 0, KEY_LEFTMETA 0"}},
        {49, {"KEY_LEFTALT 1, KEY_B 1", "", "KEY_B 0, KEY_LEFTALT 0",
                 "KEY_LEFTALT 1, KEY_B 1, KEY_B 0, KEY_LEFTALT 0"}},
        {65, {"KEY_X 1", "KEY_X 0", "", "KEY_X 1"}},
        {34, {"profile 5", "", "", "profile 5"}},
        {32, {"profile 3", "", "", "profile 3"}},
        {33, {"profile 5", "", "", "profile 5"}},
        {0, {"", "", "", ""}},
    };
    return all;
}

/// Parameters with which the function has an effect.
std::pair<int, int> parametersOf(int code) {
    switch (code) {
    case 49:
        return {5, 4}; // B with Alt
    case 65:
        return {5, 1};
    case 34:
        return {5, 0};
    default:
        return {0, 0};
    }
}

TestRecord recordWith(int input, int code) {
    const auto [param1, param2] = parametersOf(code);
    TestRecord record;
    record.function(1, input, code, param1, param2)
        .stages(1, {{400, 400}, {800, 800}, {1600, 1600}})
        .stages(3, {{800, 800}, {1600, 1600}}, 2)
        .stages(5, {{800, 800}, {1600, 1600}}, 2)
        .macro(0, 5, {1, 0x1B, 17, 50, 0, 0x1B})
        .active(1, 2);
    return record;
}

/// The output since the last call.
class Heard {
  public:
    explicit Heard(TestMouse& mouse) : m_mouse(mouse) { (void)since(); }

    std::string since() {
        std::string text;
        const auto& changes = m_mouse.witness.changes;
        for (; m_changes < changes.size(); ++m_changes)
            add(text, nameOfEvent(changes[m_changes].type, changes[m_changes].code) + " " +
                          std::to_string(changes[m_changes].value));
        const auto now = m_mouse.engine.running();
        if (now.profile != m_running.profile)
            add(text, "profile " + std::to_string(now.profile));
        else if (now.stage != m_running.stage)
            add(text, "stage " + std::to_string(now.stage));
        m_running = now;
        return text;
    }

    /// The same in one word if it is only notches.
    std::string notchesSince(const std::string& notch) {
        const auto text = since();
        std::size_t count = 0;
        std::string notches;
        while (notches.size() < text.size()) {
            add(notches, notch);
            ++count;
        }
        return count > 1 && notches == text ? std::to_string(count) + " notches" : text;
    }

  private:
    static void add(std::string& text, const std::string& more) {
        text.append(text.empty() ? "" : ", ").append(more);
    }

    TestMouse& m_mouse;
    std::size_t m_changes = 0;
    engine::Running m_running;
};

class Function : public testing::TestWithParam<Command> {
  protected:
    [[nodiscard]] static const Expected& expected() { return expectations().at(GetParam().code); }
};

TEST_P(Function, DoesByEachButtonWhatItSays) {
    ASSERT_TRUE(expectations().contains(GetParam().code));
    for (int input = 1; input <= 7; ++input) {
        SCOPED_TRACE(input);
        TestMouse mouse(recordWith(input, GetParam().code));
        Heard heard(mouse);
        mouse.press(input);
        EXPECT_EQ(heard.since(), expected().press);
        mouse.wait(std::chrono::seconds(1));
        EXPECT_EQ(heard.notchesSince(expected().press), expected().heldForASecond);
        mouse.release(input);
        EXPECT_EQ(heard.since(), expected().release);
        mouse.wait(std::chrono::seconds(1));
        EXPECT_EQ(heard.since(), "");
        EXPECT_FALSE(mouse.engine.isBusy());
        EXPECT_EQ(mouse.engine.nextWake(), std::nullopt);
    }
}

TEST_P(Function, DoesByTheWheelWhatItSays) {
    const bool isOffered = GetParam().inputs == CommandInputs::ButtonsAndWheel;
    ASSERT_EQ(isOffered, expected().notch != nullptr);
    for (int input = 8; input <= 9; ++input) {
        SCOPED_TRACE(input);
        TestMouse mouse(recordWith(input, GetParam().code));
        Heard heard(mouse);
        mouse.turn(input);
        EXPECT_EQ(heard.since(), isOffered ? expected().notch : "");
        mouse.wait(std::chrono::seconds(1));
        EXPECT_EQ(heard.since(), GetParam().code == 65 ? "KEY_X 0" : "");
        EXPECT_FALSE(mouse.engine.isBusy());
    }
}

TEST_P(Function, LeavesOtherInputsAlone) {
    for (int input = 1; input <= 9; ++input) {
        TestMouse mouse(recordWith(input, GetParam().code));
        Heard heard(mouse);
        for (int other = 1; other <= 9; ++other) {
            if (other == input)
                continue;
            if (other >= 8) {
                mouse.turn(other);
            } else {
                mouse.press(other);
                mouse.release(other);
            }
            EXPECT_EQ(heard.since(), "") << input << " and " << other;
        }
    }
}

std::string nameOfFunction(const testing::TestParamInfo<Command>& info) {
    std::string name = info.param.title;
    std::erase(name, ' ');
    return name;
}

INSTANTIATE_TEST_SUITE_P(
    Engine, Function, testing::ValuesIn(commandTable().begin(), commandTable().end()), nameOfFunction);

TEST(FunctionTable, HasARowForEachCommandAndNoOther) {
    std::vector<int> rows;
    std::vector<int> commands;
    for (const auto& function : engine::functionTable())
        rows.push_back(function.code);
    for (const auto& command : commandTable())
        commands.push_back(command.code);
    EXPECT_EQ(rows, commands);
}

TEST(FunctionTable, HasNothingForCodesThatNobodyKnows) {
    for (int code = 0; code < 256; ++code) {
        if (findCommand(code))
            continue;
        for (int input = 1; input <= 9; ++input) {
            TestMouse mouse(recordWith(input, code));
            Heard heard(mouse);
            if (input >= 8) {
                mouse.turn(input);
            } else {
                mouse.press(input);
                mouse.release(input);
            }
            EXPECT_EQ(heard.since(), "") << code << " by " << input;
        }
    }
}

} // namespace
} // namespace quorvi::test
