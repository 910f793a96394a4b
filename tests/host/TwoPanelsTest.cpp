// Two settings applications with one helper: each with its own settings, and with one file.

#include <QAbstractSlider>
#include <QTest>

#include <csignal>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

struct Panel {
    explicit Panel(const Session& session) {
        home.awaitDeviceList();
        program = session.startSettings(
            {}, {"HOME=" + home.path(), "XDG_CONFIG_HOME=" + home.path() + "/.config", "XDG_STATE_HOME"});
    }
    [[nodiscard]] bool getsTheList() const {
        return QTest::qWaitFor([&] { return home.deviceListHasCome(); }, kWindowPatienceMs);
    }

    UserHome home;
    std::unique_ptr<ChildProcess> program;
};

} // namespace

class TwoPanelsTest : public QObject {
    Q_OBJECT

  private slots:
    void bothGetTheListAndOneGoesOnWithoutTheOther_data() {
        QTest::addColumn<bool>("firstStays");
        QTest::newRow("the first one stays") << true;
        QTest::newRow("the second one stays") << false;
    }

    void bothGetTheListAndOneGoesOnWithoutTheOther() {
        QFETCH(bool, firstStays);
        const Session session;
        const Panel first(session);
        QVERIFY(first.getsTheList());
        const Panel second(session);
        QVERIFY(second.getsTheList());
        QCOMPARE(session.helpers().size(), std::size_t(1));

        first.home.awaitDeviceList();
        second.home.awaitDeviceList();
        QCOMPARE(session.panelsToldOfDetaching(), 2);
        QVERIFY(first.getsTheList());
        QVERIFY(second.getsTheList());

        const Panel& leaving = firstStays ? second : first;
        const Panel& staying = firstStays ? first : second;
        leaving.program->signal(SIGTERM);
        QCOMPARE(leaving.program->wait(), std::optional(0));
        QTRY_VERIFY(session.runs("KyvarQuorviPane"));
        staying.home.awaitDeviceList();
        session.attach();
        QVERIFY(staying.getsTheList());
        QCOMPARE(session.panelsToldOfDetaching(), 1);
        QVERIFY(staying.program->isRunning());
    }

    // The second panel is the program; the first one is in this process, where it can be looked at.
    void panelsAtOneFileFollowEachOther() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        session.home.awaitDeviceList();
        const auto program = session.startSettings();
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs); // the program's
        // This test writes the file now, as another program does.
        const auto* slider = window.find<QAbstractSlider>("quorviSliderSensitivityX");
        session.home.writeSettings(UserHome::defaults());
        QTRY_VERIFY_WITH_TIMEOUT(slider->value() != 1200, kWindowPatienceMs);
        session.home.awaitDeviceList();
        QTRY_COMPARE_WITH_TIMEOUT(slider->value(), 1200, kWindowPatienceMs);
        QVERIFY(!session.home.deviceListHasCome()); // nobody saves because of it
        QTRY_VERIFY_WITH_TIMEOUT(session.panelsToldOfDetaching() == 2, kWindowPatienceMs);
        session.attach();
        QVERIFY(window.showsMouse());
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);

        // What the one saves, the other one has when it is closed and saves in its turn.
        window.clickTab(4);
        const int lights = session.home.savedLights();
        window.click("quorviBoxLightOnWheel");
        QCOMPARE(session.home.savedLights(), lights ^ 1);
        program->signal(SIGTERM);
        QCOMPARE(program->wait(), std::optional(0));
        QCOMPARE(session.home.savedLights(), lights ^ 1);
        QCOMPARE(session.recordByte(kFirstProfileLights), lights ^ 1);
        QCOMPARE(session.home.files().filter(QStringLiteral("kept")), QStringList());
    }

    // At the calls that saves make and nothing else in the program does, so that strace can count them. It
    // looks on from aside (-D): the child of this test is the program itself.
    void aProgramThatIsKilledInASaveLeavesTheOldFileOrTheNewOne_data() {
        QTest::addColumn<QString>("call");
        for (const char* call : {"fchmod", "fsync", "renameat2"})
            QTest::newRow(call) << call;
    }

    void aProgramThatIsKilledInASaveLeavesTheOldFileOrTheNewOne() {
        QFETCH(QString, call);
        const std::string name = call.toStdString();
        int kills = 0;
        for (bool killed = true; killed; kills += int(killed)) {
            QVERIFY(kills < 20);
            Session session;
            session.startHelper();
            session.home.awaitDeviceList();
            // Another mode than that of a new file, so that each save has to set it.
            std::filesystem::permissions(session.home.settingsFile(), std::filesystem::perms(0640));
            const std::string old = UserHome::contentOf(session.home.settingsFile());
            ChildProcess program({"strace", "-D", "-f", "-qq", "-o", "/dev/null", "-e", "trace=" + name, "-e",
                "inject=" + name + ":signal=KILL:when=" + std::to_string(kills + 1), QUORVI_SETTINGS});
            QVERIFY(QTest::qWaitFor(
                [&] { return !program.isRunning() || session.home.deviceListHasCome(); }, kWindowPatienceMs));
            QVERIFY(
                session.home.deviceListHasCome() || UserHome::contentOf(session.home.settingsFile()) == old);
            // After the last call of that name it lives on, and is told to end.
            program.signal(SIGTERM);
            killed = program.wait() == std::optional(128 + SIGKILL);
            if (!killed)
                continue;
            const auto next = session.startSettings();
            QVERIFY(QTest::qWaitFor([&] { return session.home.deviceListHasCome(); }, kWindowPatienceMs));
            QTRY_COMPARE(session.home.files().filter(QStringLiteral(".quorvi-")), QStringList());
        }
        QVERIFY(kills > 0);
    }
};

QUORVI_SESSION_TEST_MAIN(TwoPanelsTest)
#include "TwoPanelsTest.moc"
