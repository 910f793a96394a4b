// Native key events as Qt delivers them, row by row, with the expected conversion.
//
// A row is the type, Qt's key, Qt's modifiers, scan code, keysym and native modifiers, recorded from real
// events of Qt 5.15 and Qt 6.4.

#include "platform/KeyEvents.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace quorvi {
namespace {

/// Qt makes a keyboard for key events that name none, and leaves it to the kApplication to delete.
class ApplicationOfTests : public testing::Environment {
  public:
    void SetUp() override { m_application = std::make_unique<QCoreApplication>(m_count, m_names); }
    void TearDown() override { m_application.reset(); }

  private:
    char m_name[6] = "tests";
    char* m_names[2] = {m_name, nullptr};
    int m_count = 1;
    std::unique_ptr<QCoreApplication> m_application;
};

const testing::Environment* const kApplication = testing::AddGlobalTestEnvironment(new ApplicationOfTests);

constexpr auto kPress = QEvent::KeyPress;
constexpr auto kRelease = QEvent::KeyRelease;

struct Native {
    QEvent::Type type;
    int key;
    Qt::KeyboardModifiers modifiers;
    quint32 scanCode;
    quint32 keysym;
    quint32 state;
    QString text = {};
};

QKeyEvent qtEvent(const Native& n, bool repeat = false) {
    return {n.type, n.key, n.modifiers, n.scanCode, n.keysym, n.state, n.text, repeat};
}

class KeyEvents : public testing::Test {
  protected:
    ConvertedKey convert(const Native& native) { return m_converter.convert(qtEvent(native)); }
    std::uint16_t wordAfter(const Native& native) {
        return modifierWord(convert(native).event.modifierFlags);
    }
    std::uint16_t wordBefore(const Native& native) { return modifierWord(convert(native).flagsBefore); }

    KeyEventConverter m_converter;
};

const Native kShiftPress{kPress, Qt::Key_Shift, Qt::ShiftModifier, 50, 0xffe1, 0};
const Native kShiftRelease{kRelease, Qt::Key_Shift, Qt::NoModifier, 50, 0xffe1, 0x1};

TEST_F(KeyEvents, NumbersOfTheTypesAndFlagsAreThePlatforms) {
    EXPECT_EQ(int(KeyEventType::KeyDown), 10);
    EXPECT_EQ(int(KeyEventType::KeyUp), 11);
    EXPECT_EQ(int(KeyEventType::FlagsChanged), 12);
    EXPECT_EQ(modifierWord(0x100000), 0x0100);
    EXPECT_EQ(modifierWord(0x020000), 0x0200);
    EXPECT_EQ(modifierWord(0x010000), 0x0400);
    EXPECT_EQ(modifierWord(0x080000), 0x0800);
    EXPECT_EQ(modifierWord(0x040000), 0x1000);
    EXPECT_EQ(modifierWord(0x1F0000), 0x1F00);
    EXPECT_EQ(modifierWord(0xFFE0FFFF), 0); // the right-hand bits are never set
}

TEST_F(KeyEvents, APlainKeyGoesDownAndUpWithItsFirstCharacter) {
    const auto down = convert({kPress, Qt::Key_A, {}, 38, 0x61, 0, QStringLiteral("a")}).event;
    EXPECT_EQ(down.type, KeyEventType::KeyDown);
    EXPECT_EQ(down.keyCode, 0x00);
    EXPECT_EQ(down.character, u'a');
    EXPECT_EQ(down.modifierFlags, 0U);
    const auto up = convert({kRelease, Qt::Key_A, {}, 38, 0x61, 0, QStringLiteral("a")}).event;
    EXPECT_EQ(up.type, KeyEventType::KeyUp);
    EXPECT_EQ(up.keyCode, 0x00);
}

TEST_F(KeyEvents, ACharacterOfTwoUnitsCountsByItsFirst) {
    const auto event = convert({kPress, 0, {}, 38, 0, 0, QStringLiteral("\U0001F600")}).event;
    EXPECT_EQ(event.character, 0xD83D);
}

TEST_F(KeyEvents, AKeyThatTypesNothingHasTheCharacterZero) {
    const auto event = convert({kPress, Qt::Key_F1, {}, 67, 0xffbe, 0}).event;
    EXPECT_EQ(event.keyCode, 0x7A);
    EXPECT_EQ(event.character, u'\0');
}

TEST_F(KeyEvents, AModifierAloneIsAChangeWithTheWordAfterIt) {
    const auto down = convert(kShiftPress).event;
    EXPECT_EQ(down.type, KeyEventType::FlagsChanged);
    EXPECT_EQ(down.modifierFlags, 0x20000U);
    EXPECT_EQ(down.character, u'\0');
    const auto up = convert(kShiftRelease).event;
    EXPECT_EQ(up.type, KeyEventType::FlagsChanged);
    EXPECT_EQ(up.modifierFlags, 0U);
}

TEST_F(KeyEvents, EveryModifierKeyCountsByItsPlaceLeftAndRightAlike) {
    struct Row {
        quint32 scanCode;
        quint32 keysym;
        std::uint16_t word;
    };
    for (const Row& row :
        {Row{50, 0xffe1, 0x0200}, Row{62, 0xffe2, 0x0200}, Row{37, 0xffe3, 0x1000}, Row{105, 0xffe4, 0x1000},
            Row{64, 0xffe9, 0x0800}, Row{108, 0xffea, 0x0800}, Row{108, 0xfe03, 0x0800},
            Row{92, 0xfe03, 0x0800}, Row{133, 0xffeb, 0x0100}, Row{134, 0xffec, 0x0100}}) {
        EXPECT_EQ(wordAfter({kPress, 0, {}, row.scanCode, row.keysym, 0}), row.word) << row.scanCode;
        EXPECT_EQ(wordAfter({kRelease, 0, {}, row.scanCode, row.keysym, 0}), 0) << row.scanCode;
    }
}

TEST_F(KeyEvents, SuperIsCommandUnderBothQts) {
    // Qt 5.15: Key_Super_L, no modifier on the kPress, Meta on the kRelease.
    EXPECT_EQ(wordAfter({kPress, Qt::Key_Super_L, {}, 133, 0xffeb, 0}), 0x0100);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_Super_L, Qt::MetaModifier, 133, 0xffeb, 0x40}), 0);
    // Qt 6.4: Key_Meta, Meta on the kPress, none on the kRelease.
    EXPECT_EQ(wordAfter({kPress, Qt::Key_Meta, Qt::MetaModifier, 133, 0xffeb, 0}), 0x0100);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_Meta, {}, 133, 0xffeb, 0x40}), 0);
}

