#include "macros/TypedKeys.h"

#include <gtest/gtest.h>

#include "keyboard/KeyNames.h"
#include "layouts/XkbKeyboardLayout.h"
#include "macros/Steps.h"

namespace quorvi::typedkeys {
namespace {

// Usages of keys, by their places on the keyboard of the United States.
constexpr int kA = 0x04, kC = 0x06, kE = 0x08, kH = 0x0B, kI = 0x0C, kS = 0x16, kReturn = 0x28, kTab = 0x2B,
              kEqual = 0x2E, kCapsLock = 0x39, kLeft = 0x50, kControl = 0xE0, kShift = 0xE1, kAlt = 0xE2,
              kSuper = 0xE3, kAltGr = 0xE6;

/// Presses the keys one inside the other.
test::TestMacro together(const std::vector<int>& keys) {
    test::TestMacro macro;
    for (auto key = keys.begin(); key != keys.end(); ++key)
        macro.push_back({1, *key});
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        macro.push_back({0, *key});
    return macro;
}

/// Presses combinations one after the other.
test::TestMacro inTurn(const std::vector<std::vector<int>>& combinations) {
    test::TestMacro macro;
    for (const auto& keys : combinations)
        for (const test::TestStep& step : together(keys))
            macro.push_back(step);
    return macro;
}

class TypedLine : public testing::Test {
  protected:
    void SetUp() override { use("us"); }
    void TearDown() override {
        SetCurrentKeyboardLayout(nullptr);
        GetKeyboardInformation({});
    }
    void use(const std::string& layout) {
        m_layout = makeKeyboardLayout(keymapNamesInText("XKBLAYOUT=" + layout));
        ASSERT_TRUE(m_layout);
        SetCurrentKeyboardLayout(m_layout);
        GetKeyboardInformation({});
    }
    [[nodiscard]] std::u16string line(const test::TestMacro& macro) const {
        const TextLookup english = [](std::u16string_view text) { return std::u16string(text); };
        return typedLine(typedBySteps(test::stepsOf(macro), m_layout, english), english);
    }

  private:
    KeyboardLayoutRef m_layout;
};

TEST_F(TypedLine, IsTheTextThatTheKeysType) {
    EXPECT_EQ(line(inTurn({{kH}, {kI}})), u"hi");
    EXPECT_EQ(line(inTurn({{kShift, kH}, {kI}})), u"Hi");
    EXPECT_EQ(line(inTurn({{kCapsLock}, {kH}, {kShift, kI}})), u"Caps Lock, “Hi”");
    EXPECT_EQ(line({}), u"");
}

TEST_F(TypedLine, EndsALineOfTextByASign) {
    EXPECT_EQ(line(inTurn({{kH}, {kI}, {kReturn}})), u"hi\u23CE");
    EXPECT_EQ(line(inTurn({{kH}, {kTab}, {kI}})), u"h\u21E5i");
    EXPECT_EQ(line(inTurn({{kReturn}})), u"return") << "there is no line";
    EXPECT_EQ(line(inTurn({{kH}, {kShift, kReturn}})), u"“h”, Shift+return");
}

TEST_F(TypedLine, NamesWhatTypesNoText) {
    EXPECT_EQ(line(inTurn({{kControl, kS}, {kControl, kShift, kE}, {kReturn}})),
        u"Control+S, Control+Shift+E, return");
    EXPECT_EQ(line(inTurn({{kH}, {kI}, {kLeft}})), u"“hi”, left");
    EXPECT_EQ(line(inTurn({{kAlt, kTab}})), u"Option+tab");
    EXPECT_EQ(line(inTurn({{kSuper, kE}})), u"Command+E");
}

TEST_F(TypedLine, NamesModifiersAloneAndOnlyThen) {
    EXPECT_EQ(line(inTurn({{kControl, kShift}})), u"Control+Shift");
    EXPECT_EQ(line({{1, kControl}}), u"Control") << "left down";
    EXPECT_EQ(line(inTurn({{kShift, kA, kControl}})), u"“A”, Shift+Control")
        << "nothing is typed with Control";
}

TEST_F(TypedLine, NamesClicksWithTheModifiersHeldForThem) {
    EXPECT_EQ(line({{129, 0}, {128, 0}, {144, 0}, {128, 0}}), u"Left button, Forward button");
    EXPECT_EQ(line({{1, kControl}, {130, 0}, {128, 0}, {0, kControl}}), u"Control+Right button");
}

TEST_F(TypedLine, NamesRepeatedPressesOnce) {
    EXPECT_EQ(line({{129, 0}, {128, 0}, {129, 0}, {128, 0}}), u"Left button\u00A0×2");
    EXPECT_EQ(line(inTurn({{kLeft}, {kLeft}, {kLeft}, {kH}, {kH}, {kLeft}})), u"left\u00A0×3, “hh”, left");
    EXPECT_EQ(line(inTurn({{kControl, kS}, {kS}, {kControl, kS}})), u"Control+S, “s”, Control+S");
}

TEST_F(TypedLine, FollowsTheLayout) {
    EXPECT_EQ(line(inTurn({{kAltGr, kE}})), u"Option+E") << "this layout has no AltGr";
    use("de");
    EXPECT_EQ(line(inTurn({{kAltGr, kE}})), u"€");
    EXPECT_EQ(line(inTurn({{kEqual}, {kE}})), u"é") << "a dead key waits for the letter";
    use("ru");
    EXPECT_EQ(line(inTurn({{kH}, {kI}})), u"рш");
    EXPECT_EQ(line(inTurn({{kControl, kC}})), u"Control+C") << "a shortcut is named by Latin letters";
}

TEST_F(TypedLine, NamesKeysWhereThereIsNoLayout) {
    const TextLookup english = [](std::u16string_view text) { return std::u16string(text); };
    const auto steps = test::stepsOf(inTurn({{kH}, {kI}}));
    EXPECT_EQ(typedLine(typedBySteps(steps, nullptr, english), english), u"H, I");
}

TEST(TypedKeys, TellsWhatEachPressTypes) {
    const TextLookup english = [](std::u16string_view text) { return std::u16string(text); };
    TypedKeys keys(makeKeyboardLayout(keymapNamesInText("XKBLAYOUT=de")), english);
    EXPECT_EQ(keys.press(kShift), std::nullopt);
    EXPECT_TRUE(keys.isShiftHeld());
    EXPECT_FALSE(keys.heldAlone().empty());
    EXPECT_EQ(keys.press(kH), u"H");
    EXPECT_EQ(keys.heldAlone(), u"");
    keys.release(kShift);
    EXPECT_FALSE(keys.isShiftHeld());
    EXPECT_EQ(keys.press(kEqual), u"") << "a dead key";
    EXPECT_EQ(keys.press(kLeft), std::nullopt);
    EXPECT_EQ(keys.press(kE), u"e") << "the arrow has ended the accent";
}

} // namespace
} // namespace quorvi::typedkeys
