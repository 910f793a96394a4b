// The ends of recordings, and the state afterwards: the steps are in the file, saved once, and the host
// receives every key again.

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QStringList kRecorded{"1 4 10", "0 4 0"};
const QStringList kMessages{"KyDM 1", "KyDM 0", "KyPR 0"};

/// Takes the focus and writes down the keys that come to it.
class Listener : public QWidget {
  public:
    explicit Listener(QWidget* parent) : QWidget(parent) {
        setFocusPolicy(Qt::StrongFocus);
        show();
        setFocus();
    }
    int presses = 0;

  protected:
    void keyPressEvent(QKeyEvent* /*event*/) override { ++presses; }
};

/// A recording that has two steps.
class RunningFixture : public MacroFixture {
  public:
    RunningFixture() {
        record();
        tap(scancodes::a);
    }
    [[nodiscard]] bool hasEnded() const {
        Listener listener(window.get());
        const bool offered = send(QEvent::ShortcutOverride, scancodes::b);
        press(scancodes::b);
        release(scancodes::b);
        return !pane->isRecordingMacro() && !offered && listener.presses == 1 &&
               stepsIn(savedSettings()) == kRecorded;
    }
};

} // namespace

class RecordingEndTest : public QObject {
    Q_OBJECT

  private slots:
    void nothingIsSavedBeforeTheEndAndEverythingOnceThen() {
        RunningFixture fixture;
        fixture.clickSteps(Qt::LeftButton);
        QVERIFY(fixture.commandsBecome({"KyDM 1"}));
        QCOMPARE(fixture.savedSteps(), QStringList());
        fixture.record();
        QVERIFY(fixture.commandsBecome(kMessages));
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 10", "0 4 10", "129 0 10", "128 0 0"}));
    }

    void theStopButtonEndsIt() {
        RunningFixture fixture;
        fixture.record();
        QVERIFY(fixture.hasEnded());
        QVERIFY(fixture.commandsBecome(kMessages));
    }

    void theMenuEndsIt() {
        RunningFixture fixture;
        fixture.pane->actionMenuTableContext(itemWithTag(*fixture.find<QMenu>("quorviMenuStepGear"), 31));
        QVERIFY(fixture.hasEnded());
        QVERIFY(fixture.commandsBecome(kMessages));
    }

    void anotherTabEndsIt() {
        RunningFixture fixture;
        fixture.selectTab(0);
        QVERIFY(fixture.hasEnded());
        QVERIFY(fixture.commandsBecome(kMessages));
    }

    void theLossOfTheFocusEndsIt() {
        RunningFixture fixture;
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(fixture.hasEnded());
        QVERIFY(fixture.commandsBecome(kMessages));
    }

    void theNewsThatTheMouseHasGoneEndsIt() {
        RunningFixture fixture;
        fixture.connectDevices(0);
        QTRY_VERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(fixture.hasEnded());
        QVERIFY(fixture.commandsBecome(kMessages));
    }

    void anotherListOfDevicesEndsItAndItsStepsAreReadBack() {
        RunningFixture fixture;
        fixture.connectDevices(2);
        QTRY_VERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(fixture.hasEnded());
        QCOMPARE(fixture.steps(), kRecorded);
        QVERIFY(fixture.commandsBecome(kMessages));
    }

    void hidingThePanelEndsIt() {
        RunningFixture fixture;
        fixture.pane->willUnselect();
        QVERIFY(fixture.hasEnded());
        QVERIFY(fixture.commandsBecome({"KyDM 1", "KyDM 0", "KyPR 0", "KyRO 0", "KyPR 0"}));
    }

    void aPaneThatDiesHasSavedAndToldTheHelper() {
        RunningFixture fixture;
        fixture.pane.reset();
        QVERIFY(fixture.commandsBecome(kMessages));
        QCOMPARE(fixture.savedSteps(), kRecorded);
    }

    void holdingEscapeEndsItAndIsNotInIt() {
        RunningFixture fixture;
        fixture.wait(500);
        fixture.press(scancodes::escape);
        fixture.wait(1499);
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps().size(), 3);
        fixture.wait(1);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.shownSteps(), QStringList({"Press a", "Release a"}));
        QCOMPARE(fixture.selectedRow(kStepsTable), 1);
        QVERIFY(fixture.hasEnded());
        QVERIFY(fixture.commandsBecome(kMessages));
    }

    void theEscapeThatHasEndedItIsNotTheHosts() {
        RunningFixture fixture;
        fixture.press(scancodes::escape);
        fixture.wait(1500);
        Listener listener(fixture.window.get());
        QVERIFY(fixture.send(QEvent::KeyPress, scancodes::escape, 0, 0, true));
        QVERIFY(fixture.send(QEvent::KeyRelease, scancodes::escape));
        QCOMPARE(listener.presses, 0);
        fixture.press(scancodes::escape);
        QCOMPARE(listener.presses, 1);
    }

    void anEscapeThatRepeatsWhileItIsHeldEndsItAsWell() {
        RunningFixture fixture;
        fixture.press(scancodes::escape);
        for (int count = 0; count < 15; ++count) {
            fixture.wait(100);
            QVERIFY(fixture.send(QEvent::KeyPress, scancodes::escape, 0, 0, true));
        }
        QVERIFY(fixture.hasEnded());
    }

    void anEscapeThatIsPressedShortlyIsRecordedAsEver() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::escape);
        fixture.wait(1400);
        fixture.release(scancodes::escape);
        fixture.wait(60000);
        QVERIFY(fixture.pane->isRecordingMacro());
        fixture.tap(scancodes::a);
        QCOMPARE(fixture.shownSteps(), QStringList({"Press Esc", "Release Esc", "Press a", "Release a"}));
    }

    void anEscapeThatIsHeldWithAnotherKeyIsRecordedAsEver() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::escape);
        fixture.wait(500);
        fixture.press(scancodes::a);
        fixture.wait(5000);
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.shownSteps(), QStringList({"Press Esc", "Press a"}));
    }

    void anEscapeHeldBeyondTheEndEndsNoLaterRecording() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::escape);
        fixture.record();
        fixture.record();
        fixture.wait(60000);
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), QStringList("1 41 0"));
    }

    void theKeyThatIsDownThenIsStillNotTheHosts() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a);
        fixture.record();
        Listener listener(fixture.window.get());
        QVERIFY(fixture.send(QEvent::KeyPress, scancodes::a, 0, 0, true));
        QVERIFY(fixture.send(QEvent::KeyRelease, scancodes::a));
        QCOMPARE(listener.presses, 0);
        fixture.press(scancodes::a);
        QCOMPARE(listener.presses, 1);
        QCOMPARE(fixture.steps(), QStringList({"1 4 0"}));
    }

    void theRecordingWorksWithoutAHelper() {
        MacroFixture fixture;
        fixture.helper.reset();
        fixture.record();
        fixture.tap(scancodes::a);
        fixture.record();
        QCOMPARE(fixture.savedSteps(), kRecorded);
    }
};

QUORVI_PANE_TEST_MAIN(RecordingEndTest)
#include "RecordingEndTest.moc"
