// The differences between two trees, in the command line's words.
#include "history/Differences.h"

#include <gtest/gtest.h>

#include "base/Unicode.h"
#include "history/Matches.h"
#include "history/WhatCounts.h"
#include "keyboard/KeyNames.h"
#include "keyboard/TableLayout.h"
#include "model/Keys.h"
#include "model/Trees.h"
#include "plist/DeepCopy.h"

namespace quorvi::test {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;
using Lines = std::vector<std::string>;

Lines linesOf(const std::vector<Phrase>& differences) {
    Lines lines;
    for (const Phrase& difference : differences)
        lines.push_back(toUtf8(inWords(difference, englishWording())));
    return lines;
}

Dictionary button(int command, int param1 = 0, int param2 = 0) {
    return assignment(command, param1, param2);
}

/// Two profiles, two macros; each test changes the tree of now in one place.
class Differences : public testing::Test {
  protected:
    static Dictionary profileOf(std::u16string name, const Dictionary& buttons) {
        const auto made = profile(std::move(name));
        made.set(keys::buttons, buttons);
        return made;
    }
    static Dictionary treeOfTwo() {
        const auto made =
            tree(list({profileOf(u"Drawing", dict({{"01", button(1)}, {"04", button(5)}})),
                     profileOf(u"Mail", dict({{"01", button(112)}, {"02", button(113)}, {"03", button(114)},
                                            {"04", button(115)}, {"05", button(116)}}))}),
                list({macro(7, u"Build"), macro(3, u"Sign")}));
        made.dictionary(keys::settings).set(keys::profileId, 1);
        return made;
    }
    [[nodiscard]] Dictionary profileNow(std::size_t index) const {
        return now.array(keys::profiles).dictionary(index);
    }
    [[nodiscard]] Dictionary driverNow() const { return profileNow(0).dictionary(keys::driver); }
    [[nodiscard]] Dictionary macroNow(std::size_t index) const {
        return now.array(keys::macros).dictionary(index);
    }
    void assign(std::size_t profile, int input, const Dictionary& assigned) const {
        profileNow(profile).dictionary(keys::buttons).set(keys::button(input), assigned);
    }
    void expectLines(const Lines& lines) const {
        EXPECT_EQ(linesOf(differencesBetween(earlier, now)), lines);
    }
    /// The other way round.
    void expectLinesBack(const Lines& lines) const {
        EXPECT_EQ(linesOf(differencesBetween(now, earlier)), lines);
    }

