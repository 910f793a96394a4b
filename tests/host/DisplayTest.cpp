// Keys and clicks that come from the X server, to the real program and to the real window.

#include <QTest>

#include <csignal>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"

using namespace quorvi::test;

class DisplayTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void keysSwitchALightOfTheRealProgram() {
        const Session session;
        session.home.awaitDeviceList();
        const auto program = session.startSettings();
        const auto window = visibleWindowOf(program->pid());
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(session.recordByte(kFirstProfileLights), 3, kWindowPatienceMs);
        const auto before = session.record();
        QVERIFY(xdotool({"windowactivate", "--sync", window}));
        QVERIFY(xdotool({"key", "--repeat", std::to_string(kDeviceTab), "ctrl+Tab"}));
        QVERIFY(xdotool({"key", "alt+w"})); // the key of "Wheel light"
        QTRY_COMPARE_WITH_TIMEOUT(session.home.savedLights(), 2, kWindowPatienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(
            changes(before, session.record()), QStringLiteral("213: 3 -> 2"), kWindowPatienceMs);
        QVERIFY(xdotool({"key", "ctrl+q"}));
        QCOMPARE(program->wait(), std::optional(0));
    }

    void withoutASessionBusTheWindowIsThereAndTakesKeys() {
        const Session session;
        const QTemporaryDir nowhere;
        const auto program = session.startSettings({}, withoutSessionBus(nowhere));
        const auto window = visibleWindowOf(program->pid());
        QVERIFY(program->isRunning());
        QVERIFY(xdotool({"windowactivate", "--sync", window}));
        QVERIFY(xdotool({"key", "ctrl+q"}));
        QCOMPARE(program->wait(), std::optional(0));
    }

    void aClickOfTheMouseSwitchesALight() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        window.clickTab(kDeviceTab);
        auto* box = window.find("quorviBoxLightOnBattery");
        const QPoint spot = box->mapToGlobal(QPoint(8, box->height() / 2));
        const auto before = session.record();
        clickAt(spot);
        QTRY_COMPARE_WITH_TIMEOUT(session.home.savedLights(), 1, kWindowPatienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(
            changes(before, session.record()), QStringLiteral("213: 3 -> 1"), kWindowPatienceMs);
    }
};

QUORVI_SESSION_TEST_MAIN(DisplayTest)
#include "DisplayTest.moc"
