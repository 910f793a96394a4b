#include "macros/StepText.h"

#include <gtest/gtest.h>

#include <map>

#include "keyboard/KeyNames.h"
#include "keyboard/TableLayout.h"
#include "macros/Steps.h"

namespace quorvi {
namespace {

/// A layout on which key 0 types an a, with Command held as without.
class StepText : public testing::Test {
  protected:
    void SetUp() override {
        auto layout = std::make_shared<test::TableLayout>();
        layout->types(0x00, 0, u'a').types(0x00, 1, u'a').types(0x24, 0, u'\r').types(0x24, 1, u'\r');
        SetCurrentKeyboardLayout(layout);
        GetKeyboardInformation({});
    }
    void TearDown() override {
        SetCurrentKeyboardLayout(nullptr);
        GetKeyboardInformation({});
    }
    static std::u16string text(int command, int argument = 0) {
        return stepText(test::dict({{"command", command}, {"argument", argument}}),
            [](std::u16string_view english) { return std::u16string(english); });
    }
};

TEST_F(StepText, AKeyIsNamed) {
    EXPECT_EQ(text(1, 0x04), u"Press " + GetKeyName(0x00));
    EXPECT_EQ(text(0, 0x04), u"Release " + GetKeyName(0x00));
    EXPECT_EQ(text(1, 0x28), u"Press return");
}

TEST_F(StepText, KeysOfThePcHaveTheirNames) {
    EXPECT_EQ(text(1, 0x65), u"Press menu");
    EXPECT_EQ(text(0, 0x53), u"Release num lock");
}

TEST_F(StepText, OfTheArgumentTheLowByteCounts) {
    EXPECT_EQ(text(1, 0xFF28), text(1, 0x28));
}

TEST_F(StepText, AModifierKeyIsAKeyAndNoCombination) {
    EXPECT_EQ(text(1, 0xE1), u"Press Shift");
}

TEST_F(StepText, MouseButtonsAreNumbered) {
    EXPECT_EQ(text(129), u"Press button 1");
    EXPECT_EQ(text(130), u"Press button 2");
    EXPECT_EQ(text(132), u"Press button 3");
    EXPECT_EQ(text(136), u"Press button 4");
    EXPECT_EQ(text(144), u"Press button 5");
    EXPECT_EQ(text(128), u"Release button");
}

TEST_F(StepText, AnyOtherCodeHasNone) {
    for (const int command : {2, 17, 127, 131, 143, 145, 256, 257, -1, -128})
        EXPECT_EQ(text(command, 0x04), u"") << command;
    EXPECT_EQ(stepText({}, [](std::u16string_view english) { return std::u16string(english); }), u"");
}

TEST_F(StepText, TheKeyStandsWhereTheLanguageHasIt) {
    std::map<std::u16string, std::u16string, std::less<>> table{{u"Press ^1", u"^1 drücken"},
        {u"Release ^1", u"^1 los"}, {u"Press button ^1", u"Knopf ^1 drücken"},
        {u"Release button", u"Knopf los"}};
    const auto german = [&](int command) {
        return stepText(test::dict({{"command", command}, {"argument", 0x28}}),
            [&](std::u16string_view english) { return table.at(std::u16string(english)); });
    };
    EXPECT_EQ(german(1), u"return drücken");
    EXPECT_EQ(german(0), u"return los");
    EXPECT_EQ(german(132), u"Knopf 3 drücken");
    EXPECT_EQ(german(128), u"Knopf los");
}

} // namespace
} // namespace quorvi