    Dictionary earlier = treeOfTwo();
    Dictionary now = treeOfTwo();
};

TEST_F(Differences, AreNoneInEqualTrees) {
    expectLines({});
}

TEST_F(Differences, OfInputsNameBothFunctions) {
    assign(0, 4, button(112));
    assign(0, 8, button(84));
    assign(0, 9, button(77));
    expectLines(
        {"Button 4 of “Drawing”: Back → Copy", "Turning the wheel up in “Drawing”: No Function → Volume Up",
            "Turning the wheel down in “Drawing”: No Function → Function 77"});
}

TEST_F(Differences, OfInputsNameKeysMacrosAndProfiles) {
    const auto layout = std::make_shared<TableLayout>();
    layout->types(0x30, 1, 0x09); // with Command held, as names are read
    SetCurrentKeyboardLayout(layout);
    EXPECT_EQ(GetKeyboardInformation(nullptr), 0);
    assign(0, 1, button(65, 7, 1));
    assign(0, 2, button(34, 2));
    assign(0, 3, button(49, 0x2B, 0x02));
    assign(0, 4, button(65, 50, 1));
    assign(0, 5, button(34, 9));
    expectLines({"Button 1 of “Drawing”: Primary Click → Macro “Build”",
        "Button 2 of “Drawing”: No Function → Profile “Mail”",
        "Button 3 of “Drawing”: No Function → Press Shift+tab", "Button 4 of “Drawing”: Back → Missing macro",
        "Button 5 of “Drawing”: No Function → Missing profile"});
}

TEST_F(Differences, LeaveOutWhatMenusSaidAndTheFirmware) {
    const auto said = button(5);
    said.set(keys::string, u"Zurück");
    assign(0, 4, said);
    now.set(keys::firmware, 0x0200);
    expectLines({});
}

TEST_F(Differences, LeaveOutKeysThatReadAlikeWithoutAValue) {
    assign(0, 4, dict({{"command", 5}}));
    assign(0, 6, button(0));
    driverNow().set(keys::autoSwitch, false);
    expectLines({});
    expectLinesBack({});
}

TEST_F(Differences, TellLostAndNewProfilesAndMacrosFirst) {
    assign(0, 4, button(112));
    now.array(keys::profiles).remove(1);
    now.array(keys::macros).remove(0);
    now.array(keys::macros).append(macro(9, u"Jump"));
    macroNow(1).array(keys::steps).remove(0);
    expectLines({"Profile “Mail” was there", "Macro “Build” was there", "Macro “Jump” was not there",
        "Button 4 of “Drawing”: Back → Copy"});
    expectLinesBack({"Macro “Jump” was there", "Profile “Mail” was not there", "Macro “Build” was not there",
        "Button 4 of “Drawing”: Copy → Back"});
}

// The lowest free identifier is given away first.
TEST_F(Differences, TellAMacroFromANewOneOfItsIdentifier) {
    assign(0, 4, button(65, 7, 1));
    earlier.array(keys::profiles).dictionary(0).dictionary(keys::buttons).set("04", button(65, 7, 1));
    now.array(keys::macros).remove(0);
    now.array(keys::macros).append(dict({{"macroid", 7}, {"name", u"Hello"}, {"steps", list()}}));
    expectLines({"Macro “Build” was there", "Macro “Hello” was not there",
        "Button 4 of “Drawing”: Macro “Build” → Macro “Hello”"});
}

TEST_F(Differences, FollowAMacroToAnotherIdentifier) {
    earlier.array(keys::profiles).dictionary(0).dictionary(keys::buttons).set("04", button(65, 7, 1));
    assign(0, 4, button(65, 11, 1));
    macroNow(0).set(keys::macroId, 11);
    expectLines({"Other settings are different"});
}

TEST_F(Differences, KnowRenamedProfilesAndMacrosAgain) {
    profileNow(0).set(keys::name, u"Sketch");
    macroNow(1).set(keys::name, u"Greeting");
    assign(0, 4, button(112));
    expectLines({"Profile “Sketch” was named “Drawing”", "Button 4 of “Sketch”: Back → Copy",
        "Macro “Greeting” was named “Sign”"});
}

TEST_F(Differences, TakeAProfileWithOtherFunctionsForANewOne) {
    profileNow(1).set(keys::name, u"Game");
    profileNow(1).set(keys::buttons, dict({{"01", button(1)}}));
    expectLines({"Profile “Mail” was there", "Profile “Game” was not there"});
}

TEST_F(Differences, FollowTheNumbersOfProfilesThatMoveUp) {
    for (const auto& tree : {earlier, now})
        tree.array(keys::profiles).append(profileOf(u"Game", dict({{"02", button(34, 2)}})));
    now.array(keys::profiles).remove(0);
    profileNow(1).dictionary(keys::buttons).set("02", button(34, 1));
    now.dictionary(keys::settings).set(keys::profileId, 1);
    expectLines({"Profile “Drawing” was there", "Current profile: Drawing → Mail"});
}

TEST_F(Differences, TellAnInputThatSwitchesToAnotherProfileByTheSameNumber) {
    for (const auto& tree : {earlier, now})
        tree.array(keys::profiles).append(profileOf(u"Game", dict({{"02", button(34, 2)}})));
    now.array(keys::profiles).remove(0);
    expectLines({"Profile “Drawing” was there", "Button 2 of “Game”: Profile “Mail” → Profile “Game”",
        "Current profile: Drawing → Mail"});
}

TEST_F(Differences, TellAnotherOrder) {
    const auto first = now.array(keys::profiles).value(0);
    now.array(keys::profiles).remove(0);
    now.array(keys::profiles).append(first);
    now.dictionary(keys::settings).set(keys::profileId, 2);
    const auto firstMacro = now.array(keys::macros).value(0);
    now.array(keys::macros).remove(0);
    now.array(keys::macros).append(firstMacro);
    expectLines({"The profiles were in a different order", "The macros were in a different order"});
}

TEST_F(Differences, OfStagesNameTheirResolutions) {
    profileNow(0).array(keys::stages).replace(0, stage(500, 500));
    profileNow(0).array(keys::stages).dictionary(1).set(keys::independentXY, true);
    profileNow(0).set(keys::defaultStage, 1);
    expectLines({"Stage 1 of “Drawing”: 400 DPI → 500 DPI", "Stage 2 of “Drawing”: 800 DPI → 800 × 1600 DPI",
        "Selected stage of “Drawing”: 2 → 1"});
}

TEST_F(Differences, OfTheNumberOfStagesListThem) {
    profileNow(0).array(keys::stages).append(dict({{"dpix", 100}, {"dpiy", 200}, {"independentxy", true}}));
    expectLines({"Stages of “Drawing”: 400, 800 → 400, 800, 100 × 200"});
    for (int dpi = 1; dpi <= 3; ++dpi)
        profileNow(0).array(keys::stages).append(stage(dpi * 100, 0));
    expectLines({"Stages of “Drawing”: 400, 800 → 400, 800, 100 × 200, 100, 200, …"});
    profileNow(0).set(keys::stages, Array::create());
    expectLines({"Stages of “Drawing”: 400, 800 → 0"});
}

TEST_F(Differences, OfAProfilesOptionsAreNamed) {
    const auto driver = driverNow();
    for (const auto key :
        {keys::autoSwitch, keys::sensitivityDisplay, keys::profileDisplay, keys::enableAcceleration})
        driver.set(key, true);
    driver.set(keys::acceleration, 1.5);
    driver.set(keys::application, u"Krita");
    profileNow(0).set(keys::ledState, 0);
    expectLines({"Sensitivity shown on screen in “Drawing”: Off → On",
        "Acceleration of “Drawing”: Off → 1.50", "Application of “Drawing”: No application → Krita",
        "Automatic switching to “Drawing”: Off → On", "Name shown on screen for “Drawing”: Off → On",
        "Wheel light in “Drawing”: On → Off", "Battery indicator light in “Drawing”: On → Off"});
}

TEST_F(Differences, OfStepsAreToldByWhatTheyAre) {
    macroNow(0).array(keys::steps).remove(1);
    macroNow(1).array(keys::steps).dictionary(0).set(keys::argument, 5);
    expectLines({"Steps of macro “Build”: 2 → 1", "Macro “Sign” had different steps"});
    now = treeOfTwo();
    macroNow(1).array(keys::steps).dictionary(0).set(keys::delay, 500);
    expectLines({"Macro “Sign” had different delays"});
}

TEST_F(Differences, OfTheMouseStandLast) {
    now.dictionary(keys::settings).set(keys::pollingRate, 125);
    now.dictionary(keys::settings).set(keys::profileId, 2);
    assign(1, 1, button(1));
    expectLines({"Button 1 of “Mail”: Copy → Primary Click", "Current profile: Drawing → Mail",
        "Polling rate: 1000 Hz → 125 Hz"});
}

TEST_F(Differences, TellTheCurrentSensitivityOnlyWhenNothingElseSaysIt) {
    now.dictionary(keys::settings).set(keys::dpiX, 500);
    expectLines({"Current sensitivity: 800 DPI → 500 DPI"});
    profileNow(0).array(keys::stages).replace(0, stage(500, 500));
    expectLines({"Stage 1 of “Drawing”: 400 DPI → 500 DPI"});
}

TEST_F(Differences, WithoutWordsAreOneSentence) {
    now.set("others", u"key");
    profileNow(0).set("also", 1);
    profileNow(0).set(keys::ledState, 3 + 64);
    macroNow(0).set("and", 1);
    expectLines({"Other settings are different"});
    assign(0, 4, button(112));
    expectLines({"Button 4 of “Drawing”: Back → Copy", "Other settings are different"});
}

TEST_F(Differences, AreNoMoreThanCanBeRead) {
    const auto profiles = Array::create();
    for (int index = 0; index < 30; ++index)
        profiles.append(profileOf(u"P" + toUtf16(std::to_string(index)), dict({{"01", button(1)}})));
    earlier.set(keys::profiles, profiles);
    now = plist::mutableDeepCopy(earlier);
    for (std::size_t index = 0; index < 30; ++index)
        for (int input = 2; input <= 5; ++input)
            assign(index, input, button(112));
    const auto lines = linesOf(differencesBetween(earlier, now));
    ASSERT_EQ(lines.size(), mostDifferences);
    EXPECT_EQ(lines.front(), "Button 2 of “P0”: No Function → Copy");
    EXPECT_EQ(lines.back(), "Other settings are different");
}

TEST_F(Differences, AreFoundBehindWhatIsMatched) {
    const auto macros = Array::create();
    for (int index = 0; index < 40; ++index)
        macros.append(macro(index, u"M" + toUtf16(std::to_string(index))));
    earlier.set(keys::macros, macros);
    now = plist::mutableDeepCopy(earlier);
    expectLines({});
    macroNow(39).set(keys::name, u"other");
    expectLines({"Other settings are different"});
}

// A list of 65,536 empty profiles is a small file.
TEST_F(Differences, OfLongListsCopyNoMoreThanIsLookedInto) {
    const auto profiles = Array::create();
    for (std::size_t index = 0; index < mostMatched + 2; ++index)
        profiles.append(Dictionary::create());
    now.set(keys::profiles, profiles);
    const auto counted = whatCounts(now).array(keys::profiles);
    EXPECT_EQ(counted.dictionary(mostMatched - 1).dictionary(keys::buttons).size(), 9U);
    EXPECT_TRUE(counted.dictionary(mostMatched).isSameAs(profiles.dictionary(mostMatched)));
    EXPECT_TRUE(counted.dictionary(mostMatched + 1).isSameAs(profiles.dictionary(mostMatched + 1)));
}

TEST_F(Differences, OfMissingTreesAreTotal) {
    EXPECT_EQ(differencesBetween({}, {}).size(), 0U);
    EXPECT_EQ(linesOf(differencesBetween({}, now)).front(), "Profile “Drawing” was not there");
    EXPECT_EQ(linesOf(differencesBetween(now, {})).front(), "Profile “Drawing” was there");
}

TEST(Phrases, FillEachPlaceOnce) {
    const Phrase phrase = patternPhrase(u"^2 and ^1, ^3, ^^ ^", {namePhrase(u"^2"), plainPhrase(5)});
    EXPECT_EQ(inWords(phrase, englishWording()), u"5 and ^2, ^3, ^^ ^");
}

TEST(Phrases, AreSaidInTheLanguageWithNamesAsItHasThem) {
    const Wording wording{
        [](std::u16string_view english) { return english == u"Off" ? std::u16string(u"Aus") : u"[^2] ^1"; },
        [](std::u16string_view pattern, std::u16string_view name) {
            return std::u16string(pattern).append(u"<").append(name).append(u">");
        }};
    EXPECT_EQ(inWords(patternPhrase(u"^1 ^2", {patternPhrase(u"Off"), namePhrase(u"A")}), wording),
        u"[[^2] ^1<A>] Aus");
}

TEST(Phrases, AskForANameThatIsEmpty) {
    EXPECT_EQ(inWords(patternPhrase(u"“^1”", {namePhrase(u"")}), englishWording()), u"“?”");
}

} // namespace
} // namespace quorvi::test