TEST_F(KeyEvents, AKeyWithSuperHeldLeavesSuperHeld) {
    (void)convert({kPress, Qt::Key_Super_L, {}, 133, 0xffeb, 0});
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, Qt::MetaModifier, 38, 0x61, 0x40}), 0x0100);
    EXPECT_EQ(
        wordAfter({kPress, Qt::Key_Shift, Qt::ShiftModifier | Qt::MetaModifier, 50, 0xffe1, 0x40}), 0x0300);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_Super_L, Qt::ShiftModifier, 133, 0xffeb, 0x41}), 0x0200);
}

TEST_F(KeyEvents, OneOfTwoShiftsReleasedLeavesShiftHeld) {
    EXPECT_EQ(wordAfter(kShiftPress), 0x0200);
    // The second kPress reports no modifiers, since Qt turns its own modifier's bit over.
    EXPECT_EQ(wordAfter({kPress, Qt::Key_Shift, {}, 62, 0xffe2, 0x1}), 0x0200);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_Shift, {}, 62, 0xffe2, 0x1}), 0x0200);
    EXPECT_EQ(wordAfter(kShiftRelease), 0);
}

TEST_F(KeyEvents, CapsLockIsSeenByItsLockAndNotByItsKey) {
    EXPECT_EQ(wordAfter({kPress, Qt::Key_CapsLock, {}, 66, 0xffe5, 0}), 0x0400);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_CapsLock, {}, 66, 0xffe5, 0x2}), 0x0400);
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, {}, 38, 0x41, 0x2}), 0x0400);
    EXPECT_EQ(wordAfter({kPress, Qt::Key_CapsLock, {}, 66, 0xffe5, 0x2}), 0);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_CapsLock, {}, 66, 0xffe5, 0x2}), 0);
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, {}, 38, 0x61, 0}), 0);
}

TEST_F(KeyEvents, AKeyPressedWhileCapsLockUnlocksDoesNotLockAgain) {
    (void)convert({kPress, Qt::Key_CapsLock, {}, 66, 0xffe5, 0x2});
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, {}, 38, 0x41, 0x2}), 0);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_A, {}, 38, 0x41, 0x2}), 0);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_CapsLock, {}, 66, 0xffe5, 0x2}), 0);
}

TEST_F(KeyEvents, ALockThatChangedElsewhereIsSeenWithTheNextKey) {
    const auto locked = convert({kPress, Qt::Key_A, {}, 38, 0x41, 0x2});
    EXPECT_EQ(locked.flagsBefore, 0x10000U);
    EXPECT_EQ(locked.event.modifierFlags, 0x10000U);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_A, {}, 38, 0x61, 0}), 0);
}

TEST_F(KeyEvents, ACapsLockKeyThatTheKeymapMadeAnotherKeyIsAPlainKey) {
    const auto event = convert({kPress, Qt::Key_Escape, {}, 66, 0xff1b, 0}).event; // caps:escape
    EXPECT_EQ(event.type, KeyEventType::KeyDown);
    EXPECT_EQ(event.keyCode, 0x39);
    EXPECT_EQ(event.modifierFlags, 0U);
}

