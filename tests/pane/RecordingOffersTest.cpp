// What the bar at the foot offers when a recording has ended: to let go the keys that are still down, and to
// take Caps Lock out that was on.

#include <QLabel>
#include <QPushButton>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/FaultLine.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kOffer = "buttonNoticeOffer";
constexpr const char* kMend = "quorviButtonMend";
constexpr const char* kLine = "viewStepFault";
constexpr quint32 kShiftSymbol = 0xffe1;
constexpr quint32 kCapsLockSymbol = 0xffe5;
constexpr quint32 kShiftState = 0x1;
constexpr quint32 kLockState = 0x2;
const QString kCapsLockBegins = QStringLiteral("Caps Lock was on, so the macro begins with it.");

/// What the bar tells; empty while it is hidden.
QString told(const PaneFixture& fixture) {
    const auto* text = fixture.window->findChild<QLabel*>("textNotice");
    return text && text->isVisible() ? text->text() : QString();
}

QString offered(const PaneFixture& fixture) {
    const auto* button = fixture.window->findChild<QPushButton*>(kOffer);
    return button && button->isVisible() ? button->text() : QString();
}

QString undoOf(const PaneFixture& fixture) {
    return fixture.find<QWidget>("quorviButtonUndo")->toolTip().section(" (Ctrl", 0, 0);
}

QStringList taps(int count) {
    QStringList steps;
    for (int number = 0; number < count; ++number)
        steps << "1 4 10"
              << "0 4 10";
    return steps;
}

/// Presses the key as it comes while Caps Lock is on, and lets it go.
void tapLocked(const MacroFixture& fixture, quint32 key) {
    fixture.press(key, 0, kLockState);
    fixture.release(key, 0, kLockState);
}

} // namespace

class RecordingOffersTest : public QObject {
    Q_OBJECT

  private slots:
    void aRecordingThatLeavesNothingOffersNothing() {
        MacroFixture fixture;
        fixture.record();
        fixture.tap(scancodes::a);
        fixture.record();
        QCOMPARE(told(fixture), QString());
    }

