#include "keyboard/KeyNames.h"

#include <gtest/gtest.h>

#include "TableLayout.h"

using namespace quorvi;
using quorvi::test::TableLayout;

namespace {

constexpr std::uint8_t kCommand = 1;

struct KeyAndCharacter {
    std::uint8_t key;
    char16_t character;
};

// What the keys of a small layout type with Command held.
constexpr KeyAndCharacter kKeyboard[] = {{0x00, u'a'}, {0x12, u'1'}, {0x21, u'é'}, {0x06, u'ж'}, {0x31, u' '},
    {0x24, 0x0D}, {0x30, 0x09}, {0x33, 0x08}, {0x35, 0x1B}, {0x47, 0x1B}, {0x4C, 0x03}, {0x53, u'1'},
    {0x41, u'.'}, {0x5C, u'9'}, {0x5D, u'¥'}, {0x40, 0x10}, {0x72, 0x05}, {0x73, 0x01}, {0x74, 0x0B},
    {0x75, 0x7F}, {0x77, 0x04}, {0x79, 0x0C}, {0x7B, 0x1C}, {0x7C, 0x1D}, {0x7D, 0x1F}, {0x7E, 0x1E},
    {0x0A, 0x02}, {0x38, u's'}, {0x7F, u'p'}};

constexpr std::uint8_t kFunctionKeyCodes[] = {
    0x7A, 0x78, 0x63, 0x76, 0x60, 0x61, 0x62, 0x64, 0x65, 0x6D, 0x67, 0x6F, 0x69, 0x6B, 0x71};

class KeyNames : public testing::Test {
  protected:
    void SetUp() override {
        auto layout = std::make_shared<TableLayout>();
        for (const KeyAndCharacter& entry : kKeyboard)
            layout->types(entry.key, kCommand, entry.character);
        for (const std::uint8_t key : kFunctionKeyCodes)
            layout->types(key, kCommand, 0x10);
        layout->types(0x01, 0, u's'); // without Command: not to be read
        SetCurrentKeyboardLayout(layout);
        ASSERT_EQ(GetKeyboardInformation(nullptr), 0);
    }
    void TearDown() override {
        EXPECT_EQ(GetKeyboardInformation(nullptr), 0);
        SetCurrentKeyboardLayout(nullptr);
    }

