// The owner of the display's keyboard during a capture, as seen by another program.

#include <QLineEdit>
#include <QMenu>

#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "support/Keyboard.h"

using namespace quorvi::test;

class KeyboardGrabTest : public QObject {
    Q_OBJECT

    [[nodiscard]] QDialog* panel() const { return m_fixture->find<QDialog>("quorviPanelSingleKey"); }

    void showPanel() {
        panel()->show();
        panel()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(panel()));
    }
    void focusPane() {
        m_fixture->window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_fixture->window.get()));
    }
    /// A round trip through the display and back, after which nothing is under way that was caused before it.
    [[nodiscard]] bool nothingMoreHappens() {
        const bool answered = xdotool({"getmouselocation"}).has_value();
        QCoreApplication::processEvents();
        return answered;
    }

    std::unique_ptr<PaneFixture> m_fixture;
    std::unique_ptr<OtherProgram> m_other;

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void init() {
        m_fixture = std::make_unique<PaneFixture>();
        m_fixture->openWith(PaneFixture::sampleTree());
        m_other = std::make_unique<OtherProgram>();
        QVERIFY(m_other->canTakeKeyboard());
    }

    void cleanup() {
        m_fixture.reset();
        m_other.reset();
    }

    void aRecordingHoldsTheKeyboardUntilItStops() {
        m_fixture->pane->startStopRecording(true, false);
        QVERIFY(!m_other->canTakeKeyboard());
        QVERIFY(nothingMoreHappens());
        QVERIFY(m_fixture->pane->isRecordingMacro()); // taking the keyboard is no loss of the focus
        m_fixture->pane->startStopRecording(false, false);
        QTRY_VERIFY(m_other->canTakeKeyboard());
    }

    void aRecordingGetsTheKeysOfTheDesktop() {
        m_other->bindKey(keycodes::leftSuper);
        Keyboard keyboard;
        m_fixture->pane->startStopRecording(true, false);
        keyboard.tap(keycodes::leftSuper);
        keyboard.down(keycodes::alt);
        keyboard.tap(keycodes::tab);
        keyboard.up(keycodes::alt);
        QVERIFY(m_fixture->pane->isRecordingMacro());
        m_fixture->pane->startStopRecording(false, false);
        QCOMPARE(m_other->keyPresses(), 0);
    }

    void aClickIntoAnotherWindowEndsTheRecordingAndGivesTheKeyboardBack() {
        const QPoint spot = m_other->showWindow();
        focusPane();
        m_fixture->pane->startStopRecording(true, false);
        QVERIFY(!m_other->canTakeKeyboard());
        clickAt(spot);
        QTRY_VERIFY(!m_fixture->pane->isRecordingMacro());
        QTRY_VERIFY(m_other->canTakeKeyboard());
    }

    void thePanelHoldsTheKeyboardWhileItIsShown() {
        showPanel();
        QTRY_VERIFY(!m_other->canTakeKeyboard());
        panel()->hide();
        QTRY_VERIFY(m_other->canTakeKeyboard());
    }

    void aPanelThatNeverGotTheFocusGivesTheKeyboardBackAsWell() {
        Keyboard keyboard;
        panel()->setAttribute(Qt::WA_ShowWithoutActivating);
        panel()->setModal(false);
        panel()->show();
        keyboard.tap(keycodes::a);
        QCOMPARE(QGuiApplication::focusWindow(), m_fixture->window->windowHandle());
        QVERIFY(!m_other->canTakeKeyboard());
        panel()->hide();
        QTRY_VERIFY(m_other->canTakeKeyboard());
    }

    void aKeyThatComesWhileTheFocusLeavesDoesNotBringItBack() {
        m_other->showWindow();
        focusPane();
        QVERIFY(m_other->takeKeyboard());
        showPanel();
        QTRY_COMPARE(QGuiApplication::focusWindow(), panel()->windowHandle());
        m_other->giveKeyboardBack();
        // The display has another window in front already, and this process has not heard of it.
        m_other->activateWindow();
        QVERIFY(panel()->isActiveWindow());
        m_fixture->pane->updateKeyboardGrab();
        QTRY_VERIFY(m_other->canTakeKeyboard());
        QVERIFY(!panel()->isActiveWindow());
        panel()->hide();
    }

    void aHiddenPaneHoldsNothingAlthoughItsPanelIsShown() {
        showPanel();
        QTRY_VERIFY(!m_other->canTakeKeyboard());
        m_fixture->pane->willUnselect();
        QTRY_VERIFY(m_other->canTakeKeyboard());
        panel()->hide();
        m_fixture->pane->didSelect();
    }

    void aPaneThatDiesGivesTheKeyboardBack() {
        showPanel();
        QTRY_VERIFY(!m_other->canTakeKeyboard());
        m_fixture->pane.reset();
        QTRY_VERIFY(m_other->canTakeKeyboard());
    }

    void afterAMenuOfOursTheKeyboardIsTakenAgainWithTheNextKey() {
        Keyboard keyboard;
        showPanel();
        QTRY_VERIFY(!m_other->canTakeKeyboard());
        QMenu menu(panel());
        menu.addAction(QStringLiteral("Copy"));
        menu.popup(panel()->geometry().center());
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        menu.close();
        QTRY_VERIFY(m_other->canTakeKeyboard());
        keyboard.tap(keycodes::a);
        QVERIFY(!m_other->canTakeKeyboard());
        panel()->hide();
    }

    void aRecordingThatAMenuBeginsGoesOnWhenTheMenuHasClosed() {
        QMenu menu(m_fixture->window.get());
        menu.addAction(QStringLiteral("Record Here"));
        menu.popup(m_fixture->window->geometry().center());
        QTRY_COMPARE(QGuiApplication::focusWindow(), menu.windowHandle());
        menu.hide();
        // The display has not yet told that the focus is back in the window.
        QCOMPARE(QGuiApplication::focusWindow(), menu.windowHandle());
        m_fixture->pane->startStopRecording(true, false);
        QTRY_COMPARE(QGuiApplication::focusWindow(), m_fixture->window->windowHandle());
        QTRY_VERIFY(!m_other->canTakeKeyboard());
        QVERIFY(m_fixture->pane->isRecordingMacro());
        m_fixture->pane->startStopRecording(false, false);
        QTRY_VERIFY(m_other->canTakeKeyboard());
    }

    void aWindowThatIsNotThePanesHasItsKeys() {
        // Another window of the same host, with a recording that its activation would end put aside.
        QWidget stranger;
        stranger.show();
        stranger.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stranger));
        m_fixture->pane->startStopRecording(true, false);
        QVERIFY(nothingMoreHappens());
        QVERIFY(m_fixture->pane->isRecordingMacro());
        QVERIFY(m_other->canTakeKeyboard());
        focusPane();
        QTRY_VERIFY(!m_other->canTakeKeyboard());
        m_fixture->pane->startStopRecording(false, false);
    }
};

QUORVI_PANE_TEST_MAIN(KeyboardGrabTest)
#include "KeyboardGrabTest.moc"