    void aKeyThatIsDownAtTheEndIsLetGoByAClick() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::shift, kShiftSymbol);
        fixture.press(scancodes::a, 0x41, kShiftState);
        fixture.release(scancodes::a, 0x41, kShiftState);
        QCOMPARE(told(fixture), QString());
        fixture.record();
        QCOMPARE(told(fixture), QStringLiteral("The recording ended before Shift was released."));
        QCOMPARE(offered(fixture), QStringLiteral("Add the Missing Release"));
        const QStringList recorded = fixture.savedSteps();
        fixture.click(kOffer);
        QCOMPARE(fixture.savedSteps(), recorded + QStringList{"0 225 0"});
        QCOMPARE(fixture.shownSteps().last(), QStringLiteral("Release Shift"));
        QCOMPARE(told(fixture), QString());
        QCOMPARE(undoOf(fixture), QStringLiteral("Undo Add the Missing Release"));
        fixture.click("quorviButtonUndo");
        QCOMPARE(fixture.savedSteps(), recorded);
        QCOMPARE(undoOf(fixture), QStringLiteral("Undo Record Macro “Hello”"));
    }

    void severalKeysAreLetGoInOneAction() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a);
        fixture.press(scancodes::b);
        fixture.record();
        QCOMPARE(told(fixture), QStringLiteral("The recording ended before all keys were released: a, b."));
        QCOMPARE(offered(fixture), QStringLiteral("Add the Missing Releases"));
        fixture.click(kOffer);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 10", "1 5 0", "0 5 0", "0 4 0"}));
        fixture.click("quorviButtonUndo");
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 10", "1 5 0"}));
    }

    void theSixteenthStepThatIsAPressIsRemovedByAClick() {
        MacroFixture fixture(taps(7) << "1 6 10");
        fixture.record();
        fixture.tap(scancodes::b);
        fixture.record();
        QCOMPARE(fixture.steps().size(), 16);
        QCOMPARE(told(fixture),
            QStringLiteral("The recording ended before b was released. There is no room for the release."));
        QCOMPARE(offered(fixture), QStringLiteral("Remove the Press"));
        fixture.click(kOffer);
        QCOMPARE(fixture.savedSteps(), taps(7) << "1 6 0");
    }

    void withoutRoomForAllTheMacroIsMendedAtOnce() {
        MacroFixture fixture(taps(7));
        fixture.record();
        fixture.press(scancodes::a);
        fixture.press(scancodes::b);
        fixture.record();
        QCOMPARE(told(fixture), QStringLiteral("The recording ended before all keys were released: a, b. "
                                               "There is no room for every release."));
        QCOMPARE(offered(fixture), QStringLiteral("Repair the Macro"));
        fixture.click(kOffer);
        QCOMPARE(fixture.savedSteps().mid(14), QStringList({"1 4 0", "0 4 0"}));
    }

    void whatWasDownBeforeTheRecordingIsNotItsMatter() {
        MacroFixture fixture({"1 224 10"});
        fixture.record();
        fixture.tap(scancodes::a);
        fixture.record();
        QCOMPARE(told(fixture), QString());
    }

    void aStepThatIsRecordedAgainOffersNothing() {
        MacroFixture fixture({"1 224 10"});
        fixture.selectStep(0);
        fixture.chooseForSteps(32);
        fixture.press(scancodes::a);
        QCOMPARE(fixture.steps(), QStringList({"1 4 10"}));
        QCOMPARE(told(fixture), QString());
    }

    void theOfferEndsWithTheNextAction() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a);
        fixture.record();
        QVERIFY(!told(fixture).isEmpty());
        fixture.chooseForSteps(34); // no steps at all
        QCOMPARE(offered(fixture), QStringLiteral("Undo"));
    }

    void theOfferEndsWithTheNextRecordingAndWithAnotherMacro() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a);
        fixture.record();
        QVERIFY(!told(fixture).isEmpty());
        fixture.record();
        QCOMPARE(told(fixture), QString());
        fixture.press(scancodes::b);
        fixture.record();
        QVERIFY(!told(fixture).isEmpty());
        fixture.selectRow("quorviTableMacros", 1);
        QCOMPARE(told(fixture), QString());
    }

    void theLineBelowTheListDoesNotOfferItToo() {
        MacroFixture fixture({"1 224 10"}); // which stays down as well, and is not of the recording
        fixture.record();
        fixture.press(scancodes::a);
        fixture.record();
        QCOMPARE(offered(fixture), QStringLiteral("Add the Missing Release"));
        fixture.selectStep(1);
        QVERIFY(!fixture.find<FaultLine>(kLine)->text().isEmpty());
        QVERIFY(!fixture.find<QWidget>(kMend)->isVisible());
        fixture.selectStep(0);
        QVERIFY(fixture.find<QWidget>(kMend)->isVisible());
        fixture.selectStep(1);
        QVERIFY(!fixture.find<QWidget>(kMend)->isVisible());
    }

    void theOfferThatIsClosedStandsBelowTheList() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a);
        fixture.record();
        QVERIFY(!fixture.find<QWidget>(kMend)->isVisible());
        fixture.click("buttonNotice");
        QCOMPARE(told(fixture), QString());
        QVERIFY(fixture.find<QWidget>(kMend)->isVisible());
        fixture.click(kMend);
        QCOMPARE(fixture.steps(), QStringList({"1 4 0", "0 4 0"}));
        QCOMPARE(told(fixture), QString());
    }

    void capsLockThatWasOnIsSaidAndTakenOutByAClick() {
        MacroFixture fixture;
        fixture.record();
        tapLocked(fixture, scancodes::a);
        QCOMPARE(fixture.shownSteps(),
            QStringList({"Press Caps Lock", "Release Caps Lock", "Press a", "Release a"}));
        QCOMPARE(told(fixture), QString());
        fixture.record();
        QCOMPARE(told(fixture), kCapsLockBegins);
        QCOMPARE(offered(fixture), QStringLiteral("Remove Caps Lock"));
        fixture.click(kOffer);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 10", "0 4 0"}));
        QCOMPARE(undoOf(fixture), QStringLiteral("Undo Remove Caps Lock"));
        fixture.click("quorviButtonUndo");
        QCOMPARE(fixture.savedSteps().size(), 4);
        QCOMPARE(told(fixture), QString());
    }

    void capsLockInALongerMacroIsSaidToBeInItsNewSteps() {
        MacroFixture fixture({"1 57 10", "0 57 0"});
        fixture.record();
        tapLocked(fixture, scancodes::a);
        fixture.record();
        QCOMPARE(told(fixture), QStringLiteral("Caps Lock was on, so the new steps press it too."));
        fixture.click(kOffer);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 57 10", "0 57 100", "1 4 10", "0 4 0"}));
    }

    void capsLockThatIsTypedIsNotSaid() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::capsLock, kCapsLockSymbol);
        fixture.release(scancodes::capsLock, kCapsLockSymbol, kLockState);
        tapLocked(fixture, scancodes::a);
        fixture.record();
        QCOMPARE(fixture.steps().size(), 4);
        QCOMPARE(told(fixture), QString());
    }

    void bothAreOfferedOneAfterTheOther() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a, 0, kLockState);
        fixture.record();
        QCOMPARE(told(fixture), QStringLiteral("The recording ended before a was released."));
        fixture.click(kOffer);
        QCOMPARE(told(fixture), kCapsLockBegins);
        fixture.click(kOffer);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 0", "0 4 0"}));
        QCOMPARE(told(fixture), QString());
    }
};

QUORVI_PANE_TEST_MAIN(RecordingOffersTest)
#include "RecordingOffersTest.moc"
