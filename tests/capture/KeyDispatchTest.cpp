// Key events of the host passing the pane: real event objects at a real window, with a keyboard's native
// codes.

#include <QKeyEvent>
#include <QWindow>

#include "pane/EventPatch.h"
#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr quint32 kA = 38;
constexpr quint32 kB = 56;
constexpr quint32 kReturn = 36;
constexpr quint32 kShift = 50;
constexpr quint32 kRightShift = 62;
constexpr quint32 kVolumeUp = 123;
constexpr quint32 kF16 = 194;
constexpr quint32 kShiftState = 0x1;
constexpr quint32 kLockState = 0x2;

/// Writes down the key events that come through to it.
class Listener : public QWidget {
  public:
    using QWidget::QWidget;
    QStringList heard;

  protected:
    bool event(QEvent* event) override {
        const auto note = [&](const char* what) {
            heard << QStringLiteral("%1 %2")
                         .arg(QLatin1String(what))
                         .arg(static_cast<QKeyEvent*>(event)->nativeScanCode());
        };
        if (event->type() == QEvent::KeyPress)
            note("press");
        else if (event->type() == QEvent::KeyRelease)
            note("release");
        else
            return QWidget::event(event);
        return true;
    }
};

/// The pane selected in a window in which a listener has the focus.
class Host {
  public:
    Host() {
        gLastEventModifiers = 0;
        gMaxModifierCount = 0;
        fixture.openWith(PaneFixture::sampleTree());
        listener = new Listener(fixture.window.get());
        listener->setFocusPolicy(Qt::StrongFocus);
        listener->show();
        listener->setFocus();
    }
    ~Host() {
        if (fixture.pane)
            showPanel(false);
    }

    void showPanel(bool shown) const {
        // In place, so that the focus and with it the way of the events stay what they are.
        auto* panel = fixture.find<QDialog>("quorviPanelSingleKey");
        panel->setAttribute(Qt::WA_ShowWithoutActivating);
        panel->setModal(false);
        panel->setVisible(shown);
    }
    [[nodiscard]] int key() const { return fixture.pane->singleKeyCode(); }

    /// Sends the event to the window; whether it was accepted.
    bool send(QEvent::Type type, quint32 scanCode, quint32 keysym = 0, quint32 state = 0,
        bool repeat = false) const {
        QKeyEvent event(type, 0, {}, scanCode, keysym, state, QString(), repeat);
        event.ignore();
        QCoreApplication::sendEvent(fixture.window->windowHandle(), &event);
        return event.isAccepted();
    }
    void press(quint32 scanCode, quint32 keysym = 0, quint32 state = 0) const {
        send(QEvent::KeyPress, scanCode, keysym, state);
    }
    void release(quint32 scanCode, quint32 keysym = 0, quint32 state = 0) const {
        send(QEvent::KeyRelease, scanCode, keysym, state);
    }

    PaneFixture fixture;
    Listener* listener = nullptr;
};

} // namespace

class KeyDispatchTest : public QObject {
    Q_OBJECT

  private slots:
    void withoutACaptureEveryKeyReachesTheHost() {
        const Host host;
        host.press(kA);
        host.send(QEvent::KeyPress, kA, 0, 0, true);
        host.release(kA);
        host.press(kShift, 0xffe1);
        host.release(kShift, 0xffe1, kShiftState);
        QCOMPARE(host.listener->heard,
            QStringList({"press 38", "press 38", "release 38", "press 50", "release 50"}));
        QCOMPARE(host.key(), 255);
    }

    void duringACaptureNoKeyReachesTheHost() {
        const Host host;
        host.showPanel(true);
        QVERIFY(host.send(QEvent::ShortcutOverride, kA));
        QCOMPARE(host.key(), 255);
        QVERIFY(host.send(QEvent::KeyPress, kA));
        QCOMPARE(host.key(), 0x00);
        QVERIFY(host.send(QEvent::KeyRelease, kA));
        QVERIFY(host.send(QEvent::ShortcutOverride, kShift, 0xffe1));
        QVERIFY(host.send(QEvent::KeyPress, kShift, 0xffe1));
        QCOMPARE(host.key(), 0x38);
        QVERIFY(host.send(QEvent::KeyRelease, kShift, 0xffe1, kShiftState));
        QCOMPARE(host.listener->heard, QStringList());
    }

