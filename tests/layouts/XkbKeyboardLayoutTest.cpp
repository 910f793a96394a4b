#include "layouts/XkbKeyboardLayout.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include <xkbcommon/xkbcommon.h>

#include "keyboard/KeyNames.h"
#include "keyboard/KeyTables.h"

using namespace quorvi;

namespace {

constexpr std::uint8_t kCommand = 1;
constexpr std::uint8_t kShift = 2;
constexpr std::uint8_t kCapsLock = 4;
constexpr std::uint8_t kOption = 8;
constexpr std::uint8_t kControl = 16;

KeyboardLayoutRef named(const char* layout, const char* variant = "") {
    return makeKeyboardLayout({"evdev", "pc105", layout, variant, ""});
}

/// The character of a keystroke with no dead key before it; 0 when it types nothing, 0xFFFF when it fails.
char16_t typed(const KeyboardLayoutRef& layout, std::uint8_t key, std::uint8_t modifiers = 0) {
    std::uint32_t state = 0;
    const KeyTranslation translation = layout->translate(key, modifiers, state);
    return translation.succeeded ? translation.character.value_or(0) : u'\uFFFF';
}

/// A keymap from text or from names, as another source of keymaps would hand it over.
class OwnKeymap {
  public:
    explicit OwnKeymap(const char* layouts) {
        const xkb_rule_names names{"evdev", "pc105", layouts, "", ""};
        m_keymap.reset(xkb_keymap_new_from_names(m_context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    }
    xkb_keymap* get() const { return m_keymap.get(); }

  private:
    std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> m_context{
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), xkb_context_unref};
    std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> m_keymap{nullptr, xkb_keymap_unref};
};

TEST(XkbKeyboardLayout, keysThatTypeNoTextHaveTheirControlCharacters) {
    const KeyboardLayoutRef us = named("us");
    const std::pair<unsigned, unsigned> keys[] = {{0x7B, 0x1C}, {0x7C, 0x1D}, {0x7E, 0x1E}, {0x7D, 0x1F},
        {0x73, 0x01}, {0x4C, 0x03}, {0x77, 0x04}, {0x72, 0x05}, {0x33, 0x08}, {0x30, 0x09}, {0x74, 0x0B},
        {0x79, 0x0C}, {0x24, 0x0D}, {0x31, 0x20}, {0x75, 0x7F}, {0x35, 0x1B}, {0x47, 0x1B}, {0x7A, 0x10},
        {0x78, 0x10}, {0x63, 0x10}, {0x76, 0x10}, {0x60, 0x10}, {0x61, 0x10}, {0x62, 0x10}, {0x64, 0x10},
        {0x65, 0x10}, {0x6D, 0x10}, {0x67, 0x10}, {0x6F, 0x10}, {0x69, 0x10}, {0x6B, 0x10}, {0x71, 0x10},
        {0x6A, 0x10}, {0x40, 0x10}, {0x4F, 0x10}, {0x50, 0x10}, {0x5A, 0x10}};
    for (const auto& [key, character] : keys)
        for (const std::uint8_t modifiers : {0, 1, 2, 4, 16})
            EXPECT_EQ(typed(us, static_cast<std::uint8_t>(key), modifiers), character) << key;
}

TEST(XkbKeyboardLayout, modifierKeysAndPositionsWithoutAKeyTypeNothing) {
    const KeyboardLayoutRef us = named("us");
    for (const std::uint8_t key : {0x37, 0x38, 0x39, 0x3A, 0x3B, 0x34, 0x6E, 0x7F, 0x80, 0xFF})
        EXPECT_EQ(typed(us, key), 0) << int{key};
}

TEST(XkbKeyboardLayout, shiftAndCapsLockChooseTheLevel) {
    const KeyboardLayoutRef us = named("us");
    EXPECT_EQ(typed(us, 0x00), u'a');
    EXPECT_EQ(typed(us, 0x00, kShift), u'A');
    EXPECT_EQ(typed(us, 0x00, kCapsLock), u'A');
    EXPECT_EQ(typed(us, 0x00, kCapsLock | kShift), u'a');
    EXPECT_EQ(typed(us, 0x12), u'1');
    EXPECT_EQ(typed(us, 0x12, kShift), u'!');
    EXPECT_EQ(typed(us, 0x12, kCapsLock), u'1');
}

TEST(XkbKeyboardLayout, optionIsTheThirdLevel) {
    const KeyboardLayoutRef de = named("de");
    EXPECT_EQ(typed(de, 0x0C, kOption), u'@');
    EXPECT_EQ(typed(de, 0x0E, kOption), u'€');
    EXPECT_EQ(typed(de, 0x1A, kOption), u'{');
    EXPECT_EQ(typed(named("gb"), 0x15, kOption), u'€');
    EXPECT_EQ(typed(named("se"), 0x13, kOption), u'@');
    EXPECT_EQ(typed(named("us"), 0x00, kOption), u'a'); // has no third level there
}

TEST(XkbKeyboardLayout, controlTurnsLettersIntoControlCharacters) {
    const KeyboardLayoutRef us = named("us");
    EXPECT_EQ(typed(us, 0x00, kControl), 0x01);
    EXPECT_EQ(typed(us, 0x06, kControl), 0x1A);
    EXPECT_EQ(typed(us, 0x00, kControl | kShift), 0x01);
    EXPECT_EQ(typed(us, 0x21, kControl), 0x1B);
    EXPECT_EQ(typed(us, 0x2A, kControl), 0x1C);
    EXPECT_EQ(typed(us, 0x1E, kControl), 0x1D);
    EXPECT_EQ(typed(us, 0x13, kControl | kShift), 0x00);
    EXPECT_EQ(typed(us, 0x1B, kControl | kShift), 0x1F);
    EXPECT_EQ(typed(us, 0x12, kControl), u'1');
    EXPECT_EQ(typed(us, 0x31, kControl), u' ');
    EXPECT_EQ(typed(named("de"), 0x27, kControl), u'ä');
}

TEST(XkbKeyboardLayout, commandIsNoPartOfTheLevel) {
    const KeyboardLayoutRef de = named("de");
    EXPECT_EQ(typed(de, 0x10, kCommand), u'z');
    EXPECT_EQ(typed(de, 0x10, kCommand | kShift), u'Z');
    EXPECT_EQ(typed(de, 0x0C, kCommand | kOption), u'@');
}

TEST(XkbKeyboardLayout, keypadTypesDigitsWhateverIsHeld) {
    const KeyboardLayoutRef us = named("us");
    for (const std::uint8_t modifiers : {0, 1, 2, 4, 8}) {
        EXPECT_EQ(typed(us, 0x52, modifiers), u'0');
        EXPECT_EQ(typed(us, 0x5C, modifiers), u'9');
        EXPECT_EQ(typed(us, 0x41, modifiers), u'.');
        EXPECT_EQ(typed(us, 0x51, modifiers), u'=');
        EXPECT_EQ(typed(us, 0x5F, modifiers), u'.');
    }
    EXPECT_EQ(typed(named("de"), 0x41), u',');
}

TEST(XkbKeyboardLayout, isoKeyIsTheOneBesideTheLeftShift) {
    EXPECT_EQ(typed(named("us"), 0x0A), u'<');
    EXPECT_EQ(typed(named("gb"), 0x0A), u'\\');
    EXPECT_EQ(typed(named("gb"), 0x32), u'`');
    EXPECT_EQ(typed(named("gb"), 0x2A), u'#');
}

TEST(XkbKeyboardLayout, japaneseKeys) {
    const KeyboardLayoutRef jp = named("jp");
    EXPECT_EQ(typed(jp, 0x5D), u'\\');
    EXPECT_EQ(typed(jp, 0x5D, kShift), u'|');
    EXPECT_EQ(typed(jp, 0x5E), u'\\');
    EXPECT_EQ(typed(jp, 0x5E, kShift), u'_');
    EXPECT_EQ(typed(jp, 0x66), 0);
    EXPECT_EQ(typed(jp, 0x68), 0);
}

TEST(XkbKeyboardLayout, deadKeyWaitsForTheNextCharacter) {
    const KeyboardLayoutRef de = named("de");
    std::uint32_t state = 0;
    const KeyTranslation dead = de->translate(0x32, 0, state);
    EXPECT_TRUE(dead.succeeded);
    EXPECT_EQ(dead.character, std::nullopt);
    EXPECT_NE(state, 0U);
    const KeyTranslation modifierKey = de->translate(0x38, 0, state); // types nothing, so it changes nothing
    EXPECT_TRUE(modifierKey.succeeded);
    EXPECT_NE(state, 0U);
    const KeyTranslation letter = de->translate(0x0E, 0, state);
    EXPECT_TRUE(letter.succeeded);
    EXPECT_EQ(letter.character, u'ê');
    EXPECT_EQ(state, 0U);
}

TEST(XkbKeyboardLayout, whatADeadKeyDoesNotGoWithFailsOnce) {
    const KeyboardLayoutRef de = named("de");
    for (const std::uint8_t next : {0x07, 0x18, 0x24}) { // x, the acute accent, return
        std::uint32_t state = 0;
        EXPECT_TRUE(de->translate(0x32, 0, state).succeeded);
        EXPECT_FALSE(de->translate(next, 0, state).succeeded) << int{next};
        EXPECT_EQ(state, 0U);
        EXPECT_EQ(de->translate(0x00, 0, state).character, u'a');
    }
}

TEST(XkbKeyboardLayout, deadKeyTwiceOrWithSpaceTypesItsAccent) {
    const KeyboardLayoutRef de = named("de");
    for (const std::uint8_t next : {0x32, 0x31}) {
        std::uint32_t state = 0;
        EXPECT_TRUE(de->translate(0x32, 0, state).succeeded);
        EXPECT_EQ(de->translate(next, 0, state).character, u'^');
        EXPECT_EQ(state, 0U);
    }
}

TEST(XkbKeyboardLayout, deadKeyTypesItsAccentWithCommand) {
    std::uint32_t state = 0;
    EXPECT_EQ(named("de")->translate(0x32, kCommand, state).character, u'^');
    EXPECT_EQ(state, 0U);
    EXPECT_EQ(typed(named("fr"), 0x21, kCommand), u'^');
}

TEST(XkbKeyboardLayout, lettersOfOtherAlphabetsAreTypedButNotForShortcuts) {
    const KeyboardLayoutRef ru = named("ru");
    EXPECT_EQ(typed(ru, 0x00), u'ф');
    EXPECT_EQ(typed(ru, 0x00, kCommand), u'a');
    EXPECT_EQ(typed(ru, 0x2C), u'.');
    EXPECT_EQ(typed(ru, 0x2C, kCommand), u'/'); // as a whole, or two keys would be the period
    EXPECT_EQ(typed(ru, 0x2F, kCommand), u'.');
}

TEST(XkbKeyboardLayout, shortcutsAreThoseOfTheFirstLatinLayoutOfTheKeymap) {
    EXPECT_EQ(typed(named("ru,gr,fr,us"), 0x00, kCommand), u'q');
    EXPECT_EQ(typed(named("ru,gr,fr,us"), 0x00), u'ф');
    EXPECT_EQ(typed(named("us,fr"), 0x00, kCommand), u'a');
}

TEST(XkbKeyboardLayout, mostOfTheAlphabetMakesALatinLayout) {
    EXPECT_EQ(typed(named("epo"), 0x0C, kCommand), u'ŝ');        // has 22 of the letters
    EXPECT_EQ(typed(named("in", "guru"), 0x00, kCommand), u'a'); // has one that strayed in
}

TEST(XkbKeyboardLayout, layoutOfAnyKeymapAndItsActiveGroup) {
    KeyboardLayoutRef first;
    KeyboardLayoutRef second;
    KeyboardLayoutRef past;
    {
        const OwnKeymap keymap("de,ru");
        first = makeKeyboardLayout(keymap.get(), 0);
        second = makeKeyboardLayout(keymap.get(), 1);
        past = makeKeyboardLayout(keymap.get(), 2);
    } // the layouts hold the keymap themselves
    EXPECT_EQ(typed(first, 0x10), u'z');
    EXPECT_EQ(typed(second, 0x10), u'н');
    EXPECT_EQ(typed(second, 0x10, kCommand), u'z');
    EXPECT_EQ(typed(past, 0x10), u'z');
    EXPECT_EQ(makeKeyboardLayout(static_cast<xkb_keymap*>(nullptr), 0), nullptr);
}

TEST(XkbKeyboardLayout, thereIsNoneForUnknownNames) {
    EXPECT_EQ(named("no-such-layout"), nullptr);
}

TEST(XkbKeyboardLayout, defaultIsTheConfiguredOneOrTheUsLayout) {
    setenv("XKB_DEFAULT_LAYOUT", "de", 1);
    EXPECT_EQ(typed(makeDefaultKeyboardLayout(), 0x10), u'z');
    setenv("XKB_DEFAULT_LAYOUT", "us", 1);
    setenv("XKB_DEFAULT_VARIANT", "dvorak", 1);
    EXPECT_EQ(typed(makeDefaultKeyboardLayout(), 0x01), u'o');
    setenv("XKB_DEFAULT_LAYOUT", "no-such-layout", 1);
    EXPECT_EQ(typed(makeDefaultKeyboardLayout(), 0x01), u's');
    unsetenv("XKB_DEFAULT_VARIANT");
    unsetenv("XKB_DEFAULT_LAYOUT");
}

TEST(XkbKeyboardLayout, namesUnderTheGermanLayout) {
    SetCurrentKeyboardLayout(named("de"));
    ASSERT_EQ(GetKeyboardInformation(nullptr), 0);
    EXPECT_EQ(GetKeyCombinationName(0x10, 0x0100), u"Command+z");
    EXPECT_EQ(GetKeyCombinationName(0x21, 0), u"ü");
    EXPECT_EQ(GetKeyCombinationName(0x32, 0), u"^");
    EXPECT_EQ(GetKeyCombinationName(0x41, 0), u"Num+,");
    EXPECT_EQ(GetKeyCombinationName(0x47, 0), u"Num+clear");
    EXPECT_EQ(GetKeyCombinationName(0x74, 0x0300), u"Command+Shift+page up");
    EXPECT_EQ(GetKeyCombinationName(0x6F, 0), u"F12");
    SetCurrentKeyboardLayout(nullptr);
}

TEST(XkbKeyboardLayout, reverseTablesOfTheUsLayout) {
    SetCurrentKeyboardLayout(named("us"));
    KeyTableSlot keys;
    KeyTableSlot modifiers;
    ASSERT_TRUE(SetupKeyTables(&keys, &modifiers));
    EXPECT_EQ(GetCharMessage(*keys, 'a'), 0x0061);
    EXPECT_EQ(GetCharMessage(*keys, 'A'), 0x0041);
    EXPECT_EQ(GetCharModifiers(*modifiers, 'A'), 0x0200);
    EXPECT_EQ(GetCharMessage(*keys, '5'), 0x1735);
    EXPECT_EQ(GetCharMessage(*keys, 0x1B), 0x351B);
    EXPECT_EQ(GetCharMessage(*keys, 0x1A), 0x061A);
    EXPECT_EQ(GetCharModifiers(*modifiers, 0x1A), 0x1000);
    ASSERT_TRUE(SetupKeyTablesNumPad(&keys, &modifiers, true));
    EXPECT_EQ(GetCharMessage(*keys, '5'), 0x5735);
    EXPECT_EQ(GetCharMessage(*keys, 'a'), 0x0061);
    SetCurrentKeyboardLayout(nullptr);
}

} // namespace
