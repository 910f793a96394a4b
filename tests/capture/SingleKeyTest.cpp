// The single-key panel's reaction to events offered to the pane.

#include <QAccessible>
#include <QLineEdit>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include "layouts/XkbKeyboardLayout.h"
#include "pane/EventPatch.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "platform/KeyEvents.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

KeyEvent keyDown(std::uint8_t key, std::uint32_t flags = 0, char16_t character = 0) {
    return {KeyEventType::KeyDown, key, character, flags};
}

KeyEvent keyUp(std::uint8_t key, std::uint32_t flags = 0) {
    return {KeyEventType::KeyUp, key, 0, flags};
}

KeyEvent flagsChanged(std::uint32_t flags) {
    return {KeyEventType::FlagsChanged, noKey, 0, flags};
}

/// The pane with a mouse and the single-key panel in front. Modifiers start as in a new process.
class OpenPanel {
  public:
    OpenPanel() {
        gLastEventModifiers = 0;
        gMaxModifierCount = 0;
        fixture.openWith(PaneFixture::sampleTree());
        panel()->show();
    }
    ~OpenPanel() { panel()->hide(); }

    [[nodiscard]] QDialog* panel() const { return fixture.find<QDialog>("quorviPanelSingleKey"); }
    [[nodiscard]] int key() const { return fixture.pane->singleKeyCode(); }
    [[nodiscard]] QString shown() const { return fixture.find<QLineEdit>("quorviFieldSingleKey")->text(); }

    PaneFixture fixture;
};

QStringList* gValueChanges = nullptr;

void noteValueChange(QAccessibleEvent* event) {
    if (event->type() == QAccessible::ValueChanged && event->object())
        *gValueChanges << event->object()->objectName() + QLatin1Char(' ') +
                              static_cast<QAccessibleValueChangeEvent*>(event)->value().toString();
}

} // namespace

class SingleKeyTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        KeymapNames names;
        names.layout = "us";
        SetCurrentKeyboardLayout(makeKeyboardLayout(names));
    }

    void withThePanelHiddenAndNoRecordingNothingIsTaken() {
        OpenPanel open;
        open.panel()->hide();
        QVERIFY(!open.fixture.pane->overrideSingleKeys());
        QVERIFY(!sendEventKyvarQuorviPatch(keyDown(0x00)));
        QVERIFY(!performKeyKyvarQuorviPatch());
        QVERIFY(!KyvarQuorviSendSingleKeyToField(keyDown(0x00)));
        QCOMPARE(open.key(), 255);
    }

    void withThePanelShownKeysAndShortcutsAreTaken() {
        const OpenPanel open;
        QVERIFY(open.fixture.pane->overrideSingleKeys());
        QVERIFY(!open.fixture.pane->overrideMouseEvents());
        QVERIFY(performKeyKyvarQuorviPatch());
        QCOMPARE(open.key(), 255); // the press is still to come
        QVERIFY(sendEventKyvarQuorviPatch(keyDown(0x00, 0, u'a')));
        QCOMPARE(open.key(), 0x00);
    }

    void aRecordingTakesKeysAndMouseEvents() {
        OpenPanel open;
        open.panel()->hide();
        open.fixture.pane->startStopRecording(true, false);
        QVERIFY(open.fixture.pane->overrideSingleKeys());
        QVERIFY(open.fixture.pane->overrideMouseEvents());
        QVERIFY(sendEventKyvarQuorviPatch(keyDown(0x00)));
        QVERIFY(sendEventKyvarQuorviPatch(flagsChanged(shiftFlag)));
        QCOMPARE(open.key(), 255);
        open.fixture.pane->startStopRecording(false, false);
        QVERIFY(!open.fixture.pane->overrideMouseEvents());
    }

    void withoutAPatchedPaneNothingIsTakenAndModifiersAreStillFollowed() {
        const OpenPanel open;
        KyvarQuorviSwapNSAppMethods(open.fixture.pane.get());
        QVERIFY(!sendEventKyvarQuorviPatch(keyDown(0x00)));
        QVERIFY(!performKeyKyvarQuorviPatch());
        QVERIFY(!KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag)));
        QCOMPARE(gLastEventModifiers, std::uint16_t(0x0200));
        QCOMPARE(gMaxModifierCount, 1);
        KyvarQuorviSwapNSAppMethods(open.fixture.pane.get());
    }

    void aPlainKeyIsCapturedOnItsPressAndItsReleaseChangesNothing() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x00, 0, u'a')));
        QCOMPARE(open.key(), 0x00);
        QCOMPARE(open.shown().toLower(), QStringLiteral("a"));
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x7A)));
        QCOMPARE(open.shown(), QStringLiteral("F1"));
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyUp(0x00)));
        QCOMPARE(open.key(), 0x7A);
    }

    void shiftAloneIsCapturedOnThePressAndItsReleaseChangesNothing() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag)));
        QCOMPARE(open.key(), 0x38);
        QCOMPARE(open.shown(), QStringLiteral("Shift"));
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(0)));
        QCOMPARE(open.key(), 0x38);
        QCOMPARE(gLastEventModifiers, std::uint16_t(0));
        QCOMPARE(gMaxModifierCount, 0);
    }

    void everyModifierAloneIsCapturedAsItsKey_data() {
        QTest::addColumn<unsigned>("flag");
        QTest::addColumn<int>("key");
        QTest::newRow("command") << 0x100000U << 0x37;
        QTest::newRow("shift") << 0x020000U << 0x38;
        QTest::newRow("caps lock") << 0x010000U << 0x39;
        QTest::newRow("option") << 0x080000U << 0x3A;
        QTest::newRow("control") << 0x040000U << 0x3B;
    }

    void everyModifierAloneIsCapturedAsItsKey() {
        QFETCH(unsigned, flag);
        QFETCH(int, key);
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(flag)));
        QCOMPARE(open.key(), key);
    }

    void commandThenShiftCapturesBothInTurnAndReleasingShiftNothing() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(commandFlag)));
        QCOMPARE(open.key(), 0x37);
        QCOMPARE(gMaxModifierCount, 1);
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(commandFlag | shiftFlag)));
        QCOMPARE(open.key(), 0x38);
        QCOMPARE(gMaxModifierCount, 2);
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x00, commandFlag | shiftFlag)));
        QCOMPARE(open.key(), 0x00);
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(commandFlag)));
        QCOMPARE(open.key(), 0x00);
        QCOMPARE(gMaxModifierCount, 2);
    }

    void aModifierPressedAgainBelowTheMostHeldIsNoPress() {
        const OpenPanel open;
        for (const std::uint32_t flags : {commandFlag, commandFlag | shiftFlag,
                 commandFlag | shiftFlag | optionFlag, commandFlag | shiftFlag, commandFlag})
            QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(flags)));
        QCOMPARE(open.key(), 0x3A);
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(commandFlag | controlFlag)));
        QCOMPARE(open.key(), 0x3A);
        QCOMPARE(gMaxModifierCount, 3);
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(0)));
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(controlFlag)));
        QCOMPARE(open.key(), 0x3B);
    }

    void aModifierExchangedForAnotherCountsAsAPress() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(optionFlag)));
        QCOMPARE(open.key(), 0x3A);
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag)));
        QCOMPARE(open.key(), 0x38);
        // Of the bits that differ the lowest is taken, whichever way it went.
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(controlFlag)));
        QCOMPARE(open.key(), 0x38);
    }

    void aKeyWithShiftHeldIsCapturedWithoutTheModifier() {
        const OpenPanel open;
        (void)KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag));
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x00, shiftFlag, u'A')));
        QCOMPARE(open.key(), 0x00);
        QCOMPARE(open.shown().toLower(), QStringLiteral("a"));
    }

    void aKeyThatComesWithANewModifierIsTheModifier() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x00, commandFlag | shiftFlag)));
        QCOMPARE(open.key(), 0x37);
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyUp(0x00, commandFlag | shiftFlag)));
        QCOMPARE(open.key(), 0x37);
    }

    void aReleaseThatAddsAModifierIsAPress() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyUp(0x00, shiftFlag)));
        QCOMPARE(open.key(), 0x38);
    }

    void capsLockIsAModifierThatIsCapturedWhenItLocksOnly() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(capsLockFlag)));
        QCOMPARE(open.key(), 0x39);
        QCOMPARE(open.shown(), QStringLiteral("Caps Lock"));
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x00, capsLockFlag)));
        QCOMPARE(open.key(), 0x00);
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(0)));
        QCOMPARE(open.key(), 0x00);
    }

    void aModifierEventThatChangesNothingIsHandedBack() {
        const OpenPanel open;
        QVERIFY(!KyvarQuorviSendSingleKeyToField(flagsChanged(0)));
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag)));
        QVERIFY(!KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag)));
        QCOMPARE(open.key(), 0x38);
    }

    void aKeyWithoutACodeIsHandedBackUnlessAModifierChangedWithIt() {
        const OpenPanel open;
        QVERIFY(!KyvarQuorviSendSingleKeyToField(keyDown(noKey)));
        QCOMPARE(open.key(), 255);
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(noKey, optionFlag)));
        QCOMPARE(open.key(), 0x3A);
    }

    void theFollowedModifiersOutliveACapture() {
        const OpenPanel open;
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag)));
        open.panel()->hide();
        QCOMPARE(gLastEventModifiers, std::uint16_t(0x0200));
        QCOMPARE(gMaxModifierCount, 1);
        open.panel()->show();
        QVERIFY(!KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag)));
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(shiftFlag | controlFlag)));
        QCOMPARE(open.key(), 0x3B);
    }

    void modifiersThatChangedUnseenAreFollowedWithoutACapture() {
        const OpenPanel open;
        followMissedModifiers(0x0600);
        QCOMPARE(gLastEventModifiers, std::uint16_t(0x0600));
        QCOMPARE(gMaxModifierCount, 2);
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x00, shiftFlag | capsLockFlag)));
        QCOMPARE(open.key(), 0x00);
        QVERIFY(KyvarQuorviSendSingleKeyToField(flagsChanged(capsLockFlag)));
        QCOMPARE(open.key(), 0x00);
    }

    void theCapturedKeyReachesScreenReaders() {
        const OpenPanel open;
        QStringList changes;
        gValueChanges = &changes;
        // As a screen reader does that comes to the bus.
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        const auto previous = QAccessible::installUpdateHandler(noteValueChange);
        QVERIFY(KyvarQuorviSendSingleKeyToField(keyDown(0x78)));
        QAccessible::installUpdateHandler(previous);
        QCOMPARE(changes, QStringList(QStringLiteral("quorviFieldSingleKey F2")));
    }
};

QUORVI_PANE_TEST_MAIN(SingleKeyTest)
#include "SingleKeyTest.moc"
