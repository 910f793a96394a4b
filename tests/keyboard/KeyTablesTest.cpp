#include "keyboard/KeyTables.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "TableLayout.h"

using namespace quorvi;
using quorvi::test::TableLayout;

namespace {

constexpr std::uint8_t kShift = 2;
constexpr std::uint8_t kCapsLock = 4;
constexpr std::uint8_t kOption = 8;
constexpr std::uint8_t kControl = 16;

class KeyTables : public testing::Test {
  protected:
    void SetUp() override { SetCurrentKeyboardLayout(layout); }
    void TearDown() override { SetCurrentKeyboardLayout(nullptr); }

    void build(bool preferKeypad = false) {
        ASSERT_TRUE(UpdateKeyTablesNumPad(&keys, &modifiers, preferKeypad));
    }

    /// Key code in the high byte and modifier byte in the low one.
    unsigned keystroke(unsigned char character) const { return keys[character] << 8U | modifiers[character]; }

    std::shared_ptr<TableLayout> layout = std::make_shared<TableLayout>();
    KeyTable keys{};
    KeyTable modifiers{};
};

TEST_F(KeyTables, messageAndModifiersOfACharacter) {
    keys['A'] = 0x12;
    modifiers['A'] = kShift | kOption;
    keys[0xFF] = 0xFE;
    EXPECT_EQ(GetCharMessage(keys, 'A'), 0x1241);
    EXPECT_EQ(GetCharMessage(keys, 0xFF), 0xFEFF);
    EXPECT_EQ(GetCharModifiers(modifiers, 'A'), 0x0A00);
    EXPECT_EQ(GetCharModifiers(modifiers, 'B'), 0x0000);
}

TEST_F(KeyTables, whatNoKeyTypesHasNoKeyAndNoModifiers) {
    keys.fill(7);
    modifiers.fill(7);
    layout->types(0x00, 0, u'a');
    build();
    for (unsigned character = 0; character < 256; ++character)
        EXPECT_EQ(keystroke(static_cast<unsigned char>(character)), character == 'a' ? 0x0000U : 0xFF00U);
}

TEST_F(KeyTables, everyModifierSetOfTheBuildIsTried) {
    layout->types(0x01, 0, u'a')
        .types(0x02, kShift, u'b')
        .types(0x03, kCapsLock, u'c')
        .types(0x04, kOption, u'd');
    layout->types(0x05, kShift | kOption, u'e')
        .types(0x06, kCapsLock | kOption, u'f')
        .types(0x07, kControl, u'g');
    layout->types(0x08, 1, u'h').types(0x09, kShift | kControl, u'i').types(0x0A, kShift | kCapsLock, u'j');
    build();
    EXPECT_EQ(keystroke('a'), 0x0100U);
    EXPECT_EQ(keystroke('b'), 0x0202U);
    EXPECT_EQ(keystroke('c'), 0x0304U);
    EXPECT_EQ(keystroke('d'), 0x0408U);
    EXPECT_EQ(keystroke('e'), 0x050AU);
    EXPECT_EQ(keystroke('f'), 0x060CU);
    EXPECT_EQ(keystroke('g'), 0x0710U);
    for (const unsigned char character : {'h', 'i', 'j'})
        EXPECT_EQ(keystroke(character), 0xFF00U) << character;
}

TEST_F(KeyTables, everyKeyFrom0To127IsTried) {
    layout->types(0, 0, u'a').types(127, 0, u'z');
    build();
    EXPECT_EQ(keystroke('a'), 0x0000U);
    EXPECT_EQ(keystroke('z'), 0x7F00U);
}

TEST_F(KeyTables, lowByteOfTheCharacterIsTheIndex) {
    layout->types(0x00, 0, u'é').types(0x01, 0, u'ж'); // 0x00E9 and 0x0436
    build();
    EXPECT_EQ(keystroke(0xE9), 0x0000U);
    EXPECT_EQ(keystroke(0x36), 0x0100U);
}

TEST_F(KeyTables, theFirstKeystrokeStaysOnATie) {
    layout->types(0x10, 0, u'x').types(0x20, 0, u'x');
    layout->types(0x21, kShift, u'y').types(0x11, kShift, u'y');
    build();
    EXPECT_EQ(keystroke('x'), 0x1000U);
    EXPECT_EQ(keystroke('y'), 0x1102U);
}

TEST_F(KeyTables, aCheaperKeystrokeReplacesADearerOne) {
    layout->types(0x20, kCapsLock, u'x').types(0x10, kOption, u'x'); // Caps Lock is tried before Option
    layout->types(0x21, kShift, u'y').types(0x11, kOption, u'y');
    build();
    EXPECT_EQ(keystroke('x'), 0x1008U);
    EXPECT_EQ(keystroke('y'), 0x2102U);
}

TEST_F(KeyTables, mainKeyboardWinsOverTheKeypadEvenWithModifiers) {
    layout->types(0x57, 0, u'5').types(0x17, kShift, u'5');
    build();
    EXPECT_EQ(keystroke('5'), 0x1702U);
    ASSERT_TRUE(UpdateKeyTables(&keys, &modifiers));
    EXPECT_EQ(keystroke('5'), 0x1702U);
}

TEST_F(KeyTables, keypadWinsWhereItIsPreferred) {
    layout->types(0x17, 0, u'5').types(0x57, kShift, u'5');
    build(true);
    EXPECT_EQ(keystroke('5'), 0x5702U);
    build(false);
    EXPECT_EQ(keystroke('5'), 0x1700U);
}

TEST_F(KeyTables, escapeWinsOverClear) {
    layout->types(0x47, 0, 0x1B).types(0x35, kOption, 0x1B);
    build();
    EXPECT_EQ(keystroke(0x1B), 0x3508U);
}

TEST_F(KeyTables, aKeyThatTypesNothingStandsForTheCharacterBeforeIt) {
    layout->types(0x50, 0, u'a'); // in the keypad's range, so that any later main key is better
    layout->typesNothing(0x60, 0);
    build();
    EXPECT_EQ(keystroke('a'), 0x6000U);
}

TEST_F(KeyTables, theCharacterBeforeOutlivesFailuresAndTheModifierSet) {
    layout->types(0x50, 0, u'a'); // nothing after it can be translated until the next set's key 0x30
    layout->typesNothing(0x30, kShift);
    build();
    EXPECT_EQ(keystroke('a'), 0x3002U);
    EXPECT_EQ(keystroke(0), 0xFF00U);
}

TEST_F(KeyTables, aKeyThatTypesNothingAtTheVeryStartStandsForCharacterZero) {
    layout->typesNothing(0x05, 0);
    build();
    EXPECT_EQ(keystroke(0), 0x0500U);
}

TEST_F(KeyTables, deadKeyStateRunsOnThroughTheWholeBuild) {
    layout->types(0x10, 0, u'o').typesNothing(0x70, 0, 3); // dead key, last of the first modifier set
    layout->types(0x01, kShift, u'A').types(0x01, kShift, u'Z', 3).types(0x02, kShift, u'B');
    build();
    EXPECT_EQ(keystroke('Z'), 0x0102U);
    EXPECT_EQ(keystroke('A'), 0xFF00U);
    EXPECT_EQ(keystroke('B'), 0x0202U);
}

TEST_F(KeyTables, updateFailsWithoutATableOrALayout) {
    EXPECT_FALSE(UpdateKeyTablesNumPad(nullptr, &modifiers, false));
    EXPECT_FALSE(UpdateKeyTablesNumPad(&keys, nullptr, false));
    EXPECT_FALSE(UpdateKeyTables(nullptr, &modifiers));
    keys.fill(7);
    SetCurrentKeyboardLayout(nullptr);
    EXPECT_FALSE(UpdateKeyTables(&keys, &modifiers));
    EXPECT_EQ(keys['a'], 7);
}

TEST_F(KeyTables, anOldStyleLayoutDoesNotDo) {
    KeyboardLayoutSources sources;
    sources.managedLayout = [] {
        return ManagedLayout{0, layoutKindOldStyle, nullptr, [](std::uint16_t) { return 97U; }};
    };
    SetKeyboardLayoutSources(sources);
    EXPECT_FALSE(UpdateKeyTables(&keys, &modifiers));
}

TEST_F(KeyTables, setupMakesAndFillsTwoTables) {
    layout->types(0x17, 0, u'5').types(0x57, 0, u'5').types(0x00, kShift, u'A');
    KeyTableSlot keySlot;
    KeyTableSlot modifierSlot;
    ASSERT_TRUE(SetupKeyTables(&keySlot, &modifierSlot));
    EXPECT_EQ(keySlot->at('5'), 0x17);
    EXPECT_EQ(keySlot->at('A'), 0x00);
    EXPECT_EQ(keySlot->at('B'), 0xFF);
    EXPECT_EQ(modifierSlot->at('A'), kShift);
    ASSERT_TRUE(SetupKeyTablesNumPad(&keySlot, &modifierSlot, true));
    EXPECT_EQ(keySlot->at('5'), 0x57);
}

TEST_F(KeyTables, setupFailsWithoutASlotOrALayout) {
    KeyTableSlot keySlot;
    KeyTableSlot modifierSlot;
    EXPECT_FALSE(SetupKeyTables(nullptr, &modifierSlot));
    EXPECT_EQ(modifierSlot, nullptr);
    EXPECT_FALSE(SetupKeyTablesNumPad(&keySlot, nullptr, true));
    EXPECT_EQ(keySlot, nullptr);
    SetCurrentKeyboardLayout(nullptr);
    EXPECT_FALSE(SetupKeyTables(&keySlot, &modifierSlot));
    ASSERT_NE(keySlot, nullptr);
    EXPECT_EQ(keySlot->at('a'), 0xFF);
    EXPECT_EQ(modifierSlot->at('a'), 0);
}

TEST(BetterKeystroke, escapeBeatsClearWhateverElse) {
    EXPECT_TRUE(IsBetterKeystroke(0x35, 31, 0x47, 0, true));
    EXPECT_TRUE(IsBetterKeystroke(0x35, 31, 0x47, 0, false));
    EXPECT_FALSE(IsBetterKeystroke(0x47, 0, 0x35, 31, false));
    EXPECT_FALSE(IsBetterKeystroke(0x47, 0, 0x35, 31, true)); // Clear is no keypad key to prefer
}

TEST(BetterKeystroke, preferredKeypadKeysAreTheSeventeen) {
    constexpr std::uint8_t keypad[] = {
        0x51, 0x4B, 0x43, 0x59, 0x5B, 0x5C, 0x4E, 0x56, 0x57, 0x58, 0x45, 0x53, 0x54, 0x55, 0x52, 0x41, 0x4C};
    for (unsigned key = 0; key < 128; ++key) {
        const bool isKeypad = std::find(std::begin(keypad), std::end(keypad), key) != std::end(keypad);
        const auto code = static_cast<std::uint8_t>(key);
        EXPECT_EQ(IsBetterKeystroke(code, 31, 0x00, 0, true), isKeypad) << key;
        EXPECT_EQ(IsBetterKeystroke(0x00, 0, code, 31, true), !isKeypad) << key;
    }
}

TEST(BetterKeystroke, keysOutside64To95WinOtherwise) {
    EXPECT_TRUE(IsBetterKeystroke(63, 31, 64, 0, false));
    EXPECT_TRUE(IsBetterKeystroke(96, 31, 95, 0, false));
    EXPECT_FALSE(IsBetterKeystroke(64, 0, 63, 31, false));
    EXPECT_FALSE(IsBetterKeystroke(95, 0, 96, 31, false));
    EXPECT_FALSE(IsBetterKeystroke(0x5F, 0, 0x00, 31, true)); // in the range, but not to be preferred
}

TEST(BetterKeystroke, twoKeypadKeysAreComparedByCost) {
    EXPECT_TRUE(IsBetterKeystroke(0x53, 0, 0x54, kShift, true));
    EXPECT_FALSE(IsBetterKeystroke(0x53, kShift, 0x54, 0, true));
    EXPECT_TRUE(IsBetterKeystroke(0x53, 0, 0x54, kShift, false));
}

TEST(BetterKeystroke, modifiersFromCheapToDear) {
    // Sums of Shift 1, Option 2, Control 4, Caps Lock 8 and Command 16, from 0 to 31 in order of their cost.
    constexpr std::uint8_t byCost[] = {0, 2, 8, 10, 16, 18, 24, 26, 4, 6, 12, 14, 20, 22, 28, 30, 1, 3, 9, 11,
        17, 19, 25, 27, 5, 7, 13, 15, 21, 23, 29, 31};
    for (std::size_t older = 0; older < std::size(byCost); ++older)
        for (std::size_t newer = 0; newer < std::size(byCost); ++newer)
            EXPECT_EQ(IsBetterKeystroke(1, byCost[newer], 2, byCost[older], false), newer < older);
}

} // namespace