TEST_F(KeyEvents, AReleaseElsewhereLeavesNoModifierStuck) {
    (void)convert(kShiftPress);
    const auto next = convert({kPress, Qt::Key_A, {}, 38, 0x61, 0});
    EXPECT_EQ(next.flagsBefore, 0U);
    EXPECT_EQ(next.event.modifierFlags, 0U);
    // Nor does it keep the other Shift from being one kPress and one kRelease.
    (void)convert(kShiftPress);
    EXPECT_EQ(wordAfter({kPress, Qt::Key_Shift, Qt::ShiftModifier, 62, 0xffe2, 0}), 0x0200);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_Shift, {}, 62, 0xffe2, 0x1}), 0);
}

TEST_F(KeyEvents, ASuperReleasedElsewhereIsNotStuckUnderQt5) {
    (void)convert({kPress, Qt::Key_Super_L, {}, 133, 0xffeb, 0});
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, {}, 38, 0x61, 0}), 0);
}

TEST_F(KeyEvents, AModifierPressedElsewhereIsHeldUntilItsRelease) {
    struct Row {
        quint32 state;
        std::uint16_t word;
    };
    for (const Row& row :
        {Row{0x1, 0x0200}, Row{0x4, 0x1000}, Row{0x8, 0x0800}, Row{0x40, 0x0100}, Row{0x80, 0x0800}})
        EXPECT_EQ(wordBefore({kPress, Qt::Key_A, {}, 38, 0x61, row.state}), row.word) << row.state;
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_A, Qt::ShiftModifier, 38, 0x41, 0x1}), 0x0200);
    EXPECT_EQ(wordAfter(kShiftRelease), 0);
}

TEST_F(KeyEvents, NumLockIsNoModifier) {
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, {}, 38, 0x61, 0x10}), 0);
    const auto event = convert({kPress, Qt::Key_NumLock, {}, 77, 0xff7f, 0}).event;
    EXPECT_EQ(event.type, KeyEventType::KeyDown);
    EXPECT_EQ(event.keyCode, 0x47);
}

TEST_F(KeyEvents, AModifierInAnothersPlaceIsWhatItsPlaceSays) {
    // altwin:swap_alt_win puts Super on the Alt key, and Super is what the state shows.
    (void)convert({kPress, Qt::Key_Meta, Qt::MetaModifier, 64, 0xffeb, 0});
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, Qt::MetaModifier, 38, 0x61, 0x40}), 0x0800);
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_Meta, {}, 64, 0xffeb, 0x40}), 0);
}

TEST_F(KeyEvents, HeldKeysAreForgottenWithTheKeyboardAndTheLockIsNot) {
    // With Shift held, Alt may switch the layout: nothing in the state then tells that it is held.
    (void)convert({kPress, 0, {}, 64, 0xfe08, 0});
    EXPECT_EQ(wordAfter({kPress, Qt::Key_A, {}, 38, 0x61, 0x2}), 0x0C00);
    m_converter.forgetHeldKeys();
    EXPECT_EQ(wordAfter({kRelease, Qt::Key_A, {}, 38, 0x61, 0x2}), 0x0400);
}

TEST_F(KeyEvents, KeysThatTheMouseCannotPressCannotBeCaptured) {
    for (quint32 scanCode = 186 + 8; scanCode <= 190 + 8; ++scanCode) // F16 to F20
        EXPECT_FALSE(isCapturableKey(qtEvent({kPress, 0, {}, scanCode, 0, 0}))) << scanCode;
    EXPECT_TRUE(isCapturableKey(qtEvent({kPress, 0, {}, 185 + 8, 0, 0}))); // F15
    EXPECT_TRUE(isCapturableKey(qtEvent({kPress, 0, {}, 127 + 8, 0, 0}))); // menu
    for (const quint32 modifier : {50U, 37U, 64U, 133U, 66U, 92U, 108U})
        EXPECT_TRUE(isCapturableKey(qtEvent({kPress, 0, {}, modifier, 0, 0}))) << modifier;
}

TEST_F(KeyEvents, KeysWithoutACodeCannotBeCaptured) {
    const auto capturable = [](quint32 scanCode) {
        return isCapturableKey(qtEvent({kPress, 0, {}, scanCode, 0, 0}));
    };
    EXPECT_TRUE(capturable(38));
    EXPECT_TRUE(capturable(92));
    EXPECT_TRUE(capturable(107));  // Print, which is F13
    EXPECT_FALSE(capturable(123)); // volume up
    EXPECT_FALSE(capturable(0));
    EXPECT_FALSE(capturable(8));
    EXPECT_FALSE(capturable(0x10000 + 38));
}

} // namespace
} // namespace quorvi