    static std::u16string inBrackets(std::u16string_view text) {
        return std::u16string(u"[").append(text).append(u"]");
    }
};

TEST_F(KeyNames, charactersAreReadWithCommandHeld) {
    EXPECT_EQ(GetKeyChar(0x00), 'a');
    EXPECT_EQ(GetKeyChar(0x21), 0x8E);
    EXPECT_EQ(GetKeyChar(0x06), '?');
    EXPECT_EQ(GetKeyChar(0x01), 0);
}

TEST_F(KeyNames, theLastKeyIsNeverRead) {
    EXPECT_EQ(GetKeyChar(0x7F), 0);
    EXPECT_EQ(GetKeyName(0x7F), u"???");
}

TEST_F(KeyNames, onlySevenBitsOfAKeyCodeChooseTheCharacter) {
    EXPECT_EQ(GetKeyChar(0x80), 'a');
    EXPECT_EQ(GetKeyChar(0x1FF), 0);
    EXPECT_EQ(GetKeyName(0x80), u"a");
}

TEST_F(KeyNames, withoutALayoutTheCharactersStayAndTheErrorIsReturned) {
    SetCurrentKeyboardLayout(nullptr);
    EXPECT_EQ(GetKeyboardInformation(inBrackets), -192);
    EXPECT_EQ(GetKeyChar(0x00), 'a');
    EXPECT_EQ(GetKeyName(0x24), u"[return]"); // the localisation is kept all the same
    KeyboardLayoutSources sources;
    sources.managedLayout = [] { return ManagedLayout{-30795, 0, nullptr, nullptr}; };
    SetKeyboardLayoutSources(sources);
    EXPECT_EQ(GetKeyboardInformation(nullptr), -30795);
    EXPECT_EQ(GetKeyChar(0x00), 'a');
    SetCurrentKeyboardLayout(std::make_shared<TableLayout>());
}

TEST_F(KeyNames, aNewLayoutReplacesEveryCharacter) {
    auto other = std::make_shared<TableLayout>();
    other->types(0x00, kCommand, u'q');
    SetCurrentKeyboardLayout(other);
    EXPECT_EQ(GetKeyboardInformation(nullptr), 0);
    EXPECT_EQ(GetKeyChar(0x00), 'q');
    EXPECT_EQ(GetKeyChar(0x12), 0);
}

TEST_F(KeyNames, deadKeysDoNotReachTheNextKey) {
    auto layout = std::make_shared<TableLayout>();
    layout->typesNothing(0x00, kCommand, 9).types(0x01, kCommand, u's').types(0x01, kCommand, u'ŝ', 9);
    SetCurrentKeyboardLayout(layout);
    EXPECT_EQ(GetKeyboardInformation(nullptr), 0);
    EXPECT_EQ(GetKeyChar(0x00), 0);
    EXPECT_EQ(GetKeyChar(0x01), 's');
}

TEST_F(KeyNames, anOldStyleLayoutIsReadToo) {
    KeyboardLayoutSources sources;
    sources.managedLayout = [] {
        return ManagedLayout{0, 1, nullptr, [](std::uint16_t word) { return word == 0x0104U ? 0x68U : 0U; }};
    };
    SetKeyboardLayoutSources(sources);
    EXPECT_EQ(GetKeyboardInformation(nullptr), 0);
    EXPECT_EQ(GetKeyChar(0x04), 'h');
    EXPECT_EQ(GetKeyChar(0x00), 0);
}

TEST_F(KeyNames, modifierKeysHaveTheirNamesWhateverTheyType) {
    EXPECT_EQ(GetKeyName(55), u"Command");
    EXPECT_EQ(GetKeyName(56), u"Shift");
    EXPECT_EQ(GetKeyName(57), u"Caps Lock");
    EXPECT_EQ(GetKeyName(58), u"Option");
    EXPECT_EQ(GetKeyName(59), u"Control");
    EXPECT_EQ(GetKeyName(54), u"???");
    EXPECT_EQ(GetKeyName(60), u"???");
    EXPECT_EQ(GetKeyName(128 + 56), u"s"); // the code itself is compared, not its low seven bits
}

TEST_F(KeyNames, printingKeysAreTheirCharacter) {
    EXPECT_EQ(GetKeyName(0x00), u"a");
    EXPECT_EQ(GetKeyName(0x21), u"é");
    EXPECT_EQ(GetKeyName(0x5D), u"¥");
    EXPECT_EQ(GetKeyName(0x06), u"?");
}

TEST_F(KeyNames, controlCharactersHaveNames) {
    const std::pair<unsigned, const char16_t*> names[] = {{0x7B, u"left"}, {0x7C, u"right"}, {0x7E, u"up"},
        {0x7D, u"down"}, {0x73, u"home"}, {0x4C, u"enter"}, {0x77, u"end"}, {0x72, u"help"},
        {0x33, u"delete"}, {0x30, u"tab"}, {0x74, u"page up"}, {0x79, u"page down"}, {0x24, u"return"},
        {0x31, u"space"}, {0x75, u"forward delete"}};
    for (const auto& [key, name] : names)
        EXPECT_EQ(GetKeyName(key), name) << key;
}

TEST_F(KeyNames, escapeIsEscOnItsKeyAndClearElsewhere) {
    EXPECT_EQ(GetKeyName(0x35), u"esc");
    EXPECT_EQ(GetKeyName(0x47), u"clear");
    EXPECT_EQ(GetKeyName(0x35 + 128), u"clear");
}

TEST_F(KeyNames, functionKeysHaveNumbers) {
    const char16_t* const names[] = {u"F1", u"F2", u"F3", u"F4", u"F5", u"F6", u"F7", u"F8", u"F9", u"F10",
        u"F11", u"F12", u"F13", u"F14", u"F15"};
    for (std::size_t i = 0; i < std::size(names); ++i)
        EXPECT_EQ(GetKeyName(kFunctionKeyCodes[i]), names[i]);
    EXPECT_EQ(GetKeyName(0x7A), u"F1");
    EXPECT_EQ(GetKeyName(0x71), u"F15");
    EXPECT_EQ(GetKeyName(0x40), u"F");
}

TEST_F(KeyNames, unknownKeysAndNoKey) {
    EXPECT_EQ(GetKeyName(0x0A), u"???"); // types 0x02, which has no name
    EXPECT_EQ(GetKeyName(0x6E), u"???"); // types nothing
    EXPECT_EQ(GetKeyName(255), u"");
}

TEST_F(KeyNames, namesAreLocalisedButCharactersAreNot) {
    ASSERT_EQ(GetKeyboardInformation(inBrackets), 0);
    EXPECT_EQ(KeyNamesLocStr(u"text"), u"[text]");
    EXPECT_EQ(GetKeyName(0x00), u"a");
    EXPECT_EQ(GetKeyName(56), u"[Shift]");
    EXPECT_EQ(GetKeyName(0x74), u"[page up]");
    EXPECT_EQ(GetKeyName(0x35), u"[esc]");
    EXPECT_EQ(GetKeyName(0x47), u"[clear]");
    EXPECT_EQ(GetKeyName(0x6D), u"[F]10");
    EXPECT_EQ(GetKeyName(0x40), u"[F]");
    EXPECT_EQ(GetKeyName(0x0A), u"[???]");
    EXPECT_EQ(GetKeyName(255), u"");
    EXPECT_EQ(GetKeyCombinationName(0x53, 0x0300), u"[Command]+[Shift]+[Num]+1");
    EXPECT_EQ(GetKeyCombinationName(255, 0), u"[(none)]");
}

TEST_F(KeyNames, aTextWithoutAnEntryIsItself) {
    ASSERT_EQ(GetKeyboardInformation([](std::u16string_view key) {
        return key == u"Shift" ? std::u16string(u"Umschalt") : std::u16string();
    }),
        0);
    EXPECT_EQ(KeyNamesLocStr(u"Shift"), u"Umschalt");
    EXPECT_EQ(KeyNamesLocStr(u"Option"), u"Option");
    ASSERT_EQ(GetKeyboardInformation(nullptr), 0);
    EXPECT_EQ(KeyNamesLocStr(u"Shift"), u"Shift");
}

TEST_F(KeyNames, modifiersAreNamedInTheirOrder) {
    EXPECT_EQ(GetModifiersName(0, 0x1F00), u"Control+Command+Option+Shift+Caps Lock");
    EXPECT_EQ(GetModifiersName(0, 0x0100), u"Command");
    EXPECT_EQ(GetModifiersName(0, 0x0200), u"Shift");
    EXPECT_EQ(GetModifiersName(0, 0x0400), u"Caps Lock");
    EXPECT_EQ(GetModifiersName(0, 0x0800), u"Option");
    EXPECT_EQ(GetModifiersName(0, 0x1000), u"Control");
    EXPECT_EQ(GetModifiersName(0, 0xE0FF), u"");
}

TEST_F(KeyNames, keypadKeysAreMarkedBehindTheModifiers) {
    EXPECT_EQ(GetModifiersName(64, 0), u"");
    EXPECT_EQ(GetModifiersName(65, 0), u"Num");
    EXPECT_EQ(GetModifiersName(92, 0), u"Num");
    EXPECT_EQ(GetModifiersName(93, 0), u"");
    EXPECT_EQ(GetModifiersName(83, 0x0A00), u"Option+Shift+Num");
}

TEST_F(KeyNames, combinationOfNoKey) {
    EXPECT_EQ(GetKeyCombinationName(255, 0), u"(none)");
    EXPECT_EQ(GetKeyCombinationName(255, 0x0300), u"Command+Shift");
    EXPECT_EQ(GetKeyCombinationName(0xFFFFFFFFU, 0x10000), u"(none)");
}

TEST_F(KeyNames, combinationWithoutModifiers) {
    EXPECT_EQ(GetKeyCombinationName(0x00, 0), u"a");
    EXPECT_EQ(GetKeyCombinationName(83, 0), u"Num+1");
    EXPECT_EQ(GetKeyCombinationName(65, 0), u"Num+.");
    EXPECT_EQ(GetKeyCombinationName(92, 0), u"Num+9");
    EXPECT_EQ(GetKeyCombinationName(93, 0), u"¥");
    EXPECT_EQ(GetKeyCombinationName(64, 0), u"F");
    EXPECT_EQ(GetKeyCombinationName(56, 0), u"Shift");
}

TEST_F(KeyNames, combinationWithModifiers) {
    EXPECT_EQ(GetKeyCombinationName(0x74, 0x0300), u"Command+Shift+page up");
    EXPECT_EQ(GetKeyCombinationName(0x00, 0x1F00), u"Control+Command+Option+Shift+Caps Lock+a");
    EXPECT_EQ(GetKeyCombinationName(0x53, 0x1000), u"Control+Num+1");
}

TEST_F(KeyNames, onlyTheLowBitsOfACombinationCount) {
    EXPECT_EQ(GetKeyCombinationName(0x100, 0x10200), u"Shift+a");
    EXPECT_EQ(GetKeyCombinationName(0x00, 0xFFFF0000U), u"a");
}

TEST_F(KeyNames, bitsThatAreNoModifierLeaveTheKeyAlone) {
    EXPECT_EQ(GetKeyCombinationName(0x00, 0xE0FF), u"a");
}

TEST_F(KeyNames, theMenuKeyAndNumLockAreShownByTheirOwnNames) {
    EXPECT_EQ(shownKeyCombination(0x6E, 0), u"menu");
    EXPECT_EQ(shownKeyCombination(0x47, 0), u"num lock");
    EXPECT_EQ(shownKeyCombination(0x47, 0x1200), u"Control+Shift+num lock");
    EXPECT_EQ(shownKeyCombination(0x16E, 0x10100), u"Command+menu"); // the low bits count
    ASSERT_EQ(GetKeyboardInformation(inBrackets), 0);
    EXPECT_EQ(shownKeyCombination(0x6E, 0x0100), u"[Command]+[menu]");
    EXPECT_EQ(shownKeyCombination(0x47, 0), u"[num lock]");
}

TEST_F(KeyNames, everyOtherKeyIsShownByItsCombinationsName) {
    for (std::uint32_t key = 0; key <= 0xFF; ++key)
        for (const std::uint32_t modifiers : {0x0000U, 0x0300U, 0x1F00U}) {
            const bool hasItsOwn = key == 0x47 || key == 0x6E;
            EXPECT_EQ(
                shownKeyCombination(key, modifiers) == GetKeyCombinationName(key, modifiers), !hasItsOwn)
                << key;
        }
}

TEST_F(KeyNames, aMenuKeyThatALayoutHasTypeSomethingIsShownByThat) {
    auto layout = std::make_shared<TableLayout>();
    layout->types(0x6E, kCommand, u'<');
    SetCurrentKeyboardLayout(layout);
    ASSERT_EQ(GetKeyboardInformation(nullptr), 0);
    EXPECT_EQ(shownKeyCombination(0x6E, 0), u"<");
}

} // namespace