    void repetitionsAreTakenAndOfferedToNobody() {
        const Host host;
        host.showPanel(true);
        host.press(kA);
        host.press(kB);
        QCOMPARE(host.key(), 0x0B);
        QVERIFY(host.send(QEvent::ShortcutOverride, kA, 0, 0, true));
        QVERIFY(host.send(QEvent::KeyRelease, kA, 0, 0, true));
        QVERIFY(host.send(QEvent::KeyPress, kA, 0, 0, true));
        QCOMPARE(host.key(), 0x0B);
        QCOMPARE(host.listener->heard, QStringList());
    }

    void aPressOfAHeldKeyIsARepetitionAlthoughItDoesNotSaySo() {
        const MacroFixture fixture;
        fixture.record();
        for (int i = 0; i < 3; ++i) {
            QVERIFY(fixture.send(QEvent::ShortcutOverride, kA));
            QVERIFY(fixture.send(QEvent::KeyPress, kA));
        }
        QVERIFY(fixture.send(QEvent::KeyRelease, kA));
        QCOMPARE(fixture.shownSteps(), QStringList({"Press a", "Release a"}));
        fixture.tap(kA);
        QCOMPARE(fixture.shownSteps(), QStringList({"Press a", "Release a", "Press a", "Release a"}));
    }

    void twoHeldKeysRepeatApart() {
        const MacroFixture fixture;
        fixture.record();
        for (const quint32 scanCode : {kA, kB, kB, kA})
            fixture.press(scanCode);
        fixture.release(kA);
        fixture.press(kB);
        fixture.press(kA);
        QCOMPARE(fixture.shownSteps(), QStringList({"Press a", "Press b", "Release a", "Press a"}));
    }

    void aKeyHeldWhenTheRecordingBeginsDoesNotRepeatIntoIt() {
        const MacroFixture fixture;
        fixture.press(kReturn);
        fixture.record();
        QVERIFY(fixture.send(QEvent::KeyPress, kReturn));
        QVERIFY(fixture.send(QEvent::KeyRelease, kReturn));
        QCOMPARE(fixture.shownSteps(), QStringList());
        fixture.press(kReturn);
        QCOMPARE(fixture.shownSteps(), QStringList("Press Return"));
    }

    void withoutACaptureTheHostGetsRepetitionsThatDoNotSaySo() {
        const Host host;
        host.press(kA);
        host.press(kA);
        host.release(kA);
        QCOMPARE(host.listener->heard, QStringList({"press 38", "press 38", "release 38"}));
    }

    void aKeyHeldWhenTheCaptureBeginsIsNoPartOfIt() {
        const Host host;
        host.press(kReturn);
        host.press(kShift, 0xffe1);
        host.listener->heard.clear();
        host.showPanel(true);
        QVERIFY(host.send(QEvent::KeyRelease, kReturn, 0, kShiftState | kLockState));
        QVERIFY(host.send(QEvent::KeyRelease, kShift, 0xffe1, kShiftState | kLockState));
        QCOMPARE(host.key(), 255);
        QCOMPARE(host.listener->heard, QStringList());
    }

    void aLockOrModifierFromBeforeTheCaptureIsNotTakenForTheFirstKey() {
        const Host host;
        host.showPanel(true);
        host.press(kA, 0x41, kLockState);
        QCOMPARE(host.key(), 0x00);
        host.release(kA, 0x41, kLockState);
        host.press(kB, 0x42, kLockState | kShiftState);
        QCOMPARE(host.key(), 0x0B);
    }

    void aModifierReleasedUnseenIsCapturedWhenItIsPressedAgain() {
        const Host host;
        host.showPanel(true);
        host.press(kShift, 0xffe1);
        host.press(kA, 0x41, kShiftState);
        QCOMPARE(host.key(), 0x00);
        // Its release went to another window.
        host.press(kShift, 0xffe1);
        QCOMPARE(host.key(), 0x38);
    }

    void ofTwoShiftsTheSecondIsHandedBackUntilBothAreUp() {
        const Host host;
        host.showPanel(true);
        host.press(kShift, 0xffe1);
        host.press(kA, 0x41, kShiftState);
        host.press(kRightShift, 0xffe2, kShiftState);
        host.release(kShift, 0xffe1, kShiftState);
        QCOMPARE(host.key(), 0x00);
        QCOMPARE(host.listener->heard, QStringList({"press 62", "release 50"}));
        host.release(kRightShift, 0xffe2, kShiftState);
        host.press(kRightShift, 0xffe2);
        QCOMPARE(host.key(), 0x38);
    }

