#include "macros/StepClipboard.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <set>

#include "base/Unicode.h"
#include "keyboard/KeyCodeConversion.h"
#include "macros/KeyPlaces.h"
#include "macros/Steps.h"

namespace quorvi {
namespace {

using test::macroOf;
using test::stepsOf;
using test::TestMacro;

constexpr int kCtrlUsage = 224;
constexpr int kCUsage = 6;
const TestMacro kCopied{{1, kCtrlUsage, 50}, {1, kCUsage, 50}, {0, kCUsage}, {0, kCtrlUsage}};
constexpr const char* kCopyText = "press Ctrl, 50 ms, press C, 50 ms, release C, release Ctrl";

TestMacro macroOfText(std::u16string_view text) {
    const StepsOfText read = stepsOfText(text);
    EXPECT_EQ(read.error, StepsTextError::none) << toUtf8(read.part);
    return macroOf(read.steps);
}

TEST(StepClipboard, WritesStepsAsPeopleSayThem) {
    EXPECT_EQ(textOfSteps(stepsOf(kCopied)), kCopyText);
    EXPECT_EQ(textOfSteps(stepsOf({{129, 0, 1500}, {128, 0}, {136, 0}, {1, 93}, {0, 133, 5}})),
        "press left mouse button, 1500 ms, release mouse button, press back mouse button, press Num 5, "
        "release key 133, 5 ms");
    EXPECT_EQ(textOfSteps(plist::Array()), "");
}

TEST(StepClipboard, LeavesOutWhatNoRecordingWrites) {
    const auto steps = stepsOf({{2, kCUsage, 50}, {131, 0}, {1, kCUsage, -1}, {0, kCUsage, 0x1000000}});
    steps.append(5);
    EXPECT_EQ(textOfSteps(steps), "press C, release C");
}

// Whatever key is recorded, and any other that a file may hold.
TEST(StepClipboard, ReadsEveryStepThatItWrites) {
    TestMacro macro;
    for (const int code : {128, 129, 130, 132, 136, 144})
        macro.push_back({code, 0, 10});
    for (const int delay : {0, 1, 5, 75, 999, 1000, 1001, 59999, 5000, 0xFFFFFF})
        macro.push_back({128, 0, delay});
    for (int usage = 0; usage < 256; ++usage)
        macro.insert(macro.end(), {{1, usage, usage}, {0, usage, 0}});
    const std::string text = textOfSteps(stepsOf(macro));
    EXPECT_EQ(macroOfText(std::u16string(text.begin(), text.end())), macro);
}

TEST(StepClipboard, NamesEveryKeyByItself) {
    std::set<std::string> names;
    for (unsigned usage = 0; usage < 256; ++usage) {
        const std::string name = nameOfKeyPlace(static_cast<std::uint8_t>(usage));
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_EQ(name.find(','), std::string::npos);
    }
    // Those that recordings meet have proper names, but for a few of other countries' keyboards.
    std::set<unsigned> numbered;
    for (unsigned key = 0; key < 128; ++key) {
        const std::uint8_t usage = AdbToUsbKeycode(key);
        if (nameOfKeyPlace(usage).starts_with("key "))
            numbered.insert(usage);
    }
    EXPECT_EQ(numbered, (std::set<unsigned>{0, 0x85, 0x87, 0x89, 0x90, 0x91}));
}

TEST(StepClipboard, IsGenerousInBlanksCaseAndLineBreaks) {
    for (const char16_t* text : {u"press Ctrl, 50 ms, press C, 50 ms, release C, release Ctrl",
             u"PRESS CTRL,50MS,PRESS c,50ms,RELEASE c,RELEASE ctrl",
             u"\r\n  press   control \r\n50 ms\r\n\tpress C\n\n50 ms\nrelease C\nrelease left ctrl,\n",
             u"Press\u00A0Ctrl,, wait 0.05 s, press C, 50\u202Fms, release C, Release Control",
             u"hold ctrl, wait 20 ms, 30, press c, 0,05 seconds, release c, release ctrl"})
        EXPECT_EQ(macroOfText(text), kCopied) << toUtf8(text);
}

TEST(StepClipboard, KnowsTheUsualOtherNames) {
    EXPECT_EQ(
        macroOfText(u"press pgup, press page  up, press Esc, press -, press num-, press AltGr, press ;"),
        (TestMacro{{1, 0x4B}, {1, 0x4B}, {1, 0x29}, {1, 0x2D}, {1, 0x56}, {1, 0xE6}, {1, 0x33}}));
    EXPECT_EQ(macroOfText(u"press button 1, release left mouse button, press middle button, release button"),
        (TestMacro{{129, 0}, {128, 0}, {132, 0}, {128, 0}}));
}

TEST(StepClipboard, ReadsMoreStepsThanAMacroHolds) {
    std::u16string text;
    for (int number = 0; number < 40; ++number)
        text += u"press A\n";
    EXPECT_EQ(macroOfText(text).size(), 40U);
}

TEST(StepClipboard, SaysWhichPartIsNoStep) {
    for (const char16_t* part : {u"hello", u"press", u"press the button", u"press button", u"press button 6",
             u"release", u"press Ctrl+C", u"press ß", u"50 m", u"-5 ms", u"0.5 ms", u"1.2345 s",
             u"16777216 ms", u"99999999999999999999 s", u"press key 256", u"press key", u"press key -1",
             u"wait", u"ms", u".5 s", u"press \u0007", u"50 ms ms"}) {
        const std::u16string text = u"press A,  " + std::u16string(part) + u" , release A";
        const StepsOfText read = stepsOfText(text);
        EXPECT_EQ(read.error, StepsTextError::notAStep) << toUtf8(part);
        EXPECT_EQ(read.part, part);
        EXPECT_FALSE(read.steps);
    }
}

TEST(StepClipboard, RefusesADelayWithoutAStepBeforeIt) {
    EXPECT_EQ(stepsOfText(u"50 ms, press A").part, u"50 ms");
    EXPECT_EQ(stepsOfText(u"press A, 16777215 ms, 1 ms").part, u"1 ms");
}

TEST(StepClipboard, RefusesATextThatIsEmptyOrTooLong) {
    for (const char16_t* text : {u"", u" ", u"\n,\n ,,"})
        EXPECT_EQ(stepsOfText(text).error, StepsTextError::empty);
    EXPECT_EQ(stepsOfText(std::u16string(kLongestStepsText, u',')).error, StepsTextError::empty);
    EXPECT_EQ(stepsOfText(std::u16string(kLongestStepsText + 1, u',')).error, StepsTextError::tooLong);
}

// The clipboard belongs to whoever wrote to it last.
TEST(StepClipboard, IsDoneSoonWithHostileTexts) {
    const auto begin = std::chrono::steady_clock::now();
    std::mt19937 random(20261122);
    std::u16string noise;
    for (std::size_t count = 0; count < kLongestStepsText; ++count)
        noise += static_cast<char16_t>(random());
    (void)stepsOfText(noise);
    (void)stepsOfText(std::u16string(50'000'000, u'9'));
    EXPECT_EQ(stepsOfText(std::u16string(kLongestStepsText, u'9')).error, StepsTextError::notAStep);
    std::u16string many;
    while (many.size() + 8 < kLongestStepsText)
        many += u"press A,";
    EXPECT_EQ(macroOfText(many).size(), many.size() / 8);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST(StepClipboard, ReadsRandomPartsOfItsOwnTextsOrRefusesThem) {
    std::mt19937 random(std::random_device{}());
    const std::string whole = kCopyText;
    for (int number = 0; number < 2000; ++number) {
        std::string text = whole;
        for (unsigned change = random() % 4; change > 0; --change)
            text[random() % text.size()] = static_cast<char>(random() % 128);
        const StepsOfText read = stepsOfText(std::u16string(text.begin(), text.end()));
        ASSERT_EQ(bool(read.steps), read.error == StepsTextError::none);
        if (read.steps) {
            const std::string again = textOfSteps(read.steps);
            ASSERT_EQ(macroOfText(std::u16string(again.begin(), again.end())), macroOf(read.steps)) << text;
        }
    }
}

} // namespace
} // namespace quorvi
