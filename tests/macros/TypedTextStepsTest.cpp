#include "macros/TypedTextSteps.h"

#include <gtest/gtest.h>

#include <random>

#include "layouts/XkbKeyboardLayout.h"
#include "macros/Steps.h"
#include "macros/TypedKeys.h"

namespace quorvi {
namespace {

constexpr std::size_t kRoom = 16;

KeyboardLayoutRef layoutNamed(const std::string& names) {
    return makeKeyboardLayout(keymapNamesInText("XKBLAYOUT=" + names));
}

std::vector<std::string> keysOf(const TypedTextSteps& result) {
    std::vector<std::string> keys;
    for (const test::TestStep& step : test::macroOf(result.steps)) {
        char text[16];
        std::snprintf(text, sizeof text, "%c%02X", step.command == 1 ? '+' : '-', unsigned(step.argument));
        keys.emplace_back(text);
    }
    return keys;
}

using Keys = std::vector<std::string>;

TEST(TypedTextSteps, PressAndReleaseAKeyForEachCharacter) {
    const auto result = stepsOfTypedText(u"hi", *layoutNamed("us"), kRoom);
    EXPECT_EQ(keysOf(result), (Keys{"+0B", "-0B", "+0C", "-0C"}));
    EXPECT_EQ(result.typed, u"hi");
    EXPECT_EQ(result.noRoom, 0U);
    EXPECT_EQ(result.untypable, u"");
}

TEST(TypedTextSteps, WaitLongerThanAPictureOfASlowGame) {
    const auto result = stepsOfTypedText(u"h", *layoutNamed("us"), kRoom);
    EXPECT_EQ(test::macroOf(result.steps), (test::TestMacro{{1, 0x0B, 40}, {0, 0x0B, 40}}));
}

TEST(TypedTextSteps, HoldShiftOverARunOfCharacters) {
    const auto result = stepsOfTypedText(u"HI i", *layoutNamed("us"), kRoom);
    EXPECT_EQ(keysOf(result), (Keys{"+E1", "+0B", "-0B", "+0C", "-0C", "-E1", "+2C", "-2C", "+0C", "-0C"}));
    const auto loud = stepsOfTypedText(u"H I", *layoutNamed("us"), kRoom);
    EXPECT_EQ(keysOf(loud), (Keys{"+E1", "+0B", "-0B", "+2C", "-2C", "+0C", "-0C", "-E1"}))
        << "a space is one with Shift too";
}

TEST(TypedTextSteps, GoAsFarAsThereIsRoom) {
    const auto result = stepsOfTypedText(u"Hello World", *layoutNamed("us"), kRoom);
    EXPECT_EQ(result.typed, u"Hello ") << "Shift and W would make 18 steps";
    EXPECT_EQ(result.steps.size(), 14U);
    EXPECT_EQ(result.noRoom, 5U);
    EXPECT_EQ(stepsOfTypedText(u"HELLO world", *layoutNamed("us"), kRoom).typed, u"HELLO w") << "16 steps";
}

TEST(TypedTextSteps, LeaveOutWhatTheLayoutCannotType) {
    const auto result = stepsOfTypedText(u"a字b字😀c", *layoutNamed("us"), kRoom);
    EXPECT_EQ(result.typed, u"abc");
    EXPECT_EQ(result.untypable, u"字😀");
    EXPECT_EQ(result.noRoom, 0U);
    EXPECT_EQ(result.steps.size(), 6U);
}

TEST(TypedTextSteps, TakeTheKeysOfTheLayout) {
    EXPECT_EQ(keysOf(stepsOfTypedText(u"zy", *layoutNamed("de"), kRoom)), (Keys{"+1C", "-1C", "+1D", "-1D"}));
    EXPECT_EQ(keysOf(stepsOfTypedText(u"é1", *layoutNamed("fr"), kRoom)),
        (Keys{"+1F", "-1F", "+E1", "+1E", "-1E", "-E1"}));
    EXPECT_EQ(keysOf(stepsOfTypedText(u"п", *layoutNamed("ru"), kRoom)), (Keys{"+0A", "-0A"}));
    EXPECT_EQ(
        keysOf(stepsOfTypedText(u"チ", *layoutNamed("jp\nXKBVARIANT=kana"), kRoom)), (Keys{"+04", "-04"}));
    EXPECT_EQ(stepsOfTypedText(u"h", *layoutNamed("ru"), kRoom).untypable, u"h");
}

TEST(TypedTextSteps, HoldAltGrOverARunOfCharacters) {
    EXPECT_EQ(keysOf(stepsOfTypedText(u"{[", *layoutNamed("de"), kRoom)),
        (Keys{"+E6", "+24", "-24", "+25", "-25", "-E6"}));
}

TEST(TypedTextSteps, TypeAccentsByDeadKeys) {
    EXPECT_EQ(keysOf(stepsOfTypedText(u"é", *layoutNamed("de"), kRoom)), (Keys{"+2E", "-2E", "+08", "-08"}));
    EXPECT_EQ(keysOf(stepsOfTypedText(u"^", *layoutNamed("de"), kRoom)).size(), 4U)
        << "the accent and a space";
    EXPECT_EQ(keysOf(stepsOfTypedText(u"ê", *layoutNamed("fr"), kRoom)), (Keys{"+2F", "-2F", "+08", "-08"}));
}

TEST(TypedTextSteps, EndLinesByReturn) {
    EXPECT_EQ(
        keysOf(stepsOfTypedText(u"\n\t", *layoutNamed("us"), kRoom)), (Keys{"+28", "-28", "+2B", "-2B"}));
}

TEST(TypedTextSteps, AreNoneWithoutRoomOrText) {
    EXPECT_EQ(stepsOfTypedText(u"", *layoutNamed("us"), kRoom).steps.size(), 0U);
    const auto result = stepsOfTypedText(u"hi", *layoutNamed("us"), 1);
    EXPECT_EQ(result.steps.size(), 0U);
    EXPECT_EQ(result.noRoom, 2U);
}

// The way back is that of TypedKeys, which knows nothing of the way there.
TEST(TypedTextSteps, TypeWhatTheySay) {
    std::mt19937 random(108); // NOLINT(bugprone-random-generator-seed)
    const std::u16string characters =
        u"abyzABYZ 0189.,;:-_#+*~^`´'\"!?$%&/()=[]{}\\|<>@€éèàâçñöäüßжЖяЫёチトサァ";
    for (const char* name : {"us", "de", "fr", "ru", "jp\nXKBVARIANT=kana", "es", "us\nXKBVARIANT=intl"}) {
        const auto layout = layoutNamed(name);
        ASSERT_TRUE(layout) << name;
        for (int run = 0; run < 200; ++run) {
            std::u16string text;
            for (unsigned count = random() % 14; count > 0; --count)
                text += characters[random() % characters.size()];
            const std::size_t room = random() % 17;
            const auto result = stepsOfTypedText(text, *layout, room);
            ASSERT_LE(result.steps.size(), room) << name;
            const auto pieces = typedBySteps(
                result.steps, layout, [](std::u16string_view english) { return std::u16string(english); });
            const std::u16string typed = pieces.empty() ? u"" : pieces.front().text;
            ASSERT_EQ(typed, result.typed) << name;
            ASSERT_LE(pieces.size(), 1U) << name;
        }
    }
}

} // namespace
} // namespace quorvi