    void theReleaseAndRepetitionOfACapturedKeyAreTakenAfterTheCaptureToo() {
        const Host host;
        host.showPanel(true);
        host.press(kA);
        host.press(kShift, 0xffe1);
        host.showPanel(false);
        QVERIFY(host.send(QEvent::ShortcutOverride, kA, 0, kShiftState, true));
        host.send(QEvent::KeyPress, kA, 0, kShiftState, true);
        host.release(kA, 0, kShiftState);
        host.release(kShift, 0xffe1, kShiftState);
        QCOMPARE(host.listener->heard, QStringList());
        QVERIFY(!host.send(QEvent::ShortcutOverride, kA));
        host.press(kA);
        host.release(kA);
        QCOMPARE(host.listener->heard, QStringList({"press 38", "release 38"}));
    }

    void aCapturedKeyThatIsHeldBeyondTheCaptureDoesNotRepeatIntoTheHost() {
        const Host host;
        host.showPanel(true);
        host.press(kA);
        host.showPanel(false);
        QVERIFY(host.send(QEvent::ShortcutOverride, kA));
        QVERIFY(host.send(QEvent::KeyPress, kA));
        host.press(kB);
        host.release(kB);
        host.release(kA);
        QCOMPARE(host.listener->heard, QStringList({"press 56", "release 56"}));
    }

    void aKeyPressedAfterTheCaptureIsTheHostsAlthoughItsReleaseWentToAnotherProgram() {
        const Host host;
        host.showPanel(true);
        host.press(kA);
        host.showPanel(false);
        emit qGuiApp->focusWindowChanged(nullptr);
        host.press(kA);
        host.release(kA);
        QCOMPARE(host.listener->heard, QStringList({"press 38", "release 38"}));
    }

    void keysThatCannotBeCapturedStayTheHosts() {
        const Host host;
        host.showPanel(true);
        for (const quint32 scanCode : {kVolumeUp, kF16, quint32(0)}) {
            QVERIFY(!host.send(QEvent::ShortcutOverride, scanCode));
            host.press(scanCode);
            host.send(QEvent::KeyPress, scanCode, 0, 0, true);
            host.release(scanCode);
            const QString code = QString::number(scanCode);
            QCOMPARE(
                host.listener->heard, QStringList({"press " + code, "press " + code, "release " + code}));
            host.listener->heard.clear();
        }
        QCOMPARE(host.key(), 255);
    }

    void aRecordingTakesKeysAsThePanelDoes() {
        const Host host;
        host.fixture.pane->startStopRecording(true, false);
        host.press(kA);
        host.release(kA);
        QCOMPARE(host.listener->heard, QStringList());
        host.fixture.pane->startStopRecording(false, false);
        host.press(kA);
        QCOMPARE(host.listener->heard, QStringList("press 38"));
    }

    void twoExchangesRestoreTheHostAndAnOddNumberLeavesItPatched() {
        const Host host;
        host.showPanel(true);
        KyvarQuorviPane* const pane = host.fixture.pane.get();
        const auto reachesTheHost = [&] {
            host.listener->heard.clear();
            host.press(kA);
            host.release(kA);
            return host.listener->heard == QStringList({"press 38", "release 38"});
        };
        QCOMPARE(gPatchedPane, pane);
        QVERIFY(!reachesTheHost());
        KyvarQuorviSwapNSAppMethods(pane);
        QCOMPARE(gPatchedPane, nullptr);
        QVERIFY(reachesTheHost());
        KyvarQuorviSwapNSAppMethods(pane);
        KyvarQuorviSwapNSAppMethods(pane);
        QVERIFY(reachesTheHost());
        for (int i = 0; i < 3; ++i)
            KyvarQuorviSwapNSAppMethods(pane);
        QCOMPARE(gPatchedPane, pane);
        QVERIFY(!reachesTheHost());
    }

    void aPaneThatDiesSelectedLeavesTheHostUnpatched() {
        Host host;
        host.showPanel(true);
        host.fixture.pane.reset();
        QCOMPARE(gPatchedPane, nullptr);
        host.press(kA);
        QCOMPARE(host.listener->heard, QStringList("press 38"));
    }
};

QUORVI_PANE_TEST_MAIN(KeyDispatchTest)
#include "KeyDispatchTest.moc"
